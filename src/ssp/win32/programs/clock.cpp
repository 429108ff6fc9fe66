// 时钟.exe: the clock.
#include <windows.h>

#include <memory>
#include <string>

#include "platform/win32/Win32Clock.h"
#include "ssp/ClockSettings.h"
#include "ssp/frmClockSettings.h"
#include "ssp/win32/ClockSaver.h"
#include "ssp/win32/SaverProgram.h"

namespace {

using namespace tessivo;
using namespace tessivo::ssp;

class ClockProgram final : public SaverProgram {
 public:
  std::string name() const override { return "时钟"; }
  std::unique_ptr<Saver> start(SaverWindow& window, const std::string& settings,
                               TimerService& timers) const override {
    return std::make_unique<ClockSaver>(window, parseClockSettings(settings), clock_, timers);
  }
  std::unique_ptr<SettingsForm> makeForm(const std::string& settings, FileDialogs&,
                                         TwipsPerPixel twips) const override {
    return std::make_unique<frmClockSettings>(parseClockSettings(settings), twips);
  }

 private:
  Win32Clock clock_;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  runSaverProgram(ClockProgram());
}
