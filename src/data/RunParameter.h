#pragma once

#include <cstdint>
#include <string>

namespace tessivo {

/// What the settings dialog asks about playing and the screen saver, on its way to
/// `Controler::saveRunPram`.
struct RunParameter {
  bool boolPlayNextOnErr = false;       ///< go on with the next item after an error
  bool boolPopuMainFaceForErr = false;  ///< bring the control panel up at an error
  bool boolSavePlayList = false;        ///< keep the playlist over the program's end
  bool boolScreenSaver = false;         ///< start a screen-saver program when the user is idle
  std::int32_t lngSSDelayMinute = 0;    ///< minutes without input before that
  std::string strScrSavProcName;        ///< the screen-saver program's name, without ".exe"
};

}  // namespace tessivo
