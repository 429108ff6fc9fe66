// What is thrown in a call of an engine's windows ends in the log, and the window goes on.
#include "screen/engines/embedded/EngineWindow.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <vector>

#include "fakes/FakeLog.h"
#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/embedded/PictureWindow.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "win32/WaitFor.h"

namespace tessivo {
namespace {

const std::string kNoMemory = "error no memory for an event";

/// Notes each call, and throws in it while it is told to.
struct ThrowingOwner final : EngineWindow::Owner {
  void onMouse(EngineWindow::Gesture, MouseButton, bool) override { note("mouse"); }
  void onEngineEvent(EngineEvent, WPARAM, std::int32_t) override { note("event"); }
  void onResized() override { note("size"); }
  void onTimer(EngineWindow::Timer) override { note("timer"); }

  void note(const char* what) {
    calls.emplace_back(what);
    if (throws) throw std::bad_alloc();
  }

  std::vector<std::string> calls;
  bool throws = true;
};

class EngineWindowTest : public testing::Test {
 protected:
  ~EngineWindowTest() override { DestroyWindow(stage); }

  HWND stage = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr,
                               nullptr, nullptr, nullptr);
  FakeLog log;
};

TEST_F(EngineWindowTest, WhatItsOwnerThrowsEndsInTheLogAndTheNextMessageComes) {
  ThrowingOwner owner;
  EngineWindow window(owner, log);
  window.open(stage);
  owner.calls.clear();
  log.lines.clear();
  const auto sendAll = [&] {
    SendMessageW(window.handle(), WM_APP + static_cast<UINT>(EngineEvent::ended), 1, 0);
    SendMessageW(window.handle(), WM_TIMER, 1, 0);
    SendMessageW(window.handle(), WM_SIZE, 0, 0);
    SendMessageW(window.handle(), WM_LBUTTONDOWN, 0, 0);
  };
  sendAll();
  EXPECT_EQ(log.lines, std::vector<std::string>(4, kNoMemory));
  owner.throws = false;
  sendAll();
  EXPECT_EQ(log.lines.size(), 4U);
  EXPECT_EQ(owner.calls, (std::vector<std::string>{"event", "timer", "size", "mouse", "event",
                                                   "timer", "size", "mouse"}));
}

TEST_F(EngineWindowTest, APictureThatCannotBePaintedIsBlackAndPaintedNoMore) {
  PictureWindow picture(stage, false, log);
  UpdateWindow(picture.handle());
  int painted = 0;
  picture.onPaint([&](HDC) -> bool {
    ++painted;
    throw std::bad_alloc();
  });
  InvalidateRect(picture.handle(), nullptr, FALSE);
  UpdateWindow(picture.handle());
  EXPECT_EQ(painted, 1);
  EXPECT_EQ(log.lines, std::vector<std::string>{kNoMemory});
  EXPECT_EQ(GetUpdateRect(picture.handle(), nullptr, FALSE), FALSE);
}

TEST_F(EngineWindowTest, AFirstFrameThatThrowsEndsInTheLogAndTheNextOneComes) {
  PictureWindow picture(stage, false, log);
  int frames = 0;
  picture.onFrame([&] {
    if (++frames == 1) throw std::bad_alloc();
  });
  PictureWindow::noteFrame(picture.handle());
  PictureWindow::noteFrame(picture.handle());
  EXPECT_TRUE(waitFor([&] { return frames == 2; }));
  EXPECT_EQ(log.lines, std::vector<std::string>{kNoMemory});
}

TEST_F(EngineWindowTest, WhatAListenerOfAnEngineThrowsEndsInItsLog) {
  int heard = 0;
  const auto throwAtFirst = [&] {
    if (++heard % 2 == 1) throw std::bad_alloc();
  };
  EmbeddedMediaPlayer mediaPlayer(stage, log);
  mediaPlayer.doubleClick.listen(throwAtFirst);
  const HWND mediaWindow = GetWindow(stage, GW_CHILD);
  EmbeddedRealPlayer realPlayer(stage, log);
  realPlayer.pictureMouse.listen([&](PictureMouse) { throwAtFirst(); });
  const HWND realWindow = GetWindow(mediaWindow, GW_HWNDNEXT);
  ASSERT_NE(realWindow, nullptr);
  for (const HWND window : {mediaWindow, realWindow}) {
    SendMessageW(window, WM_LBUTTONDBLCLK, 0, 0);
    SendMessageW(window, WM_LBUTTONDBLCLK, 0, 0);
  }
  EXPECT_EQ(heard, 4);
  EXPECT_EQ(log.lines, std::vector<std::string>(2, kNoMemory));
}

}  // namespace
}  // namespace tessivo
