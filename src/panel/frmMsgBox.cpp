#include "panel/frmMsgBox.h"

#include <algorithm>

#include "ui/Icons.h"

namespace tessivo {
namespace {

// Twips.
constexpr std::int32_t kMargin = 240;
constexpr std::int32_t kPicture = 510;
constexpr std::int32_t kTextWidth = 4200;
constexpr std::int32_t kTextLine = 270;
constexpr std::int32_t kGap = 240;
constexpr std::int32_t kButtonWidth = 1260;
constexpr std::int32_t kButtonHeight = 405;
constexpr std::int32_t kButtonGap = 120;
constexpr std::int32_t kWideLetter = 185;
constexpr ui::KeyCode kEscape = 27;

/// How many lines the text takes, by the width of a Chinese letter and half of it for a Latin one;
/// rather one too many.
std::int32_t linesOf(const std::string& text) {
  std::int32_t lines = 1;
  std::int32_t width = 0;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0) == 0x80) continue;  // the rest of a letter
    const std::int32_t letter = byte < 0x80 ? kWideLetter * 5 / 8 : kWideLetter;
    const bool breaks = c == '\n';
    if (breaks || width + letter > kTextWidth) {
      ++lines;
      width = 0;
    }
    if (!breaks) width += letter;
  }
  return lines;
}

}  // namespace

frmMsgBox::frmMsgBox(TwipsPerPixel twipsPerPixel)
    : Form("frmMsgBox", "", twipsPerPixel),
      Picture1(this, "Picture1"),
      labNote(this, "labNote", ""),
      cmdYes(this, "cmdYes", ""),
      cmdNo(this, "cmdNo", "") {
  setBoxes(true, false, false);
  setFrameStyle(frameStyle() & ~ui::frame::kSizingFrame);
  setFollowsResolution(true);
  setBounds({0, 0, 6000, 3000});
  Picture1.setIcon(icon::kProgram);
  cmdYes.onClick.listen([this] {
    result_ = true;
    unload();
  });
  cmdNo.onClick.listen([this] { unload(); });
  onClose.listen([this] { unload(); });
  onKey.listen([this](ui::KeyPress& press) {
    if (press.code != kEscape) return;
    press.handled = true;
    close();
  });
  onResize.listen([this] { layOut(); });
}

frmMsgBox::~frmMsgBox() {
  unload();
}

void frmMsgBox::ask(ui::Toolkit& toolkit, ui::Form& owner) {
  result_ = false;
  setOwner(&owner);
  setTopmost(owner.topmost());
  toolkit.open(*this);
  const std::int32_t text = std::max(kPicture, linesOf(labNote.caption()) * kTextLine);
  setInnerSize(kMargin + kPicture + kGap + kTextWidth + kMargin,
               kMargin + text + kGap + kButtonHeight + kMargin);
  toolkit.showModal(*this);
}

void frmMsgBox::layOut() {
  const std::int32_t left = kMargin + kPicture + kGap;
  const std::int32_t buttons = scaleHeight() - kMargin - kButtonHeight;
  const std::int32_t text = linesOf(labNote.caption()) * kTextLine;
  const std::int32_t room = buttons - kGap - kMargin;
  Picture1.setBounds({kMargin, kMargin, kPicture, kPicture});
  labNote.setBounds(
      {left, kMargin + std::max(0, (room - text) / 2), scaleWidth() - left - kMargin, text});
  std::int32_t right = scaleWidth() - kMargin;
  for (ui::Button* button : {&cmdNo, &cmdYes}) {
    if (!button->visible()) continue;
    button->setBounds({right - kButtonWidth, buttons, kButtonWidth, kButtonHeight});
    right -= kButtonWidth + kButtonGap;
  }
  (defaultIsYes_ ? cmdYes : cmdNo).setFocus();
}

void showNotice(ui::Toolkit& toolkit, ui::Form& owner, const std::string& text,
                const std::string& title) {
  frmMsgBox box(owner.twipsPerPixel());
  box.setCaption(title);
  box.labNote.setCaption(text);
  box.cmdNo.setVisible(false);
  box.cmdNo.setCaption("");
  box.cmdYes.setVisible(true);
  box.cmdYes.setCaption("确定");
  box.setDefaultIsYes(true);
  box.ask(toolkit, owner);
}

}  // namespace tessivo
