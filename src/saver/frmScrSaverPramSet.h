#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/Clock.h"
#include "platform/Processes.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the waiting window needs of the system and of the controller.
struct PramSetServices {
  TimerService& timers;
  const Clock& clock;
  const Processes& processes;
  /// Starts a program's own settings: name, place in pixels, title of the window that waits.
  /// Returns the path of its executable.
  std::function<std::string(const std::string&, std::int32_t, std::int32_t, const std::string&)>
      showAScrSavPrcPramConfigFace;
};

/// Stands in, as a dialog that nobody sees, for the settings of a screen-saver program, which are a
/// window of another process: it opens them and goes when the last process of that executable has
/// ended, so that its owner stays switched off as long. By its title, which no other window has,
/// the program finds the window to stay above. Alt+F4 ends the waiting, should the program never
/// end.
class frmScrSaverPramSet final : public ui::Form {
 public:
  frmScrSaverPramSet(const PramSetServices& services, TwipsPerPixel twipsPerPixel);
  ~frmScrSaverPramSet() override;

  // Set before the form is shown.
  /// The program whose settings are wanted: its name in the folder, without ".exe".
  void strProcName(const std::string& name) { strProcName_ = name; }
  /// Where the settings are to open, in twips of the owner's.
  void lngFaceLeft(std::int32_t twips) { lngFaceLeft_ = twips; }
  void lngFaceTop(std::int32_t twips) { lngFaceTop_ = twips; }

  /// Shows the program's settings over the owner and returns when they are closed.
  void showOver(ui::Toolkit& toolkit, ui::Form& owner);

  ui::Timer timDelayRun;
  ui::Timer timScrSavPramWinCheck;

 private:
  void load();
  void vanish();
  void openSettings();
  void lookWhetherClosed();

  PramSetServices services_;
  std::string strProcName_;
  std::string strProcFilePath_;
  std::int32_t lngFaceLeft_ = 0;
  std::int32_t lngFaceTop_ = 0;
  TwipsPerPixel ownersTwips_;
};

}  // namespace tessivo
