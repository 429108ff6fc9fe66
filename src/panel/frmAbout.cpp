#include "panel/frmAbout.h"

#include "base/Version.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

constexpr const char* kHomePage = "http://www.tessivo.example/";
constexpr const char* kEmail = "support@tessivo.example";
constexpr ui::Colour kLinkColour = 0x0A58CA;
constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kEscape = 27;

// Twips.
constexpr std::int32_t kMargin = 300;
constexpr std::int32_t kPicture = 720;
constexpr std::int32_t kGap = 270;
constexpr std::int32_t kLine = 285;
constexpr std::int32_t kCaptionWidth = 1050;
constexpr std::int32_t kTextWidth = 4050;
constexpr std::int32_t kButtonWidth = 1260;
constexpr std::int32_t kButtonHeight = 405;
constexpr int kLines = 5;

}  // namespace

frmAbout::frmAbout(Shell& shell, TwipsPerPixel twipsPerPixel)
    : Form("frmAbout", "关于泰思维", twipsPerPixel),
      picIco(this, "picIco"),
      Label1(this, "Label1", "Tessivo 泰思维"),
      Label2(this, "Label2", std::string("版本 ") + kVersion),
      Label3(this, "Label3", "在指定屏幕上自动播放视频和音频列表。"),
      Label4(this, "Label4", "主页: "),
      txtHomePage(this, "txtHomePage", true),
      Label6(this, "Label6", "电子邮件: "),
      txtEmail(this, "txtEmail", true),
      cmdOk(this, "cmdOk", "确定"),
      shell_(shell) {
  setBoxes(true, false, false);
  setFrameStyle(frameStyle() & ~ui::frame::kSizingFrame);
  setFollowsResolution(true);
  setBounds({0, 0, 6000, 3000});
  for (ui::TextBox* link : {&txtHomePage, &txtEmail}) {
    link->setBorder(false);
    link->setColours(kLinkColour, std::nullopt);
    link->setPointerShape(ui::PointerShape::hand);
  }
  txtHomePage.setCaption(kHomePage);
  txtEmail.setCaption(kEmail);
  txtHomePage.onClick.listen([this] { openHomePage(); });
  txtEmail.onClick.listen([this] { writeMail(); });
  cmdOk.onClick.listen([this] { unload(); });
  onClose.listen([this] { unload(); });
  onResize.listen([this] { layOut(); });
  onKey.listen([this](ui::KeyPress& press) {
    const bool onLink = press.focus == &txtHomePage || press.focus == &txtEmail;
    press.handled = press.code == kEscape || (press.code == kEnter && onLink);
    if (!press.handled) return;
    if (press.code == kEscape) return close();
    press.focus == &txtHomePage ? openHomePage() : writeMail();
  });
}

frmAbout::~frmAbout() {
  unload();
}

void frmAbout::showOver(ui::Toolkit& toolkit, ui::Form& owner) {
  setOwner(&owner);
  setTopmost(owner.topmost());
  toolkit.open(*this);
  setInnerSize(kMargin + kPicture + kGap + kCaptionWidth + kTextWidth + kMargin,
               kMargin + kLines * kLine + kGap + kButtonHeight + kMargin);
  cmdOk.setFocus();
  toolkit.showModal(*this);
}

void frmAbout::layOut() {
  picIco.setIcon(icon::kProgram);
  picIco.setBounds({kMargin, kMargin, kPicture, kPicture});
  const std::int32_t left = kMargin + kPicture + kGap;
  const std::int32_t width = scaleWidth() - left - kMargin;
  std::int32_t y = kMargin;
  for (ui::Label* label : {&Label1, &Label2, &Label3}) {
    label->setBounds({left, y, width, kLine});
    y += kLine;
  }
  const auto placeLink = [&](ui::Label& label, ui::TextBox& link) {
    label.setBounds({left, y, kCaptionWidth, kLine});
    link.setBounds({left + kCaptionWidth, y, width - kCaptionWidth, kLine});
    y += kLine;
  };
  placeLink(Label4, txtHomePage);
  placeLink(Label6, txtEmail);
  cmdOk.setBounds({scaleWidth() - kMargin - kButtonWidth, scaleHeight() - kMargin - kButtonHeight,
                   kButtonWidth, kButtonHeight});
}

/// The home page is for the system's own browser, started by its name.
void frmAbout::openHomePage() {
  shell_.open(nativeHandle(), "iexplore", txtHomePage.caption());
}

void frmAbout::writeMail() {
  shell_.open(nativeHandle(), "mailto:" + txtEmail.caption(), "");
}

}  // namespace tessivo
