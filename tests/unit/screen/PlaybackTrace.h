#pragma once

#include "unit/screen/ScreenFixture.h"

namespace tessivo {

/// A playback window whose trace has its states too: "=4" stands for lngState becoming 4.
class PlaybackTraceTest : public ScreenFixture {
 protected:
  void SetUp() override {
    // Ahead of the fixture's own listeners, so that the trace has the state an event is raised in.
    screen.PlayErr.listen([this](const std::string&) { noteState(); });
    screen.PlayOver.listen([this] { noteState(); });
    ScreenFixture::SetUp();
    files.existing = {"a", "b"};
  }

  void useRule(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    screen.strFilePath("a");
    trace.take();
  }
  void play() {
    ASSERT_TRUE(screen.play());
    noteState();
  }
  void pass(std::uint64_t ms) {
    for (std::uint64_t i = 0; i < ms; ++i) {
      time.advance(1);
      noteState();
    }
  }
  void currentPlays() {
    screen.playback().mediaPlayerIsCurrent() ? wmp().notify(MediaPlayState::playing)
                                             : real().notify(RealPlayState::playing);
    noteState();
  }
  void currentFails() { fails(screen.playback().mediaPlayerIsCurrent()); }
  void otherFails() { fails(!screen.playback().mediaPlayerIsCurrent()); }
  void realStops() {
    real().notify(RealPlayState::stopped);
    noteState();
  }
  void noteState() {
    if (std::exchange(state_, screen.lngState()) != screen.lngState()) {
      trace.add("=" + std::to_string(state_));
    }
  }

 private:
  void fails(bool mediaPlayer) {
    mediaPlayer ? wmp().mediaError.raise() : real().errorMessage.raise();
    noteState();
  }

  std::int32_t state_ = playState::kStopped;
};

}  // namespace tessivo
