#include "screen/engines/embedded/ClosingAttempts.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tessivo {
namespace {

/// One that never lets go.
class StuckAttempt : public AttemptThread {
 public:
  explicit StuckAttempt(HWND engineWindow, WPARAM serial = 1)
      : AttemptThread(engineWindow, serial) {}
  void close() override {}

 private:
  void run() override {}
};

/// One whose codec throws.
class ThrowingAttempt final : public StuckAttempt {
  using StuckAttempt::StuckAttempt;
  void run() override { throw std::runtime_error("a codec"); }
};

/// One that notes in what order it is called, and whether still in the apartment of its thread.
class TracingAttempt final : public StuckAttempt {
 public:
  TracingAttempt(HWND engineWindow, std::vector<std::string>& trace, std::string thrown)
      : StuckAttempt(engineWindow, 7), trace_(trace), thrown_(std::move(thrown)) {}

 private:
  void run() override {
    thread_ = GetCurrentThreadId();
    trace_.emplace_back("run");
    if (thrown_ == "run") throw std::runtime_error("a codec");
  }
  void letGo() override {
    const HRESULT other = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    if (SUCCEEDED(other)) CoUninitialize();
    const bool inApartment = other == RPC_E_CHANGED_MODE;
    const bool onItsThread = GetCurrentThreadId() == thread_;
    trace_.push_back(std::string("let go") + (onItsThread ? "" : " elsewhere") +
                     (inApartment ? "" : " too late"));
    if (thrown_ == "let go") throw std::runtime_error("a codec");
  }

  std::vector<std::string>& trace_;
  const std::string thrown_;
  DWORD thread_ = 0;
};

struct News {
  EngineEvent event;
  WPARAM serial;
  LPARAM value;
  bool operator==(const News&) const = default;
};

class ClosingAttemptsTest : public testing::Test {
 protected:
  void SetUp() override { time = 1000; }
  void TearDown() override { DestroyWindow(window); }

  void add(int count) {
    for (int i = 0; i < count; ++i) {
      attempts.add(std::make_shared<StuckAttempt>(window, ++serial), nullptr);
    }
  }
  /// What a new attempt tells, up to its last word.
  std::vector<News> start(const std::shared_ptr<AttemptThread>& attempt) {
    attempts.start(attempt);
    std::vector<News> told;
    const ULONGLONG deadline = GetTickCount64() + 15000;
    while (told.empty() || told.back().event != EngineEvent::closed) {
      if (GetTickCount64() > deadline) return {};
      MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
      MSG message;
      while (PeekMessageW(&message, window, WM_APP, WM_APP + 100, PM_REMOVE)) {
        told.push_back(
            {static_cast<EngineEvent>(message.message - WM_APP), message.wParam, message.lParam});
      }
    }
    return told;
  }
  bool mayBegin() {
    return start(std::make_shared<StuckAttempt>(window, 99)) ==
           std::vector<News>{{EngineEvent::closed, 99, 0}};
  }

  static ULONGLONG now() { return time; }
  static ULONGLONG time;
  HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                nullptr, nullptr);
  ClosingAttempts attempts{now};
  WPARAM serial = 0;
};
ULONGLONG ClosingAttemptsTest::time = 0;

TEST_F(ClosingAttemptsTest, WaitsNoLongerThanItMayWhileMessagesKeepComing) {
  std::atomic<bool> enough = false;
  std::thread sender([&] {
    // Without a pause the system itself does not come back from handing them over, now and then.
    for (; !enough; Sleep(1)) SendNotifyMessageW(window, WM_APP, 0, 0);
  });
  add(1);
  const ULONGLONG start = GetTickCount64();
  attempts.wait(200);
  EXPECT_GE(GetTickCount64() - start, 190U);
  enough = true;
  sender.join();
}

TEST_F(ClosingAttemptsTest, WhenEightHangForFiveSecondsNoMoreIsBegun) {
  add(8);
  time += 4999;
  EXPECT_TRUE(mayBegin());
  time += 1;
  EXPECT_EQ(start(std::make_shared<StuckAttempt>(window, 7)),
            (std::vector<News>{{EngineEvent::failed, 7, ClosingAttempts::kTooManyHang},
                               {EngineEvent::closed, 7, 0}}));
}

TEST_F(ClosingAttemptsTest, SevenThatHangKeepNobodyFromBeginning) {
  add(7);
  time += 5000;
  add(8);
  EXPECT_TRUE(mayBegin());
}

TEST_F(ClosingAttemptsTest, WhenOneComesBackTheNextIsBegun) {
  add(8);
  time += 5000;
  EXPECT_FALSE(mayBegin());
  attempts.closed(3);
  EXPECT_TRUE(mayBegin());
}

TEST_F(ClosingAttemptsTest, HoweverQuicklyTheyFollowNoMoreThanSixtyFourClose) {
  add(63);
  EXPECT_TRUE(mayBegin());
  add(1);
  EXPECT_FALSE(mayBegin());
}

TEST_F(ClosingAttemptsTest, ARefusedAttemptIsClosedForThoseWhoWait) {
  const auto refused = std::make_shared<StuckAttempt>(window, 7);
  refused->refuse(E_FAIL);
  EXPECT_EQ(WaitForSingleObject(refused->closedSignal(), 0), WAIT_OBJECT_0);
}

TEST_F(ClosingAttemptsTest, AnAttemptThatThrowsHasFailed) {
  EXPECT_EQ(start(std::make_shared<ThrowingAttempt>(window, 7)),
            (std::vector<News>{{EngineEvent::failed, 7, E_FAIL}, {EngineEvent::closed, 7, 0}}));
}

TEST_F(ClosingAttemptsTest, AnAttemptLetsGoOnItsThreadBeforeItIsClosed) {
  std::vector<std::string> trace;
  EXPECT_EQ(start(std::make_shared<TracingAttempt>(window, trace, "")),
            (std::vector<News>{{EngineEvent::closed, 7, 0}}));
  EXPECT_EQ(trace, (std::vector<std::string>{"run", "let go"}));
}

TEST_F(ClosingAttemptsTest, AnAttemptThatThrowsLetsGoThereToo) {
  std::vector<std::string> trace;
  EXPECT_EQ(start(std::make_shared<TracingAttempt>(window, trace, "run")),
            (std::vector<News>{{EngineEvent::failed, 7, E_FAIL}, {EngineEvent::closed, 7, 0}}));
  EXPECT_EQ(trace, (std::vector<std::string>{"run", "let go"}));
}

TEST_F(ClosingAttemptsTest, AnAttemptThatThrowsWhileItLetsGoIsClosedAllTheSame) {
  std::vector<std::string> trace;
  EXPECT_EQ(start(std::make_shared<TracingAttempt>(window, trace, "let go")),
            (std::vector<News>{{EngineEvent::closed, 7, 0}}));
}

}  // namespace
}  // namespace tessivo
