#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"

#include <wmpids.h>

#include <cmath>
#include <utility>

#include "platform/win32/WindowsText.h"
#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {
namespace {

/// A control that was sent to a position beforehand starts within this.
constexpr double kNearSeconds = 1;

constexpr char kName[] = "the Windows Media Player control";

VARIANT_BOOL variantBool(bool flag) {
  return flag ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant text(const std::string& utf8) {
  return Variant(toWide(utf8));
}

}  // namespace

const CLSID kWindowsMediaPlayerControl = {
    0x6bf52a52, 0x394a, 0x11d3, {0xb1, 0x53, 0x00, 0xc0, 0x4f, 0x79, 0xfa, 0xa6}};

WindowsMediaPlayerControl::WindowsMediaPlayerControl(HWND parent, Log& log, const CLSID& control)
    : failures_(kName, log),
      host_(parent,
            {kName,
             control,
             {},
             [this](DISPID event, const std::vector<Variant>& arguments) {
               onEvent(event, arguments);
             }},
            log) {
  if (host_.created()) setUp();
}

/// The rest of the settings is made whenever the playback window lays its engines out.
void WindowsMediaPlayerControl::setUp() {
  if (!ok(host_.control()->QueryInterface(__uuidof(IWMPPlayer), player_.putVoid()), "player")) {
    return;
  }
  ok(player_->get_controls(controls_.put()), "controls");
  if (ok(player_->get_settings(settings_.put()), "settings")) {
    ok(settings_->put_autoStart(VARIANT_FALSE), "settings.autoStart");
  }
  ok(player_->put_uiMode((*text("none")).bstrVal), "uiMode");
  if (const auto newer = player_.as<IWMPPlayer4>()) {
    ok(newer->put_stretchToFit(VARIANT_TRUE), "stretchToFit");
  }
}

void WindowsMediaPlayerControl::setUrl(const std::string& url) {
  url_ = url;
  startAt_ = 0;
  playOrdered_ = false;
  cannotPlay_ = false;
  state_ = MediaPlayState::undefined;
  host_.dropWaitingEvents();
  if (player_) ok(player_->put_URL((*text(url)).bstrVal), "URL");
}

void WindowsMediaPlayerControl::play() {
  playOrdered_ = true;
  const bool hopeless = std::exchange(cannotPlay_, false);
  if (!hopeless && controls_ && ok(controls_->play(), "controls.play")) return;
  host_.announce(DISPID_WMPCOREEVENT_MEDIAERROR);
}

void WindowsMediaPlayerControl::pause() {
  if (controls_) ok(controls_->pause(), "controls.pause");
}

void WindowsMediaPlayerControl::stop() {
  startAt_ = 0;
  playOrdered_ = false;
  if (controls_) ok(controls_->stop(), "controls.stop");
}

double WindowsMediaPlayerControl::currentPosition() const {
  double seconds = 0;
  if (!controls_ || !ok(controls_->get_currentPosition(&seconds), "controls.currentPosition")) {
    return startAt_;
  }
  return startAt_ > 0 ? startAt_ : seconds;
}

void WindowsMediaPlayerControl::setCurrentPosition(double seconds) {
  const MediaPlayState state = playState();
  const bool open = state == MediaPlayState::playing || state == MediaPlayState::paused;
  startAt_ = open ? 0 : seconds;
  seek(seconds, open);
}

/// Wine's control never comes back from the next stop after it has sought in a film that plays, so
/// that there is no seeking there.
void WindowsMediaPlayerControl::seek(double seconds, bool open) {
  if (!controls_) return;
  const bool hangs = open && runsOnWine();
  ok(hangs ? E_NOTIMPL : controls_->put_currentPosition(seconds), "seeking");
}

MediaPlayState WindowsMediaPlayerControl::playState() const {
  WMPPlayState state = wmppsUndefined;
  if (!player_ || !ok(player_->get_playState(&state), "playState")) return state_;
  return static_cast<MediaPlayState>(state);
}

std::optional<double> WindowsMediaPlayerControl::currentMediaDuration() const {
  ComPtr<IWMPMedia> media;
  double seconds = 0;
  if (!player_ || !ok(player_->get_currentMedia(media.put()), "currentMedia") || !media ||
      !ok(media->get_duration(&seconds), "currentMedia.duration")) {
    return std::nullopt;
  }
  return seconds;
}

void WindowsMediaPlayerControl::setVolume(int volume) {
  if (settings_) ok(settings_->put_volume(volume), "settings.volume");
}

void WindowsMediaPlayerControl::setMute(bool mute) {
  if (settings_) ok(settings_->put_mute(variantBool(mute)), "settings.mute");
}

void WindowsMediaPlayerControl::setEnableErrorDialogs(bool enable) {
  if (!settings_) return;
  ok(settings_->put_enableErrorDialogs(variantBool(enable)), "settings.enableErrorDialogs");
}

void WindowsMediaPlayerControl::setInvokeUrls(bool invoke) {
  if (settings_) ok(settings_->put_invokeURLs(variantBool(invoke)), "settings.invokeURLs");
}

void WindowsMediaPlayerControl::setEnableContextMenu(bool enable) {
  if (player_) ok(player_->put_enableContextMenu(variantBool(enable)), "enableContextMenu");
}

bool WindowsMediaPlayerControl::fullScreen() const {
  VARIANT_BOOL full = VARIANT_FALSE;
  return player_ && ok(player_->get_fullScreen(&full), "fullScreen") && full != VARIANT_FALSE;
}

void WindowsMediaPlayerControl::setFullScreen(bool fullScreen) {
  if (player_) ok(player_->put_fullScreen(variantBool(fullScreen)), "fullScreen");
}

void WindowsMediaPlayerControl::clearErrorQueue() {
  ComPtr<IWMPError> errors;
  if (player_ && ok(player_->get_Error(errors.put()), "Error") && errors) {
    ok(errors->clearErrorQueue(), "Error.clearErrorQueue");
  }
}

void WindowsMediaPlayerControl::onEvent(DISPID event, const std::vector<Variant>& arguments) {
  const auto number = [&arguments] { return arguments.empty() ? 0 : arguments[0].number(); };
  const auto button = [&number] { return static_cast<MouseButton>(number()); };
  switch (event) {
    case DISPID_WMPCOREEVENT_PLAYSTATECHANGE:
      return stateChanged(static_cast<MediaPlayState>(number()));
    case DISPID_WMPCOREEVENT_MEDIAERROR:
      return failed();
    case DISPID_WMPOCXEVENT_CLICK:
      return click.raise(button());
    case DISPID_WMPOCXEVENT_DOUBLECLICK:
      return doubleClick.raise();
    case DISPID_WMPOCXEVENT_MOUSEDOWN:
      return mouseDown.raise(button());
    case DISPID_WMPOCXEVENT_MOUSEUP:
      return mouseUp.raise(button());
    default:
      return;
  }
}

void WindowsMediaPlayerControl::stateChanged(MediaPlayState state) {
  state_ = state;
  if (state == MediaPlayState::playing && startAt_ > 0) {
    // Set before the source was open, it may have been lost.
    const double start = std::exchange(startAt_, 0);
    if (std::abs(currentPosition() - start) > kNearSeconds) seek(start, true);
  }
  playStateChange.raise(state);
}

void WindowsMediaPlayerControl::failed() {
  if (!std::exchange(playOrdered_, false)) {
    cannotPlay_ = true;
    return;
  }
  mediaError.raise();
}

}  // namespace tessivo
