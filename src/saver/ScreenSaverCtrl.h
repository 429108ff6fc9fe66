#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "platform/Files.h"
#include "platform/Log.h"
#include "platform/Processes.h"
#include "saver/MouseKeyboardCheck.h"

namespace tessivo {

/// What a `ScreenSaverCtrl` does now.
namespace saverState {
inline constexpr std::int32_t unenabled_saver = 1;  ///< off
inline constexpr std::int32_t waitting_saver = 2;   ///< waits for the user to be idle
inline constexpr std::int32_t open_saver = 3;       ///< program started; waits for the user
}  // namespace saverState

/// The playback window, which a screen-saver program covers.
struct PlayWindow {
  bool boolMaxSize = false;
  std::string caption;
};

/// What the screen-saver controller needs of the system.
struct SaverServices {
  const IdleInput& input;
  MTimer& timers;
  Processes& processes;
  const Files& files;
  Log& log;
  std::string applicationFolder;
};

/// Runs a screen-saver program, an executable of its own in a folder of such, over the picture when
/// the user has been idle for some minutes; previews one; opens one's own settings. The program
/// ends itself when the user comes back: nobody here stops it, nor looks whether one runs already.
/// A program that cannot be started is a line in the log and nothing else; so is a stored name that
/// leads out of the folder.
class ScreenSaverCtrl {
 public:
  /// `playWindow` answers at any time.
  ScreenSaverCtrl(const SaverServices& services, std::function<PlayWindow()> playWindow);
  ScreenSaverCtrl(const ScreenSaverCtrl&) = delete;
  ScreenSaverCtrl& operator=(const ScreenSaverCtrl&) = delete;

  const std::string& strScrSavPrcsFolderPath() const { return strScrSavPrcsFolderPath_; }
  void strScrSavPrcsFolderPath(const std::string& path) { strScrSavPrcsFolderPath_ = path; }
  /// The chosen program's file name without ".exe".
  const std::string& strScreenSaverProcName() const { return strScreenSaverProcName_; }
  void strScreenSaverProcName(const std::string& name) { strScreenSaverProcName_ = name; }
  /// One of `saverState`; 0 until it is set for the first time. Other values are stored and mean
  /// nothing. Setting `open_saver` starts the program at once.
  std::int32_t lngWorkState() const { return lngWorkState_; }
  void lngWorkState(std::int32_t state);
  /// Minutes without input before the program starts. See `MouseKeyboardCheck::lngFreeMinute` for
  /// what happens after 0 or less.
  std::int32_t lngDelayMinute() const { return lngDelayMinute_; }
  void lngDelayMinute(std::int32_t minutes);
  /// The rectangle that a program is to cover, in pixels of the virtual screen.
  void SetPlayArea(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    playArea_ = {left, top, width, height};
  }

  /// Starts a program to be looked at, whatever the state is.
  void previewAScrSavProcByName(const std::string& name);
  /// Starts a program so that it shows its own settings at the place, in pixels, and returns the
  /// path of its executable, whether it could be started or not. `ownerCaption` is the title of the
  /// window that waits for it.
  std::string showAScrSavPrcPramConfigFace(const std::string& name, std::int32_t x, std::int32_t y,
                                           const std::string& ownerCaption);
  /// Looks anew which programs the folder holds. Linear in its files.
  void getScrSaverProcNameList();
  /// How many programs were found.
  std::int32_t lngGetScrSavPrcNameLstItmCount() const {
    return static_cast<std::int32_t>(names_.size()) - 1;
  }
  /// A program's name, counted from 1; empty for other numbers.
  std::string strGetScrSavPrcNameByIndex(std::int32_t index) const;

 private:
  void apply();
  void m_objMKC_UserIsActive();
  void m_objMKC_ComputerIsIdle();
  std::string programFile(const std::string& name) const;
  void startNamed(const std::string& name, const std::string& arguments, WindowStyle style);
  std::string runArguments() const;
  void start(const std::string& program, const std::string& arguments, WindowStyle style);

  SaverServices services_;
  std::function<PlayWindow()> playWindow_;
  std::string strScrSavPrcsFolderPath_;
  std::string strScreenSaverProcName_;
  std::int32_t lngWorkState_ = 0;
  std::int32_t lngDelayMinute_ = 5;
  Rect playArea_;
  std::vector<std::string> names_{""};  ///< from index 1 on
  MouseKeyboardCheck m_objMKC_;
};

}  // namespace tessivo
