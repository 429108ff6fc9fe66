#pragma once

#include <functional>
#include <memory>
#include <set>

#include "screen/EngineFactory.h"
#include "walk/World.h"

namespace tessivo::walk {

/// How the engines of one life of the program behave.
struct EngineMood {
  int failPercent = 10;     ///< of the attempts: an error, at once or later
  int silentPercent = 2;    ///< neither plays nor fails, or only when nobody waits any more
  int earlyEndPercent = 3;  ///< RealPlayer alone: stops right after it was told to play
  int shortestHalfSeconds = 1;
  bool throws = false;  ///< members fail by an exception now and then
  /// RealPlayer lets messages through while it is handed a source or told to play.
  std::function<void()> letsMessagesThrough;
  std::uint64_t failures = 0;  ///< that an engine has told
};

/// Things that will happen once, later, unless they are forgotten before.
class Later {
 public:
  explicit Later(World& world) : world_(world) {}
  ~Later() { forget(); }
  Later(const Later&) = delete;
  Later& operator=(const Later&) = delete;
  void after(int ms, std::function<void()> act);
  void forget();

 private:
  World& world_;
  std::set<TimerService::Id> waiting_;
};

/// A Media Player slot that plays: files have a length, take time to begin and end by themselves.
class WalkMediaPlayer : public MediaPlayerSlot {
 public:
  WalkMediaPlayer(World& world, EngineMood& mood) : world_(world), mood_(mood) {}

  bool visible() const override { return visible_; }
  void setVisible(bool visible) override { visible_ = visible; }
  void move(const Rect&) override {}
  std::string url() const override { return url_; }
  void setUrl(const std::string& url) override;
  void prepare(const std::string& url) override { prepared = url; }
  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;
  MediaPlayState playState() const override { return state_; }
  std::optional<double> currentMediaDuration() const override { return duration_; }
  void setVolume(int value) override { volume = value; }
  void setMute(bool on) override { mute = on; }
  void setEnableErrorDialogs(bool) override {}
  void setInvokeUrls(bool) override {}
  void setEnableContextMenu(bool) override {}
  bool fullScreen() const override { return full; }
  void setFullScreen(bool on) override { full = on; }
  void clearErrorQueue() override {}

  bool plays() const { return state_ == MediaPlayState::playing; }
  bool isTrying() const { return trying_; }
  /// A notification that nothing led to.
  void raiseWildly(MediaPlayState state) { playStateChange.raise(state); }

  int volume = -1;
  bool mute = false;
  bool full = false;
  std::string prepared;

 private:
  void giveUp();
  void begin();
  void failNow();
  void scheduleEnd();

  World& world_;
  EngineMood& mood_;
  bool visible_ = true;
  std::string url_;
  MediaPlayState state_ = MediaPlayState::undefined;
  bool trying_ = false;
  double position_ = 0;
  std::uint64_t since_ = 0;
  std::optional<double> duration_;
  Later attempt_{world_};  ///< what becomes of the present attempt
  Later end_{world_};
  Later notices_{world_};
};

/// The same for the RealPlayer slot.
class WalkRealPlayer : public RealPlayerSlot {
 public:
  WalkRealPlayer(World& world, EngineMood& mood) : world_(world), mood_(mood) {}

  bool visible() const override { return visible_; }
  void setVisible(bool visible) override { visible_ = visible; }
  void move(const Rect&) override {}
  void setSource(const std::string& source) override;
  void prepare(const std::string& source) override { prepared = source; }
  void play() override;
  void pause() override;
  void stop() override;
  bool canStop() const override { return active_; }
  std::int32_t lengthMs() const override { return lengthMs_; }
  void setPositionMs(std::int32_t position) override;
  void setVolume(std::int16_t value) override { volume = value; }
  void setMute(bool on) override { mute = on; }
  void setSetting(Setting, bool) override {}

  bool plays() const { return state_ == RealPlayState::playing; }
  std::int32_t positionMs() const;
  bool isTrying() const { return active_ && state_ != RealPlayState::playing; }
  const std::string& source() const { return source_; }
  void raiseWildly(RealPlayState before, RealPlayState now) { playStateChange.raise(before, now); }

  int volume = -1;
  bool mute = false;
  std::string prepared;

 private:
  void become(RealPlayState state);
  void begin();
  void failNow();
  void endNow();
  void tick();
  void payOwedStop();

  World& world_;
  EngineMood& mood_;
  bool visible_ = true;
  std::string source_;
  RealPlayState state_ = RealPlayState::stopped;
  bool active_ = false;
  std::int32_t position_ = 0;
  std::uint64_t since_ = 0;
  std::int32_t lengthMs_ = 0;
  std::uint64_t toldToPlay_ = 0;
  std::optional<RealPlayState> owedStop_;  ///< a stop that is not yet told: what it stopped from
  Later attempt_{world_};
  Later end_{world_};
  Later notices_{world_};
};

class WalkEngineFactory : public EngineFactory {
 public:
  WalkEngineFactory(World& world, EngineMood& mood) : world_(world), mood_(mood) {}
  std::unique_ptr<MediaPlayerSlot> createMediaPlayer(WindowHandle) override {
    auto player = std::make_unique<WalkMediaPlayer>(world_, mood_);
    wmp = player.get();
    return player;
  }
  std::unique_ptr<RealPlayerSlot> createRealPlayer(WindowHandle) override {
    auto player = std::make_unique<WalkRealPlayer>(world_, mood_);
    real = player.get();
    return player;
  }

  WalkMediaPlayer* wmp = nullptr;
  WalkRealPlayer* real = nullptr;

 private:
  World& world_;
  EngineMood& mood_;
};

}  // namespace tessivo::walk
