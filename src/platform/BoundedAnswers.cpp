#include "platform/BoundedAnswers.h"

#include <condition_variable>
#include <mutex>
#include <set>
#include <system_error>
#include <thread>
#include <utility>

namespace tessivo {

struct BoundedAnswers::Worker {
  std::condition_variable asked;
  std::condition_variable answered;
  Question question;
  std::optional<bool> answer;
  std::optional<std::string> hangsAt;  ///< nobody waits for it any more
  bool isOver = false;
};

struct BoundedAnswers::State {
  std::mutex mutex;  // of everything but the question while it is answered
  std::set<std::string> hanging;
};

BoundedAnswers::BoundedAnswers(std::chrono::milliseconds patience, std::size_t mostHanging)
    : patience_(patience), mostHanging_(mostHanging), state_(std::make_shared<State>()) {}

BoundedAnswers::~BoundedAnswers() {
  if (!worker_) return;
  const std::lock_guard lock(state_->mutex);
  worker_->isOver = true;
  worker_->asked.notify_one();
}

std::optional<bool> BoundedAnswers::ask(const std::string& place, Question question) {
  std::unique_lock lock(state_->mutex);
  if (state_->hanging.contains(place) || state_->hanging.size() >= mostHanging_) {
    return std::nullopt;
  }
  if (!haveWorker()) return std::nullopt;
  const auto worker = worker_;
  worker->answer.reset();
  worker->question = std::move(question);
  worker->asked.notify_one();
  worker->answered.wait_for(lock, patience_, [&] { return worker->answer.has_value(); });
  if (!worker->answer) {
    state_->hanging.insert(place);
    worker->hangsAt = place;
    worker_.reset();
  }
  return worker->answer;
}

bool BoundedAnswers::haveWorker() {
  if (worker_) return true;
  try {
    auto worker = std::make_shared<Worker>();
    std::thread([state = state_, worker] { work(state, worker); }).detach();
    worker_ = std::move(worker);
    return true;
  } catch (const std::system_error&) {
    return false;  // no thread: then no answer
  }
}

void BoundedAnswers::work(const std::shared_ptr<State>& state,
                          const std::shared_ptr<Worker>& worker) {
  std::unique_lock lock(state->mutex);
  while (!worker->hangsAt) {
    worker->asked.wait(lock, [&] { return worker->question || worker->isOver; });
    if (!worker->question) return;
    const Question question = std::exchange(worker->question, nullptr);
    lock.unlock();
    bool answer = false;
    try {
      answer = question();
    } catch (...) {
      answer = false;
    }
    lock.lock();
    worker->answer = answer;
    worker->answered.notify_one();
  }
  state->hanging.erase(*worker->hangsAt);
}

}  // namespace tessivo
