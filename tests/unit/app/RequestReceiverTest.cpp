#include "app/RequestReceiver.h"

#include "app/Request.h"
#include "base/Utf16Bytes.h"
#include "fakes/FakeSharedMemory.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

class RequestReceiverTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    guard.onTimer.listen([this] { guard.setEnabled(false); });
    receiver.boolSysReady(true);
    log.lines.clear();
  }
  void ask(const std::string& text, std::uintptr_t number = 1) {
    take(number, *request::encode(text));
  }
  void take(std::uintptr_t number, const std::vector<std::uint8_t>& bytes) {
    receiver.take(number, bytes, guard);
  }
  std::string logged() {
    std::string all;
    for (const std::string& line : log.lines) all += (all.empty() ? "" : " | ") + line;
    log.lines.clear();
    return all;
  }

  FakeSharedMemory memory;
  CommandLine lines{controler, memory, log};
  RequestReceiver receiver{controler, lines, log};
  ui::Timer guard{time, "timDelayCallWinProc", 300};
};

TEST_F(RequestReceiverTest, BeforeTheSystemIsReadyEveryRequestIsIgnored) {
  receiver.boolSysReady(false);
  ask("-SMF");
  ask("C:\\v\\a.avi");
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_FALSE(guard.enabled());
  EXPECT_EQ(logged(), "info request refused: not ready yet | info request refused: not ready yet");
}

TEST_F(RequestReceiverTest, IsNotReadyAtFirst) {
  EXPECT_FALSE(RequestReceiver(controler, lines, log).boolSysReady());
}

TEST_F(RequestReceiverTest, AnotherNumberIsIgnored) {
  for (const std::uintptr_t number : {0, 2, -1}) ask("C:\\v\\a.avi", number);
  if constexpr (sizeof(std::uintptr_t) > 4) ask("C:\\v\\a.avi", std::uintptr_t{1} << 32 | 1);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_EQ(logged().find("info request refused: number 0 | info request refused: number 2"), 0U);
}

TEST_F(RequestReceiverTest, TheShowRequestShowsThePanel) {
  ask("-SMF");
  const std::string all = trace.take();
  EXPECT_NE(all.find("panel front"), std::string::npos);
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_FALSE(guard.enabled());
  EXPECT_EQ(logged(), "info request: -SMF");
}

TEST_F(RequestReceiverTest, TheShowRequestIsNeverDroppedByTheGuard) {
  ask("C:\\v\\a.avi");
  trace.take();
  ask("-SMF");
  ask("-SMF");
  const std::string all = trace.take();
  EXPECT_NE(all.find("panel front"), all.rfind("panel front"));
}

TEST_F(RequestReceiverTest, TheShowRequestIsComparedLetterByLetter) {
  ask("-smf");
  EXPECT_EQ(trace.take().find("panel front"), std::string::npos);
  EXPECT_EQ(logged(), "info request: -smf | error not added, not a file: -smf");
}

TEST_F(RequestReceiverTest, ACommandLineIsCarriedOut) {
  ask("C:\\v\\b.avi");
  EXPECT_EQ(order(), "b*!");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_TRUE(guard.enabled());
  EXPECT_EQ(logged(), "info request: C:\\v\\b.avi");
}

TEST_F(RequestReceiverTest, ASecondOneWithin300MillisecondsIsDropped) {
  ask("C:\\v\\a.avi");
  time.advance(299);
  ask("C:\\v\\b.avi");
  EXPECT_EQ(order(), "a*!");
  EXPECT_EQ(logged(),
            "info request: C:\\v\\a.avi | "
            "info request refused: less than 300 ms after another: C:\\v\\b.avi");
}

TEST_F(RequestReceiverTest, After300MillisecondsTheNextIsCarriedOut) {
  ask("C:\\v\\a.avi");
  time.advance(300);
  ask("C:\\v\\b.avi");
  EXPECT_EQ(order(), "ab*!");
}

TEST_F(RequestReceiverTest, ADroppedOneDoesNotProlongTheGuard) {
  ask("C:\\v\\a.avi");
  time.advance(200);
  ask("C:\\v\\b.avi");
  time.advance(100);
  ask("C:\\v\\c.avi");
  EXPECT_EQ(order(), "ac*!");
}

TEST_F(RequestReceiverTest, AnEmptyTextIsDroppedAndDoesNotStartTheGuard) {
  take(1, {});
  take(1, {0});
  take(1, toUtf16Bytes(std::string("\0C:\\v\\a.avi", 11)));
  EXPECT_EQ(trace.take(), "");
  EXPECT_FALSE(guard.enabled());
  EXPECT_EQ(logged(),
            "info request refused: empty | info request refused: empty | "
            "info request refused: empty");
}

TEST_F(RequestReceiverTest, MoreBytesThanTheBufferHoldsAreRefused) {
  addThree();
  controler.play();
  trace.take();
  log.lines.clear();
  take(1, std::vector<std::uint8_t>(2001, 'x'));
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_FALSE(guard.enabled());
  EXPECT_EQ(logged(), "info request refused: 2001 bytes");
}

TEST_F(RequestReceiverTest, ATextWithItsTerminatorIsUnderstood) {
  take(1, toUtf16Bytes(std::string("C:\\v\\a.avi\0", 11)));
  EXPECT_EQ(order(), "a*!");
}

TEST_F(RequestReceiverTest, TheShellMenusSelectionArrivesAsARequest) {
  memory.put("sel", "C:\\v\\b.avi@@_F%D-F_@C:\\v\\a.avi", 10);
  ask("DMenuF_2__/?%/sel/?%/72");
  EXPECT_EQ(order(), "b*!a");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

}  // namespace
}  // namespace tessivo
