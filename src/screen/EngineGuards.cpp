#include "screen/EngineGuards.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr int kPictureWindowMs = 1000;
constexpr int kPopupMs = 100;
constexpr int kNextTurnMs = 1;
/// Where RealPlayer's picture window is looked for, in pixels from the corner of its control.
constexpr Point kProbe{20, 20};

std::optional<WindowHandle> windowInTag(const std::string& tag) {
  const std::string_view text = trim(tag);
  WindowHandle number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number == 0) return std::nullopt;
  return number;
}

}  // namespace

EngineGuards::EngineGuards(TimerService& timers, const DesktopWindows& windows,
                           CaughtWindows& caughtWindows, Log& log)
    : timRealPlayerNewWinCheck(timers, "timRealPlayerNewWinCheck", kPictureWindowMs),
      timDelayCloseMediaPlayerPopuWin(timers, "timDelayCloseMediaPlayerPopuWin", kPopupMs),
      timDisableWMPFullScreen(timers, "timDisableWMPFullScreen", kNextTurnMs),
      windows_(windows),
      caughtWindows_(caughtWindows),
      log_(log) {
  timRealPlayerNewWinCheck.onTimer.listen([this] { probe(kProbe); });
  timDelayCloseMediaPlayerPopuWin.onTimer.listen([this] { closeTaggedWindow(); });
  timDisableWMPFullScreen.onTimer.listen([this] {
    timDisableWMPFullScreen.setEnabled(false);
    if (wmpPlayer_ && wmpPlayer_->fullScreen()) wmpPlayer_->setFullScreen(false);
  });
}

void EngineGuards::open(WindowHandle form) {
  form_ = form;
  open_ = true;
}

void EngineGuards::close() {
  timDelayCloseMediaPlayerPopuWin.setEnabled(false);
  waiting_.clear();
  open_ = false;
}

void EngineGuards::attach(MediaPlayerSlot& wmpPlayer, RealPlayerSlot& realPlayer) {
  wmpPlayer_ = &wmpPlayer;
  // A double click is the engine's own switch, and some files ask for it when they begin.
  connections_.push_back(
      wmpPlayer.doubleClick.connect([this] { timDisableWMPFullScreen.setEnabled(true); }));
  connections_.push_back(wmpPlayer.playStateChange.connect([this](MediaPlayState state) {
    if (state == MediaPlayState::playing) timDisableWMPFullScreen.setEnabled(true);
  }));
  connections_.push_back(realPlayer.mousePoint.connect([this](Point point) { probe(point); }));
}

void EngineGuards::detach() {
  timRealPlayerNewWinCheck.setEnabled(false);
  timDisableWMPFullScreen.setEnabled(false);
  connections_.clear();
  wmpPlayer_ = nullptr;
}

void EngineGuards::probe(Point offset) {
  caughtWindows_.catchWindow(windows_.under(windows_.toScreen(form_, offset)));
}

void EngineGuards::noteShown(const ShownWindow& shown) {
  if (!open_ || shown.isChild || !shown.hasCaption || shown.isOurs) return;
  if (shown.rootOwner == shown.window || shown.rootOwner == form_) closeLater(shown.window);
}

/// One window at a time: the timer has one tag.
void EngineGuards::closeLater(WindowHandle window) {
  ui::Timer& timer = timDelayCloseMediaPlayerPopuWin;
  if (!timer.enabled()) {
    timer.setTag(std::to_string(window));
    timer.setEnabled(true);
  } else if (timer.tag() != std::to_string(window) &&
             std::find(waiting_.begin(), waiting_.end(), window) == waiting_.end()) {
    waiting_.push_back(window);
  }
}

void EngineGuards::closeTaggedWindow() {
  timDelayCloseMediaPlayerPopuWin.setEnabled(false);
  if (const auto window = windowInTag(timDelayCloseMediaPlayerPopuWin.tag())) {
    log_.info("closing a window that an engine has popped up: " + windows_.titleOf(*window));
    windows_.postClose(*window);
  }
  if (waiting_.empty()) return;
  closeLater(std::exchange(waiting_.front(), 0));
  waiting_.pop_front();
}

}  // namespace tessivo
