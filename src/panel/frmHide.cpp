#include "panel/frmHide.h"

#include <utility>

#include "app/Request.h"
#include "panel/HelpPage.h"
#include "panel/frmAbout.h"
#include "prereq/CheckOSVersion.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

constexpr int kGuardMs = 300;
constexpr int kNextTurnMs = 1;

// Mouse messages, which the icon's notifications carry.
constexpr std::int32_t kLeftDoubleClick = 515;
constexpr std::int32_t kRightDown = 516;

// The icon's record.
constexpr std::uint32_t kIconIdentifier = 123;
constexpr std::uint32_t kMessageIconTipAndInfo = 23;
constexpr std::uint32_t kMouseMove = 512;
constexpr std::uint32_t kInfoTimeoutMs = 10000;
constexpr std::uint32_t kInformation = 1;
constexpr const char* kTitle = "Tessivo 泰思维";
constexpr const char* kInfo =
    "用鼠标左键双击显示控制面板\r\n"
    "用鼠标右键单击显示系统菜单";

}  // namespace

frmHide::frmHide(const TrayServices& services, TwipsPerPixel twipsPerPixel, Controler& controler,
                 RequestReceiver& requests)
    : Form("frmHide", "", twipsPerPixel),
      picTrayIco_XP(this, "picTrayIco_XP"),
      picTrayIco_2000(this, "picTrayIco_2000"),
      mnuTrayMenu("mnuTrayMenu", ""),
      mnuShowMainFace(mnuTrayMenu.add("mnuShowMainFace", "显示控制面板(&S)")),
      mnuLine1(mnuTrayMenu.addSeparator("mnuLine1")),
      mnuConfig(mnuTrayMenu.add("mnuConfig", "设置(&O)...")),
      mnuLine2(mnuTrayMenu.addSeparator("mnuLine2")),
      mnuAbout(mnuTrayMenu.add("mnuAbout", "关于泰思维(&A)...")),
      mnuFAQ(mnuTrayMenu.add("mnuFAQ", "使用说明(&H)")),
      mnuLine3(mnuTrayMenu.addSeparator("mnuLine3")),
      mnuExit(mnuTrayMenu.add("mnuExit", "退出(&X)")),
      timDelayCallWinProc(services.timers, "timDelayCallWinProc", kGuardMs),
      timDelayActivate(services.timers, "timDelayActivate", kNextTurnMs),
      services_(services),
      controler_(controler),
      requests_(requests) {
  // The corner of the primary monitor: the tray's dialogs come up there, above the show.
  setBounds({0, 0, 3000, 2000});
  setTopmost(true);
  picTrayIco_XP.setIcon(icon::kTray);
  picTrayIco_2000.setIcon(icon::kTrayOfOldWindows);
  mnuShowMainFace.setDefault(true);
  listenToMenu();
  timDelayCallWinProc.onTimer.listen([this] { timDelayCallWinProc.setEnabled(false); });
  onMouseMove.listen([this](const ui::MouseEvent& event) {
    takeNotification(toPixels(event.x, this->twipsPerPixel().x));
  });
  // Not while the system is still about to activate this one.
  onActivate.listen([this] { timDelayActivate.setEnabled(!enabled() || presented_ == 0); });
  timDelayActivate.onTimer.listen([this] {
    timDelayActivate.setEnabled(false);
    handForegroundOn();
  });
  onClose.listen([this] { controler_.exitSys(); });
  onEndSession.listen([this] { controler_.exitSys(); });
  onUnload.listen([this] {
    if (std::exchange(loaded_, false)) services_.icons.remove(record());
    removeHiddenWinProc();
    timDelayCallWinProc.setEnabled(false);
    timDelayActivate.setEnabled(false);
  });
}

frmHide::~frmHide() {
  unload();
}

void frmHide::load() {
  services_.toolkit.open(*this);
  services_.winProc.installHiddenWinProc(nativeHandle(), *this);
  loaded_ = listening_ = true;
  services_.icons.add(record());
  setCaption(request::kWindowTitle);
}

void frmHide::resetTray() {
  services_.icons.remove(record());
  services_.icons.add(record());
}

void frmHide::removeHiddenWinProc() {
  listening_ = false;
  services_.winProc.removeHiddenWinProc();
}

void frmHide::copyData(std::uintptr_t number, std::span<const std::uint8_t> bytes) {
  requests_.take(number, bytes, timDelayCallWinProc);
}

void frmHide::listenToMenu() {
  mnuShowMainFace.onClick.listen([this] { controler_.showMainFace(); });
  mnuConfig.onClick.listen([this] { controler_.showConfigFace(); });
  mnuAbout.onClick.listen([this] { showAbout(); });
  mnuFAQ.onClick.listen([this] { openHelp(); });
  mnuExit.onClick.listen([this] { askToExit(); });
}

void frmHide::takeNotification(std::int32_t code) {
  if (!listening_) return;
  if (code == kLeftDoubleClick) {
    controler_.showMainFace();
  } else if (code == kRightDown) {
    openMenu();
  }
}

/// A second instance brings this window to the foreground; the user is to see the panel there, or
/// the dialog that is up.
void frmHide::handForegroundOn() {
  if (!enabled()) return activate();
  if (presented_ == 0) controler_.activateMainFace();
}

void frmHide::openMenu() {
  present([this] {
    activate();  // else the menu would stay when the user clicks elsewhere
    popupMenu(mnuTrayMenu);
  });
}

void frmHide::openHelp() {
  present([this] { openHelpPage(services_.shell, services_.toolkit, *this, services_.helpPage); });
}

void frmHide::showAbout() {
  present([this] {
    frmAbout about(services_.shell, twipsPerPixel());
    about.showOver(services_.toolkit, *this);
  });
}

void frmHide::askToExit() {
  present([this] { services_.exitQuestion.ask(*this); });
}

void frmHide::present(const std::function<void()>& menuOrDialog) {
  // A dialog switches its owner off.
  if (!enabled()) return activate();
  struct Presented {
    explicit Presented(int& count) : count_(++count) {}
    ~Presented() { --count_; }
    int& count_;
  };
  const Presented presented(presented_);
  menuOrDialog();
}

TrayIconRecord frmHide::record() const {
  TrayIconRecord record;
  record.window = nativeHandle();
  record.identifier = kIconIdentifier;
  record.flags = kMessageIconTipAndInfo;
  record.callbackMessage = kMouseMove;
  record.icon = picture().icon();
  record.tip = kTitle;
  record.info = kInfo;
  record.timeoutMs = kInfoTimeoutMs;
  record.infoTitle = kTitle;
  record.infoFlags = kInformation;
  return record;
}

/// Windows before XP draws neither many colours nor soft edges there.
const ui::PictureBox& frmHide::picture() const {
  std::string name;
  std::int32_t flag = 0;
  CheckOSVersion(services_.osVersion).getOSVersion(name, flag);
  switch (flag) {
    case osVersionFlag::kWin32s:
    case osVersionFlag::kWindows95:
    case osVersionFlag::kWindows98:
    case osVersionFlag::kWindowsMe:
    case osVersionFlag::kNt351:
    case osVersionFlag::kNt4:
    case osVersionFlag::kWindows2000:
      return picTrayIco_2000;
    default:
      return picTrayIco_XP;
  }
}

}  // namespace tessivo
