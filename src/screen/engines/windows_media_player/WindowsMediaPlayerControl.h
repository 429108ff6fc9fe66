#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <wmp.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Log.h"
#include "screen/MediaPlayerSlot.h"
#include "screen/engines/control/ControlHost.h"
#include "screen/engines/control/MemberFailures.h"

namespace tessivo {

/// The class of the installed Windows Media Player control.
extern const CLSID kWindowsMediaPlayerControl;

/// The installed Windows Media Player control in the Media Player slot.
///
/// The control opens a source as soon as it has it, also when nobody has asked it to play; what
/// goes wrong then is kept until somebody does. A play without a control fails.
class WindowsMediaPlayerControl final : public MediaPlayerSlot {
 public:
  /// `log` gets a line for each member that fails, the first time.
  WindowsMediaPlayerControl(HWND parent, Log& log,
                            const CLSID& control = kWindowsMediaPlayerControl);
  ~WindowsMediaPlayerControl() override;

  bool created() const { return members_ != nullptr; }
  ControlHost& host() { return host_; }

  bool visible() const override { return host_.visible(); }
  void setVisible(bool visible) override { host_.setVisible(visible); }
  void move(const Rect& pixels) override { host_.move(pixels); }

  std::string url() const override { return url_; }
  void setUrl(const std::string& url) override;

  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;

  MediaPlayState playState() const override;
  std::optional<double> currentMediaDuration() const override;

  void setVolume(int volume) override;
  void setMute(bool mute) override;
  void setEnableErrorDialogs(bool enable) override;
  void setInvokeUrls(bool invoke) override;
  void setEnableContextMenu(bool enable) override;
  bool fullScreen() const override;
  void setFullScreen(bool fullScreen) override;
  void clearErrorQueue() override;

 private:
  /// The parts of the control; all there or none.
  struct Members {
    ComPtr<IWMPPlayer> player;
    ComPtr<IWMPControls> controls;
    ComPtr<IWMPSettings> settings;
  };

  void setUp();
  void onEvent(DISPID event, const std::vector<Variant>& arguments);
  void stateChanged(MediaPlayState state);
  void failed();
  void seek(double seconds, bool open);
  /// Calls a member; false when it failed or there is no control. This object may be gone then: a
  /// control may run a message loop inside.
  bool attempt(const char* member, const std::function<HRESULT(const Members&)>& call) const;

  mutable ControlHost host_;  ///< knows that a call is under way
  std::shared_ptr<MemberFailures> failures_;
  std::shared_ptr<const Members> members_;
  bool seeksWhilePlaying_;
  std::string url_;
  MediaPlayState state_ = MediaPlayState::undefined;  ///< as notified last
  double startAt_ = 0;                                ///< seconds: where the next play begins
  bool playOrdered_ = false;  ///< since the source was set, the last stop or the last failure
  bool cannotPlay_ = false;   ///< it failed before anybody asked it to play
};

}  // namespace tessivo
