#include "app/PrevInstance.h"

#include <gtest/gtest.h>

#include "app/Request.h"
#include "fakes/FakeLog.h"
#include "fakes/Trace.h"

namespace tessivo {
namespace {

struct FakeMessaging : Messaging {
  explicit FakeMessaging(Trace& t) : trace(t) {}
  WindowHandle findTopLevel(const std::string& title) const override {
    trace.add("find " + title);
    return window;
  }
  bool sendCopyData(WindowHandle target, std::uintptr_t wParam, std::uintptr_t number,
                    std::span<const std::uint8_t> bytes) override {
    trace.add("send " + std::to_string(target) + " " + std::to_string(wParam) + " " +
              std::to_string(number) + " " + std::to_string(bytes.size()) + " " +
              *request::decode(bytes));
    return answers;
  }
  void bringToForeground(WindowHandle target) override {
    trace.add("front " + std::to_string(target));
  }
  Trace& trace;
  WindowHandle window = 42;
  bool answers = true;
};

struct PrevInstanceTest : testing::Test {
  Trace trace;
  FakeMessaging messaging{trace};
  FakeLog log;
  PrevInstance previous{messaging, log};
};

TEST_F(PrevInstanceTest, WithoutACommandLineItShowsThePanelAndComesToTheForeground) {
  previous.handOver("");
  EXPECT_EQ(trace.take(), "find play27182831415 | send 42 0 1 9 -SMF | front 42");
}

TEST_F(PrevInstanceTest, TheCommandLineFollowsUnchanged) {
  previous.handOver(" \"C:\\两 个.avi\" x ");
  EXPECT_EQ(trace.take(),
            "find play27182831415 | send 42 0 1 9 -SMF | send 42 0 1 33  \"C:\\两 个.avi\" x  | "
            "front 42");
}

TEST_F(PrevInstanceTest, WithoutItsWindowTheRequestIsLost) {
  messaging.window = 0;
  previous.handOver("C:\\a.avi");
  EXPECT_EQ(trace.take(), "find play27182831415");
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(PrevInstanceTest, ATextThatDoesNotFitIsNotSentAndLogged) {
  previous.handOver(std::string(1000, 'x'));
  EXPECT_EQ(trace.take(), "find play27182831415 | send 42 0 1 9 -SMF | front 42");
  EXPECT_EQ(log.lines,
            std::vector<std::string>{"error request not sent, too long: 1000 characters"});
}

TEST_F(PrevInstanceTest, AFirstInstanceThatDoesNotAnswerIsLogged) {
  messaging.answers = false;
  previous.handOver("C:\\a.avi");
  EXPECT_EQ(log.lines, (std::vector<std::string>{"error request not answered: -SMF",
                                                 "error request not answered: C:\\a.avi"}));
}

}  // namespace
}  // namespace tessivo
