#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tessivo {

/// Keeps a subscription alive; dropping it ends the subscription. Outliving the Signal is harmless.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<bool> alive) : alive_(std::move(alive)) {}
  Connection(Connection&&) noexcept = default;
  Connection& operator=(Connection&& other) noexcept {
    disconnect();
    alive_ = std::move(other.alive_);
    return *this;
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection() { disconnect(); }

  void disconnect() {
    if (alive_) *alive_ = false;
    alive_.reset();
  }

 private:
  std::shared_ptr<bool> alive_;
};

/// An event of an object. Listeners are called in the order in which they subscribed, on the
/// caller's thread. A listener may subscribe, unsubscribe or raise the event again while it is
/// being raised; one that unsubscribes another keeps it from being called in that round. A
/// listener may also destroy the Signal's owner.
template <typename... Args>
class Signal {
 public:
  using Listener = std::function<void(Args...)>;

  /// Subscribes for as long as the returned Connection lives.
  [[nodiscard]] Connection connect(Listener listener) {
    auto alive = std::make_shared<bool>(true);
    slots_.push_back(std::make_shared<Slot>(Slot{alive, std::move(listener)}));
    return Connection(std::move(alive));
  }

  /// Subscribes for as long as the Signal lives: for an owner that holds the Signal.
  void listen(Listener listener) {
    slots_.push_back(
        std::make_shared<Slot>(Slot{std::make_shared<bool>(true), std::move(listener)}));
  }

  void raise(Args... args) {
    std::erase_if(slots_, [](const auto& slot) { return !*slot->alive; });
    const auto round = slots_;
    for (const auto& slot : round) {
      if (*slot->alive) slot->listener(args...);
    }
  }

 private:
  struct Slot {
    std::shared_ptr<bool> alive;
    Listener listener;
  };
  std::vector<std::shared_ptr<Slot>> slots_;
};

}  // namespace tessivo
