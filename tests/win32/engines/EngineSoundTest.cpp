// Plays a tone as tests/sound/run-sound.sh says, which listens meanwhile.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
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

  /// The same orders for both engines; `playing` says whether the engine has reported that it
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
};

TEST_F(EngineSoundOnDesktop, PlaysAsTheScriptSays) {
  const std::string state = ordered("TESSIVO_TEST_SOUND");
  bool playing = false;
  if (ordered("TESSIVO_TEST_ENGINE") == "media_foundation") {
    EmbeddedMediaPlayer engine(stage, log);
    engine.playStateChange.listen(
        [&](MediaPlayState now) { playing = now == MediaPlayState::playing; });
    engine.setUrl(media("tone.wav"));
    play(engine, playing, state);
  } else {
    EmbeddedRealPlayer engine(stage, log);
    engine.playStateChange.listen(
        [&](RealPlayState, RealPlayState now) { playing = now == RealPlayState::playing; });
    engine.setSource(media("tone.wav"));
    play(engine, playing, state);
  }
}

}  // namespace
}  // namespace tessivo
