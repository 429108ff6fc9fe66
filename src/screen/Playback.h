#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Signal.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/TimerService.h"
#include "screen/MediaPlayerSlot.h"
#include "screen/NoEngines.h"
#include "screen/PlayRule.h"
#include "screen/RealPlayerSlot.h"
#include "ui/Timer.h"

namespace tessivo {

/// The play state of the playback window and its two engines: starts one by the play rule, falls
/// back to the other, and turns their notifications into progress, end and error. It has no window:
/// the playback window (`frmScreen`) owns the one instance and forwards to it.
///
/// Rule of the game: no engine is started and no failure handled from inside a notification or the
/// call that caused it. Each hop is a one-shot 1 ms timer, that is, it happens on the next turn of
/// the message loop. The end of a file alone is handled inside its notification.
class Playback {
 public:
  Playback(TimerService& timers, const Files& files, Log& log);
  Playback(const Playback&) = delete;
  Playback& operator=(const Playback&) = delete;

  /// Before anything else; both outlive the Playback or are taken away by `detach`.
  void attach(MediaPlayerSlot& wmpPlayer, RealPlayerSlot& realPlayer);
  void detach();

  std::int32_t lngState() const { return state_; }

  std::int32_t lngPlayRuler() const { return rule_; }
  /// Stops what plays and shows the rule's first engine.
  void lngPlayRuler(std::int32_t rule);

  /// The Media Player slot's URL.
  std::string strFilePath() const;
  /// Hands the path (without the double quotes around it) to both engines and starts neither.
  void strFilePath(const std::string& path);

  /// What will be played when the present item has ended, or nothing: the engine that will have it
  /// first may open it ahead, and where that one cannot, the one that will have it then. A stop
  /// that the user wants, another rule, a failure and the empty path forget it.
  void prepareNext(const std::string& path);

  /// An engine that has neither played nor failed so long after it was told to play has failed: a
  /// file on a share that stalls must not hold up the show for ever.
  static constexpr int kNoAnswerMs = 30000;

  /// False: nothing to play (an error event follows 1 ms later), or playing or starting already.
  bool play();
  void pause();
  /// Nothing while stopped or starting.
  void stopPlay();

  std::int16_t intVolume() const { return volume_; }
  void intVolume(std::int16_t volume);
  bool boolMute() const { return mute_; }
  void boolMute(bool mute);

  /// Seconds. Nothing when the position does not fit 16 bits: the call fails.
  std::optional<std::int32_t> lngJinDu();
  /// Seconds. False when the value in milliseconds does not fit 32 bits: the call fails, the
  /// Media Player slot has been moved and the RealPlayer slot has not.
  bool lngJinDu(std::int32_t seconds);
  /// Length of the loaded file in seconds, 0 when it is not known.
  std::int32_t lngFileLength() const;

  bool mediaPlayerIsCurrent() const { return current_ == Engine::mediaPlayer; }

  /// Percent, position (s), its text, length (s), its text.
  Signal<std::int32_t, std::int32_t, std::string, std::int32_t, std::string> JinDu;
  Signal<std::string> PlayErr;
  Signal<> PlayOver;
  /// The reset step: whoever shows a position shows 0 now.
  Signal<> positionCleared;
  /// An engine reports that it is playing.
  Signal<> playing;

  ui::Timer timMediaPlayDelay;       ///< start Windows Media Player
  ui::Timer timRealPlayDelay;        ///< start RealPlayer
  ui::Timer timMediaErrDelay;        ///< handle a failure of Windows Media Player
  ui::Timer timRealErrDelay;         ///< handle a failure of RealPlayer
  ui::Timer timErrDelay;             ///< raise `PlayErr` with the text in its tag
  ui::Timer timRealPopuWinErrCheck;  ///< enabled for 1.5 s after RealPlayer was told to play
  ui::Timer timNoAnswer;             ///< enabled for kNoAnswerMs after an engine was told to play
  ui::Timer timMediaPlayJinDu;       ///< Windows Media Player's progress, while it plays

 private:
  enum class Engine { realPlayer = 1, mediaPlayer = 2 };

  void listenToTimers();
  void listenToEngines();
  /// Whether there are engines. They may go during any call of theirs.
  bool attached() const { return wmpPlayer_ != &noMediaPlayer_; }
  /// Not after the engines have gone.
  void startTimer(ui::Timer& timer) { timer.setEnabled(attached()); }
  void reset();
  void lightReset();
  void stopMediaPlayer();
  void stopRealPlayer();
  void cancelHops();
  void clearState();
  void show(Engine engine);
  void showFirstEngineOfRule();
  bool fileExists(const std::string& path) const;
  std::string currentName() const { return mediaPlayerIsCurrent() ? "Media Player" : "RealPlayer"; }
  void failLater(const char* message);
  void giveUp(const char* message);
  void notePlaying();

  void startMediaPlayer();
  void startRealPlayer();
  void handleMediaError();
  void handleRealError();
  void prepareOther(Engine failed);
  void awaitAnswer();
  void handleNoAnswer();
  void mediaStateChanged(MediaPlayState state);
  void realStateChanged(RealPlayState before, RealPlayState now);
  bool isOfThisItem(RealPlayState stoppedFrom, bool expected) const;
  void reportMediaProgress();
  void reportRealProgress(std::int32_t positionMs, std::int32_t lengthMs);

  const Files& files_;
  Log& log_;
  NoMediaPlayer noMediaPlayer_;
  NoRealPlayer noRealPlayer_;
  MediaPlayerSlot* wmpPlayer_ = &noMediaPlayer_;
  RealPlayerSlot* realPlayer_ = &noRealPlayer_;
  std::vector<Connection> connections_;

  std::int32_t state_ = playState::kStopped;
  std::int32_t rule_ = playRule::kRealOnly;
  Engine current_ = Engine::realPlayer;
  std::int16_t volume_ = 30;
  bool mute_ = false;
  std::int32_t position_ = 0;  ///< last known or requested, seconds
  bool stopExpected_ = false;  ///< the program itself stops RealPlayer
  std::string prepared_;
  std::string firstCannot_;   ///< the prepared path that the rule's first engine cannot open
  bool seekOnStart_ = false;  ///< RealPlayer is sent to `position_` when it reaches playing
  std::int32_t lastRealSecond_ = 0;
};

}  // namespace tessivo
