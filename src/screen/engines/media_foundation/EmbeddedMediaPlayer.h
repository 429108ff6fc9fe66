#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/Log.h"
#include "screen/MediaPlayerSlot.h"
#include "screen/engines/embedded/ClosingAttempts.h"
#include "screen/engines/embedded/EngineWindow.h"
#include "screen/engines/embedded/LastPicture.h"
#include "screen/engines/embedded/PictureWindow.h"
#include "screen/engines/media_foundation/MediaPresentation.h"

namespace tessivo {

/// Media Foundation in the Media Player slot. Each play opens the source afresh and each stop lets
/// it go, so that nothing is held while nothing plays; the slot's settings are remembered here and
/// given to every attempt.
class EmbeddedMediaPlayer final : public MediaPlayerSlot, private EngineWindow::Owner {
 public:
  /// `last`: shared with the other engine in that parent.
  EmbeddedMediaPlayer(HWND parent, Log& log,
                      std::shared_ptr<LastPicture> last = std::make_shared<LastPicture>());
  ~EmbeddedMediaPlayer() override;

  bool visible() const override { return window_.visible(); }
  void setVisible(bool visible) override {
    visible ? window_.setVisible(true) : last_->hide(window_);
  }
  void move(const Rect& pixels) override { window_.move(pixels); }

  std::string url() const override { return url_; }
  void setUrl(const std::string& url) override;

  void prepare(const std::string& url) override;
  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;

  MediaPlayState playState() const override { return state_; }
  std::optional<double> currentMediaDuration() const override { return duration_; }

  void setVolume(int volume) override;
  void setMute(bool mute) override;

  // There are no dialogs, scripts, menus, full screen or error queue to switch.
  void setEnableErrorDialogs(bool) override {}
  void setInvokeUrls(bool) override {}
  void setEnableContextMenu(bool) override {}
  bool fullScreen() const override { return false; }
  void setFullScreen(bool) override {}
  void clearErrorQueue() override {}

 private:
  struct Attempt {
    std::string url;
    std::shared_ptr<MediaPresentation> presentation;
    std::unique_ptr<PictureWindow> picture;
    std::optional<std::int32_t> failure = {};  ///< the reason, when it failed ahead
    std::optional<double> duration = {};
  };

  void onMouse(EngineWindow::Gesture gesture, MouseButton button, bool inside) override;
  void onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) override;
  void onResized() override;
  void onTimer(EngineWindow::Timer) override { last_->letGo(); }

  bool moves() const;
  void goToPosition();
  void open();
  std::optional<std::int32_t> takeFailure();
  Attempt begin(const std::string& url, double seconds, bool waits);
  void giveUpNext();
  void eventOfNext(EngineEvent event, std::int32_t value);
  void pictureArrived(WPARAM serial);
  void abandon();
  void forgetOrders();
  void started();
  void paused();
  void ended();
  void failed(std::int32_t reason);
  void release(MouseButton button, bool inside);
  void changeState(MediaPlayState state);
  void applyVolume();

  Log& log_;
  EngineWindow window_;
  std::string url_;
  int volume_ = 100;
  bool muted_ = false;
  MediaPlayState state_ = MediaPlayState::undefined;
  double position_ = 0;    ///< seconds: the place to start or to go on from while nothing moves
  double aim_ = 0;         ///< the position that the last start was ordered for, or of the pause
  bool starting_ = false;  ///< a start or a seek was ordered and has not been reported yet
  bool pauseOnStart_ = false;
  bool pauseOrdered_ = false;  ///< and not reported yet
  bool playOrdered_ = false;   ///< and not answered yet
  std::optional<double> duration_;
  std::optional<MouseButton> pressed_;
  WPARAM lastSerial_ = 0;
  WPARAM serial_ = 0;  ///< of the present attempt, or of none
  Attempt attempt_;
  Attempt next_;  ///< opened ahead
  ClosingAttempts closing_;
  std::shared_ptr<LastPicture> last_;
};

}  // namespace tessivo
