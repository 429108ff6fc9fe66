#include "saver/frmScrSaverPramSet.h"

#include <iomanip>
#include <sstream>

#include "saver/rpiAPI.h"

namespace tessivo {
namespace {

constexpr int kDelayRunMs = 200;
constexpr int kWinCheckMs = 300;
constexpr const char* kCaptionEnd = "213ScrSavPramSet";

/// In single precision, whose text has up to seven digits.
std::string secondsSinceMidnight(const Clock& clock) {
  constexpr float kMsPerSecond = 1000;
  constexpr int kDigits = 7;
  std::ostringstream text;
  text << std::setprecision(kDigits) << static_cast<float>(clock.now().msOfDay) / kMsPerSecond;
  return text.str();
}

}  // namespace

frmScrSaverPramSet::frmScrSaverPramSet(const PramSetServices& services, TwipsPerPixel twipsPerPixel)
    : Form("frmScrSaverPramSet", "", twipsPerPixel),
      timDelayRun(services.timers, "timDelayRun", kDelayRunMs),
      timScrSavPramWinCheck(services.timers, "timScrSavPramWinCheck", kWinCheckMs),
      services_(services) {
  setBoxes(false, false, false);
  setFrameStyle(0);  // a frame would be seen around nothing, too
  onResize.listen([this] { vanish(); });
  onClose.listen([this] { unload(); });
  timDelayRun.onTimer.listen([this] { openSettings(); });
  timScrSavPramWinCheck.onTimer.listen([this] { lookWhetherClosed(); });
  onUnload.listen([this] {
    timDelayRun.setEnabled(false);
    timScrSavPramWinCheck.setEnabled(false);
  });
}

frmScrSaverPramSet::~frmScrSaverPramSet() {
  unload();
}

void frmScrSaverPramSet::showOver(ui::Toolkit& toolkit, ui::Form& owner) {
  setOwner(&owner);
  setTopmost(owner.topmost());
  ownersTwips_ = owner.twipsPerPixel();
  load();
  toolkit.showModal(*this);
}

void frmScrSaverPramSet::load() {
  timDelayRun.setEnabled(true);
  setCaption(secondsSinceMidnight(services_.clock) + kCaptionEnd);
}

void frmScrSaverPramSet::vanish() {
  setBounds({left(), top(), 0, 0});
}

void frmScrSaverPramSet::openSettings() {
  timDelayRun.setEnabled(false);
  // By way of the pixels: on a monitor of another resolution the owner's twips are not its own.
  setWindowPos(
      {toPixels(lngFaceLeft_, ownersTwips_.x), toPixels(lngFaceTop_, ownersTwips_.y), 0, 0});
  const Rect placed = windowRect();
  strProcFilePath_ =
      services_.showAScrSavPrcPramConfigFace(strProcName_, placed.left, placed.top, caption());
  timScrSavPramWinCheck.setEnabled(true);
}

void frmScrSaverPramSet::lookWhetherClosed() {
  std::int32_t count = 0;
  rpiAPI::lngSearchProcess(services_.processes, strProcFilePath_, "", count);
  if (count > 0) return;
  timScrSavPramWinCheck.setEnabled(false);
  unload();
}

}  // namespace tessivo
