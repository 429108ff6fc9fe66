#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/Log.h"
#include "screen/RealPlayerSlot.h"
#include "screen/engines/direct_show/GraphThread.h"
#include "screen/engines/embedded/ClosingAttempts.h"
#include "screen/engines/embedded/EngineWindow.h"
#include "screen/engines/embedded/LastPicture.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {

/// DirectShow in the RealPlayer slot. Each play opens the source afresh and each stop lets it go,
/// so that nothing is held while nothing plays.
///
/// The playback window takes a stop within 1500 ms of the play order for a file that cannot be
/// opened. This engine knows better (errorMessage says so), and holds the stop of a shorter item
/// back until kEarlyStopMs have passed, so that it counts as an end.
class EmbeddedRealPlayer final : public RealPlayerSlot, private EngineWindow::Owner {
 public:
  static constexpr ULONGLONG kEarlyStopMs = 1600;

  /// `last`: shared with the other engine in that parent.
  EmbeddedRealPlayer(HWND parent, Log& log,
                     std::shared_ptr<LastPicture> last = std::make_shared<LastPicture>());
  ~EmbeddedRealPlayer() override;

  bool visible() const override { return window_.visible(); }
  void setVisible(bool visible) override {
    visible ? window_.setVisible(true) : last_->hide(window_);
  }
  void move(const Rect& pixels) override { window_.move(pixels); }

  void setSource(const std::string& source) override;
  void prepare(const std::string& source) override;
  void play() override;
  void pause() override;
  void stop() override;
  bool canStop() const override { return state_ != RealPlayState::stopped; }
  std::int32_t lengthMs() const override { return lengthMs_; }
  void setPositionMs(std::int32_t position) override;
  void setVolume(std::int16_t volume) override;
  void setMute(bool mute) override;
  void setSetting(Setting, bool) override {}  // there is no such chrome to switch

 private:
  struct Attempt {
    std::string source;
    std::shared_ptr<GraphThread> graph;
    std::unique_ptr<PictureWindow> picture;
    std::optional<std::int32_t> failure = {};  ///< the reason, when it failed ahead
    std::int32_t lengthMs = 0;
  };

  void onMouse(EngineWindow::Gesture gesture, MouseButton button, bool inside) override;
  void onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) override;
  void onResized() override;
  void onTimer(EngineWindow::Timer timer) override;

  void open();
  std::optional<std::int32_t> takeFailure();
  Attempt begin(const std::string& source, std::int32_t startMs, bool waits);
  void giveUpNext();
  void eventOfNext(EngineEvent event, std::int32_t value);
  void pictureArrived(WPARAM serial);
  void abandon();
  void forgetOrders();
  void announce(RealPlayState newState);
  void started();
  void ended();
  void finish();
  void failed(std::int32_t reason);
  void changeState(RealPlayState state);
  void applyVolume();

  Log& log_;
  EngineWindow window_;
  std::string source_;
  int volume_ = 100;
  bool muted_ = false;
  RealPlayState state_ = RealPlayState::stopped;
  bool hasEnded_ = false;       ///< the medium is at its end, the stop is held back
  bool pauseOrdered_ = false;   ///< and not reported yet
  bool resumeOrdered_ = false;  ///< and not answered yet
  std::int32_t startMs_ = 0;
  std::int32_t lengthMs_ = 0;
  ULONGLONG playOrderedAt_ = 0;
  WPARAM lastSerial_ = 0;
  WPARAM serial_ = 0;  ///< of the present attempt, or of none
  Attempt attempt_;
  Attempt next_;  ///< opened ahead
  ClosingAttempts closing_;
  std::shared_ptr<LastPicture> last_;
};

}  // namespace tessivo
