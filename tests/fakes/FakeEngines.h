#pragma once

#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include "fakes/Trace.h"
#include "screen/EngineFactory.h"

namespace tessivo {

inline std::string plain(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

/// The Media Player slot of a test: notes its calls, notifies when told to.
class FakeMediaPlayer : public MediaPlayerSlot {
 public:
  explicit FakeMediaPlayer(Trace& trace) : trace_(trace) {}

  bool visible() const override { return visible_; }
  void setVisible(bool visible) override {
    visible_ = visible;
    note(visible ? "show" : "hide");
  }
  void move(const Rect& pixels) override {
    area = pixels;
    note("move");
  }
  std::string url() const override { return url_; }
  void setUrl(const std::string& url) override {
    url_ = url;
    position = 0;
    note("url " + url);
    called();
  }
  void prepare(const std::string& url) override { prepared = url; }
  void play() override {
    note("play");
    called();
  }
  void pause() override { note("pause"); }
  void stop() override {
    note("stop");
    called();
  }
  double currentPosition() const override { return position; }
  void setCurrentPosition(double seconds) override {
    position = seconds;
    note("position " + plain(seconds));
    called();
  }
  MediaPlayState playState() const override { return state; }
  std::optional<double> currentMediaDuration() const override { return duration; }
  void setVolume(int volume) override {
    note("volume " + plain(volume));
    called();
  }
  void setMute(bool mute) override {
    note(mute ? "mute" : "sound");
    called();
  }
  void setEnableErrorDialogs(bool on) override { note(on ? "dialogs" : "no dialogs"); }
  void setInvokeUrls(bool on) override { note(on ? "urls" : "no urls"); }
  void setEnableContextMenu(bool on) override { note(on ? "menu" : "no menu"); }
  bool fullScreen() const override { return full; }
  void setFullScreen(bool on) override {
    full = on;
    note(on ? "full screen" : "no full screen");
  }
  void clearErrorQueue() override {
    note("clear errors");
    called();
  }

  void notify(MediaPlayState now) {
    state = now;
    playStateChange.raise(now);
  }

  MediaPlayState state = MediaPlayState::undefined;
  double position = 0;
  std::string prepared;
  bool full = false;  ///< its own full screen
  std::optional<double> duration;
  Rect area;
  std::function<void()> whenCalled;  ///< runs inside what a control may let messages through in

 private:
  void called() const {
    if (const auto act = whenCalled) act();  // perhaps the engine's end
  }
  void note(const std::string& step) { trace_.add("wmp " + step); }

  Trace& trace_;
  bool visible_ = true;
  std::string url_;
};

/// The RealPlayer slot of a test.
class FakeRealPlayer : public RealPlayerSlot {
 public:
  explicit FakeRealPlayer(Trace& trace) : trace_(trace) {}
  ~FakeRealPlayer() override { note("gone"); }

  bool visible() const override { return visible_; }
  void setVisible(bool visible) override {
    visible_ = visible;
    note(visible ? "show" : "hide");
  }
  void move(const Rect& pixels) override {
    area = pixels;
    note("move");
  }
  void setSource(const std::string& source) override {
    note("source " + source);
    if (const auto act = whenSourced) act();  // perhaps the engine's end
  }
  void prepare(const std::string& source) override { prepared = source; }
  void play() override {
    note("play");
    if (whenPlayed) whenPlayed();
  }
  void pause() override { note("pause"); }
  void stop() override { note("stop"); }
  bool canStop() const override { return active; }
  std::int32_t lengthMs() const override { return length; }
  void setPositionMs(std::int32_t position) override { note("position " + plain(position)); }
  void setVolume(std::int16_t volume) override { note("volume " + plain(volume)); }
  void setMute(bool mute) override { note(mute ? "mute" : "sound"); }
  void setSetting(Setting setting, bool value) override {
    note(std::to_string(static_cast<int>(setting)) + (value ? " on" : " off"));
  }

  void notify(RealPlayState now) {
    active = now != RealPlayState::stopped;
    playStateChange.raise(std::exchange(state_, now), now);
  }

  bool active = false;
  std::int32_t length = 0;
  std::string prepared;
  Rect area;
  std::function<void()> whenPlayed;   ///< runs inside `play`
  std::function<void()> whenSourced;  ///< runs inside `setSource`

 private:
  void note(const std::string& step) { trace_.add("real " + step); }

  Trace& trace_;
  bool visible_ = true;
  RealPlayState state_ = RealPlayState::stopped;
};

class FakeEngineFactory : public EngineFactory {
 public:
  explicit FakeEngineFactory(Trace& trace) : trace_(trace) {}
  std::unique_ptr<MediaPlayerSlot> createMediaPlayer(WindowHandle) override {
    auto player = std::make_unique<FakeMediaPlayer>(trace_);
    wmp = player.get();
    return player;
  }
  std::unique_ptr<RealPlayerSlot> createRealPlayer(WindowHandle) override {
    auto player = std::make_unique<FakeRealPlayer>(trace_);
    real = player.get();
    return player;
  }

  FakeMediaPlayer* wmp = nullptr;
  FakeRealPlayer* real = nullptr;

 private:
  Trace& trace_;
};

}  // namespace tessivo
