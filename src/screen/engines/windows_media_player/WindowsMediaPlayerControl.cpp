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

/// An event of a source, not of the mouse.
bool isOfPlaying(DISPID event) {
  return event == DISPID_WMPCOREEVENT_PLAYSTATECHANGE || event == DISPID_WMPCOREEVENT_MEDIAERROR;
}

}  // namespace

const CLSID kWindowsMediaPlayerControl = {
    0x6bf52a52, 0x394a, 0x11d3, {0xb1, 0x53, 0x00, 0xc0, 0x4f, 0x79, 0xfa, 0xa6}};

WindowsMediaPlayerControl::WindowsMediaPlayerControl(HWND parent, Log& log, const CLSID& control)
    : host_(parent,
            {kName,
             control,
             {},
             [this](DISPID event, const std::vector<Variant>& arguments) {
               onEvent(event, arguments);
             }},
            log),
      failures_(std::make_shared<MemberFailures>(kName, log)),
      // Wine's control never comes back from the next stop after it has sought in a film that
      // plays.
      seeksWhilePlaying_(!runsOnWine() || control != kWindowsMediaPlayerControl) {
  if (host_.created()) setUp();
}

/// A control that is let go of while it plays may go on.
WindowsMediaPlayerControl::~WindowsMediaPlayerControl() {
  attempt("controls.stop", [](const Members& its) { return its.controls->stop(); });
  attempt("close", [](const Members& its) { return its.player->close(); });
}

/// The rest of the settings is made whenever the playback window lays its engines out.
void WindowsMediaPlayerControl::setUp() {
  const auto members = std::make_shared<Members>();
  const ComPtr<IUnknown> control(host_.control());
  members->player = control.as<IWMPPlayer>();
  if (!members->player ||
      !failures_->succeeded(members->player->get_controls(members->controls.put()), "controls") ||
      !failures_->succeeded(members->player->get_settings(members->settings.put()), "settings") ||
      !members->controls || !members->settings) {
    return;
  }
  members_ = members;
  attempt("settings.autoStart",
          [](const Members& its) { return its.settings->put_autoStart(VARIANT_FALSE); });
  attempt("uiMode", [](const Members& its) { return its.player->put_uiMode(text("none").bstr()); });
  attempt("stretchToFit", [](const Members& its) {
    const auto newer = its.player.as<IWMPPlayer4>();
    return newer ? newer->put_stretchToFit(VARIANT_TRUE) : E_NOINTERFACE;
  });
}

bool WindowsMediaPlayerControl::attempt(const char* member,
                                        const std::function<HRESULT(const Members&)>& call) const {
  const ControlHost::Call during(host_);
  const auto members = members_;
  const auto failures = failures_;
  return members && failures->succeeded(call(*members), member);
}

void WindowsMediaPlayerControl::setUrl(const std::string& url) {
  url_ = url;
  startAt_ = 0;
  playOrdered_ = false;
  cannotPlay_ = false;
  state_ = MediaPlayState::undefined;
  host_.dropWaitingEvents(&isOfPlaying);
  attempt("URL", [&](const Members& its) { return its.player->put_URL(text(url).bstr()); });
}

void WindowsMediaPlayerControl::play() {
  playOrdered_ = true;
  const ControlHost::Call during(host_);
  const bool hopeless = std::exchange(cannotPlay_, false);
  if (!hopeless &&
      attempt("controls.play", [](const Members& its) { return its.controls->play(); })) {
    return;
  }
  if (during.isStillMeant()) host_.announce(DISPID_WMPCOREEVENT_MEDIAERROR);
}

void WindowsMediaPlayerControl::pause() {
  attempt("controls.pause", [](const Members& its) { return its.controls->pause(); });
}

void WindowsMediaPlayerControl::stop() {
  startAt_ = 0;
  playOrdered_ = false;
  host_.dropWaitingEvents(&isOfPlaying);
  attempt("controls.stop", [](const Members& its) { return its.controls->stop(); });
}

double WindowsMediaPlayerControl::currentPosition() const {
  if (startAt_ > 0) return startAt_;
  double seconds = 0;
  attempt("controls.currentPosition",
          [&](const Members& its) { return its.controls->get_currentPosition(&seconds); });
  return seconds;
}

void WindowsMediaPlayerControl::setCurrentPosition(double seconds) {
  const MediaPlayState state = playState();
  const bool open = state == MediaPlayState::playing || state == MediaPlayState::paused;
  startAt_ = open ? 0 : seconds;
  seek(seconds, open);
}

void WindowsMediaPlayerControl::seek(double seconds, bool open) {
  const bool serves = !open || seeksWhilePlaying_;
  attempt("seeking", [&](const Members& its) {
    return serves ? its.controls->put_currentPosition(seconds) : E_NOTIMPL;
  });
}

MediaPlayState WindowsMediaPlayerControl::playState() const {
  const MediaPlayState notified = state_;
  WMPPlayState state = wmppsUndefined;
  const bool answered =
      attempt("playState", [&](const Members& its) { return its.player->get_playState(&state); });
  return answered ? static_cast<MediaPlayState>(state) : notified;
}

std::optional<double> WindowsMediaPlayerControl::currentMediaDuration() const {
  ComPtr<IWMPMedia> media;
  attempt("currentMedia",
          [&](const Members& its) { return its.player->get_currentMedia(media.put()); });
  double seconds = 0;
  if (!media || !attempt("currentMedia.duration",
                         [&](const Members&) { return media->get_duration(&seconds); })) {
    return std::nullopt;
  }
  return seconds;
}

void WindowsMediaPlayerControl::setVolume(int volume) {
  attempt("settings.volume", [&](const Members& its) { return its.settings->put_volume(volume); });
}

void WindowsMediaPlayerControl::setMute(bool mute) {
  attempt("settings.mute",
          [&](const Members& its) { return its.settings->put_mute(variantBool(mute)); });
}

void WindowsMediaPlayerControl::setEnableErrorDialogs(bool enable) {
  attempt("settings.enableErrorDialogs", [&](const Members& its) {
    return its.settings->put_enableErrorDialogs(variantBool(enable));
  });
}

void WindowsMediaPlayerControl::setInvokeUrls(bool invoke) {
  attempt("settings.invokeURLs",
          [&](const Members& its) { return its.settings->put_invokeURLs(variantBool(invoke)); });
}

void WindowsMediaPlayerControl::setEnableContextMenu(bool enable) {
  attempt("enableContextMenu", [&](const Members& its) {
    return its.player->put_enableContextMenu(variantBool(enable));
  });
}

bool WindowsMediaPlayerControl::fullScreen() const {
  VARIANT_BOOL full = VARIANT_FALSE;
  attempt("fullScreen", [&](const Members& its) { return its.player->get_fullScreen(&full); });
  return full != VARIANT_FALSE;
}

void WindowsMediaPlayerControl::setFullScreen(bool fullScreen) {
  attempt("setting fullScreen",
          [&](const Members& its) { return its.player->put_fullScreen(variantBool(fullScreen)); });
}

void WindowsMediaPlayerControl::clearErrorQueue() {
  ComPtr<IWMPError> errors;
  attempt("Error", [&](const Members& its) { return its.player->get_Error(errors.put()); });
  if (!errors) return;
  attempt("Error.clearErrorQueue", [&](const Members&) { return errors->clearErrorQueue(); });
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
    const ControlHost::Call during(host_);
    const double start = std::exchange(startAt_, 0);
    if (std::abs(currentPosition() - start) > kNearSeconds) seek(start, true);
    if (!during.hostIsThere()) return;
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
