#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace tessivo {

/// Asks what may never be answered, a share that is dead or a disk that is dying, and waits only so
/// long. Questions are answered on a thread of its own. One that hangs is left there until it comes
/// back; meanwhile its place is not asked again, and other places are asked on another thread. One
/// thread at a time asks.
class BoundedAnswers {
 public:
  using Question = std::function<bool()>;

  /// No more than `mostHanging` questions hang at a time; then no place is asked any more.
  explicit BoundedAnswers(std::chrono::milliseconds patience, std::size_t mostHanging = 8);
  /// What hangs goes on hanging, and may use what it was given until it comes back.
  ~BoundedAnswers();
  BoundedAnswers(const BoundedAnswers&) = delete;
  BoundedAnswers& operator=(const BoundedAnswers&) = delete;

  /// Nothing when there was no answer in time. A question that throws is answered with no.
  std::optional<bool> ask(const std::string& place, Question question);

 private:
  struct Worker;
  struct State;
  static void work(const std::shared_ptr<State>& state, const std::shared_ptr<Worker>& worker);
  bool haveWorker();

  const std::chrono::milliseconds patience_;
  const std::size_t mostHanging_;
  const std::shared_ptr<State> state_;
  std::shared_ptr<Worker> worker_;  ///< the one that is free, once there is one
};

}  // namespace tessivo
