// Plays a tone as tests/sound/run-sound.sh says, which listens meanwhile.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"
#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

class EngineSoundOnDesktop : public EngineStage {
 protected:
  static std::string ordered(const char* variable) {
    const char* value = std::getenv(variable);
    if (value == nullptr) ADD_FAILURE() << variable << " is not set; run run-sound.sh";
    return value == nullptr ? "" : value;
  }

  /// The same orders for all engines; `playing` says whether the engine has reported that it
  /// plays.
  template <typename Engine>
  void play(Engine& engine, const bool& playing, const std::string& state) {
    engine.setVolume(state == "half" ? 50 : 100);
    engine.setMute(state == "muted" || state == "unmuted");
    engine.play();
    ASSERT_TRUE(waitFor([&] { return playing; }));
    watch(500);
    if (state == "muted-later") engine.setMute(true);
    if (state == "unmuted") engine.setMute(false);
    if (state == "paused") engine.pause();
    watch(300);
    std::ofstream(ordered("TESSIVO_TEST_READY")) << "ready";
    watch(3000);
  }

  template <typename MediaPlayer>
  void playInMediaPlayer(const std::string& state) {
    bool playing = false;
    MediaPlayer engine(stage, log);
    engine.playStateChange.listen(
        [&](MediaPlayState now) { playing = now == MediaPlayState::playing; });
    engine.setUrl(media("tone.wav"));
    play(engine, playing, state);
  }
  void playInRealPlayer(const std::string& state) {
    bool playing = false;
    EmbeddedRealPlayer engine(stage, log);
    engine.playStateChange.listen(
        [&](RealPlayState, RealPlayState now) { playing = now == RealPlayState::playing; });
    engine.setSource(media("tone.wav"));
    play(engine, playing, state);
  }
};

TEST_F(EngineSoundOnDesktop, PlaysAsTheScriptSays) {
  const std::string state = ordered("TESSIVO_TEST_SOUND");
  const std::string engine = ordered("TESSIVO_TEST_ENGINE");
  if (engine == "media_foundation") {
    playInMediaPlayer<EmbeddedMediaPlayer>(state);
  } else if (engine == "windows_media_player") {
    playInMediaPlayer<WindowsMediaPlayerControl>(state);
  } else {
    ASSERT_EQ(engine, "direct_show");
    playInRealPlayer(state);
  }
}

}  // namespace
}  // namespace tessivo
