// 图片欣赏.exe: the pictures of a folder.
#include <windows.h>

#include <memory>
#include <string>

#include "platform/win32/ProgramFolder.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Files.h"
#include "ssp/PictureSettings.h"
#include "ssp/frmPictureSettings.h"
#include "ssp/win32/PictureSaver.h"
#include "ssp/win32/SaverProgram.h"

namespace {

using namespace tessivo;
using namespace tessivo::ssp;

class PictureProgram final : public SaverProgram {
 public:
  std::string name() const override { return "图片欣赏"; }
  std::unique_ptr<Saver> start(SaverWindow& window, const std::string& settings,
                               TimerService& timers) const override {
    PictureSettings own = parsePictureSettings(settings);
    if (own.folder.empty()) own.folder = picturesFolder();
    return std::make_unique<PictureSaver>(window, own, clock_, timers);
  }
  std::unique_ptr<SettingsForm> makeForm(const std::string& settings, FileDialogs& dialogs,
                                         TwipsPerPixel twips) const override {
    return std::make_unique<frmPictureSettings>(parsePictureSettings(settings), picturesFolder(),
                                                files_, dialogs, twips);
  }

 private:
  Win32Clock clock_;
  Win32Files files_;
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  runSaverProgram(PictureProgram());
}
