#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <exception>
#include <future>
#include <iterator>
#include <thread>
#include <utility>
#include <vector>

namespace tessivo {

/// Frees elements on threads of their own, in portions with pauses: without them whoever allocates
/// meanwhile stands still for half a second under Wine, whose heap has one lock. Whoever
/// destroys it waits for what is left.
class FreedElsewhere {
 public:
  FreedElsewhere() = default;
  FreedElsewhere(const FreedElsewhere&) = delete;
  FreedElsewhere& operator=(const FreedElsewhere&) = delete;
  ~FreedElsewhere() { leaving_ = true; }

  /// Frees one container after the other. The elements must not care on which thread they end.
  template <typename... Elements>
  void free(Elements... elements) {
    using namespace std::chrono_literals;
    std::erase_if(running_,
                  [](auto& one) { return one.wait_for(0s) == std::future_status::ready; });
    try {
      running_.push_back(std::async(
          std::launch::async,
          [this, ... gone = std::move(elements)]() mutable { (freeInPortions(gone), ...); }));
    } catch (const std::exception&) {
      // No thread, or no memory for one: they have been freed here.
    }
  }

 private:
  template <typename Elements>
  void freeInPortions(Elements& gone) {
    using namespace std::chrono_literals;
    while (!gone.empty()) {
      const auto portion = std::min<std::size_t>(gone.size(), 1000);
      if constexpr (requires { gone.pop_back(); }) {
        gone.erase(std::prev(gone.end(), portion), gone.end());
      } else {
        gone.erase(gone.begin(), std::next(gone.begin(), portion));
      }
      if (!leaving_) std::this_thread::sleep_for(2ms);
    }
  }

  std::atomic<bool> leaving_ = false;
  std::vector<std::future<void>> running_;  ///< each waits in its destructor
};

/// Empties a KeyedSequence. The items of a long one and its index are freed elsewhere: 100 000
/// would keep the user interface waiting for 150 ms under Wine.
template <typename Sequence>
void clearQuickly(Sequence& all) {
  constexpr std::size_t kMany = 10000;
  auto gone = all.takeAll();
  if (gone.items.size() < kMany) return;
  static FreedElsewhere elsewhere;
  elsewhere.free(std::move(gone.items), std::move(gone.byKey));
}

}  // namespace tessivo
