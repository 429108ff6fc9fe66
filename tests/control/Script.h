#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tessivo::test_control {

/// Plays the part of a RealPlayer control by itself, for tests of the real program. The environment
/// variable TESSIVO_TEST_CONTROL_SCRIPT says which part, when the control is made:
///
///   play [MS]    contacting at once, playing 100 ms after, a position each 200 ms, ended after
///                MS milliseconds (3000) of playing; pause, stop and position are obeyed. The
///                picture's window is there while it plays or is paused.
///   early-stop   contacting at once, stopped 300 ms after
///   error        contacting at once, the error message 200 ms after
///   fail         every call fails
///   silent       every call succeeds, nothing is ever told
///   stuck        plays for ever; once it has, it never comes back from being closed
///   throw        the call that plays throws a C++ exception through the interface
///   crash        contacting at once, an access violation in the control's message 300 ms after
///   crash-thread the same on a thread of the control's own
class Script {
 public:
  /// How often `tick` wants to be called.
  static constexpr std::uint32_t kTickMs = 50;

  /// What the script does to its control.
  class Stage {
   public:
    virtual void tellPlayState(std::int32_t oldState, std::int32_t newState) = 0;
    virtual void tellPosition(std::int32_t position, std::int32_t length) = 0;
    virtual void tellError() = 0;
    virtual void showPicture(bool shown) = 0;

   protected:
    ~Stage() = default;
  };

  /// Null when the environment names none.
  static std::unique_ptr<Script> fromEnvironment(Stage& stage);

  bool failsEveryCall() const { return part_ == "fail"; }
  bool neverCloses() const { return part_ == "stuck" && hasPlayed_; }
  bool hasPictureFromTheStart() const { return part_ != "play"; }
  bool isActive() const { return state_ != kStopped; }
  std::int32_t lengthMs() const { return part_ == "play" ? lengthMs_ : 0; }

  void play();
  void pause();
  void stop();
  void setPosition(std::int32_t position) { positionMs_ = position; }
  void tick();

 private:
  static constexpr std::int32_t kStopped = 0, kContacting = 1, kPlaying = 3, kPaused = 4;

  Script(Stage& stage, const std::string& text);
  void change(std::int32_t state);
  void tickWhilePlaying();

  Stage& stage_;
  std::string part_;
  std::int32_t lengthMs_ = 3000;
  std::int32_t state_ = kStopped;
  std::int32_t sincePlayMs_ = 0;
  std::int32_t positionMs_ = 0;
  bool hasPlayed_ = false;
};

}  // namespace tessivo::test_control
