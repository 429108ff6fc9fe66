// Real threads and a patience of real milliseconds; nothing sleeps.
#include "platform/BoundedAnswers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <stdexcept>
#include <thread>

namespace tessivo {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kShort{30};
constexpr milliseconds kLong{20000};  // never waited for

/// A place that does not answer until it is let go.
class DeadPlace {
 public:
  ~DeadPlace() { letGo(); }
  BoundedAnswers::Question question() {
    return [gate = gate_, asked = asked_] {
      ++*asked;
      gate.wait();
      return true;
    };
  }
  void letGo() {
    if (!std::exchange(isOpen_, true)) open_.set_value();
  }
  int asked() const { return *asked_; }

 private:
  std::promise<void> open_;
  std::shared_future<void> gate_ = open_.get_future().share();
  std::shared_ptr<std::atomic<int>> asked_ = std::make_shared<std::atomic<int>>(0);
  bool isOpen_ = false;
};

const auto kYes = [] { return true; };
const auto kNo = [] { return false; };

TEST(BoundedAnswers, PassesAnswersOn) {
  BoundedAnswers answers(kLong);
  EXPECT_EQ(answers.ask("C:", kYes), true);
  EXPECT_EQ(answers.ask("C:", kNo), false);
  EXPECT_EQ(answers.ask("", kYes), true);
}

TEST(BoundedAnswers, AnswersOnAnotherThreadAlwaysTheSameOne) {
  BoundedAnswers answers(kLong);
  std::thread::id first;
  std::thread::id second;
  answers.ask("C:", [&] { return (first = std::this_thread::get_id(), true); });
  answers.ask("D:", [&] { return (second = std::this_thread::get_id(), true); });
  EXPECT_NE(first, std::this_thread::get_id());
  EXPECT_EQ(first, second);
}

TEST(BoundedAnswers, AQuestionThatThrowsIsAnsweredWithNo) {
  BoundedAnswers answers(kLong);
  EXPECT_EQ(answers.ask("C:", []() -> bool { throw std::runtime_error("no memory"); }), false);
  EXPECT_EQ(answers.ask("C:", kYes), true);
}

TEST(BoundedAnswers, WaitsNoLongerThanItsPatience) {
  DeadPlace dead;
  BoundedAnswers answers(kShort);
  const auto start = steady_clock::now();
  EXPECT_EQ(answers.ask("X:", dead.question()), std::nullopt);
  const auto waited = steady_clock::now() - start;
  EXPECT_GE(waited, kShort);
  EXPECT_LT(waited, kShort * 100);  // a machine may have much to do
}

TEST(BoundedAnswers, APlaceThatHangsIsNotAskedAgain) {
  DeadPlace dead;
  BoundedAnswers answers(kShort);
  answers.ask("X:", dead.question());
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(answers.ask("X:", kYes), std::nullopt);
  EXPECT_LE(dead.asked(), 1);
}

TEST(BoundedAnswers, OtherPlacesAreAnsweredMeanwhile) {
  DeadPlace dead;
  BoundedAnswers answers(kShort);
  answers.ask("X:", dead.question());
  // Perhaps not within the short patience on a machine with much to do, but soon.
  std::optional<bool> answer;
  for (int i = 0; i < 1000 && !answer; ++i) answer = answers.ask("C:", kYes);
  EXPECT_EQ(answer, true);
}

TEST(BoundedAnswers, APlaceThatComesBackIsAskedAgain) {
  DeadPlace dead;
  BoundedAnswers answers(kShort);
  answers.ask("X:", dead.question());
  dead.letGo();
  std::optional<bool> answer;
  const auto start = steady_clock::now();
  while (!answer && steady_clock::now() - start < kLong) answer = answers.ask("X:", kNo);
  EXPECT_EQ(answer, false);
}

TEST(BoundedAnswers, NoMoreThanSoManyHang) {
  DeadPlace dead;
  BoundedAnswers answers(kShort, 3);
  for (const char* place : {"A:", "B:", "E:"}) answers.ask(place, dead.question());
  bool isAsked = false;
  EXPECT_EQ(answers.ask("C:", [&] { return isAsked = true; }), std::nullopt);
  EXPECT_FALSE(isAsked);
  EXPECT_LE(dead.asked(), 3);
}

TEST(BoundedAnswers, WhatHangsMayOutliveIt) {
  auto told = std::make_shared<std::promise<void>>();
  DeadPlace dead;
  {
    BoundedAnswers answers(kShort);
    answers.ask("X:", [question = dead.question(), told] {
      const bool answer = question();
      told->set_value();
      return answer;
    });
  }
  dead.letGo();
  EXPECT_EQ(told->get_future().wait_for(kLong), std::future_status::ready);
}

}  // namespace
}  // namespace tessivo
