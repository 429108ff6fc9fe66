#include "ui/win32/Win32Button.h"

#include <algorithm>
#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

constexpr std::int32_t kIconTwips = 240;
constexpr std::int32_t kSpaceTwips = 75;  ///< between picture and text

}  // namespace

Win32Button::Win32Button(Button& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_BUTTONW, model.caption(), BS_PUSHBUTTON);
  // What is spoken is not what is shown.
  if (!model.accessibleName().empty()) apply(Aspect::caption);
  loadPicture();
}

void Win32Button::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::caption:
      SetWindowTextW(window(), toWide(model_.caption()).c_str());
      return placePicture();
    case Aspect::items:
      return loadPicture();
    case Aspect::scale:
      ControlWindow::apply(aspect);
      return loadPicture();
    case Aspect::bounds:
      ControlWindow::apply(aspect);
      return placePicture();
    default:
      return ControlWindow::apply(aspect);
  }
}

/// As a list of one: an icon that is given by itself is copied under Wine, and the copy is lost
/// with the next one.
void Win32Button::loadPicture() {
  const int side = pixels(kIconTwips);
  const UniqueIcon icon = loadIcon(model_.icon(), side);
  UniqueImageList before = std::exchange(picture_, nullptr);
  if (icon) {
    picture_.reset(ImageList_Create(side, side, ILC_COLOR32, 1, 1));
    ImageList_AddIcon(picture_.get(), icon.get());
  }
  if (picture_) return placePicture();
  BUTTON_IMAGELIST none{};
  none.himl = BCCL_NOGLYPH;
  if (before) send(BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&none));
}

/// Picture and text together in the middle.
void Win32Button::placePicture() {
  if (!picture_) return;
  BUTTON_IMAGELIST shown{};
  shown.himl = picture_.get();
  shown.uAlign = BUTTON_IMAGELIST_ALIGN_CENTER;
  if (!model_.caption().empty()) {
    const int used = pixels(kIconTwips) + pixels(kSpaceTwips) + textWidth();
    const int left = std::max(0, (toPixels(model_.bounds(), context().twips()).width - used) / 2);
    shown.uAlign = BUTTON_IMAGELIST_ALIGN_LEFT;
    // The text is put into the middle of what the picture leaves. It shall have as much room behind
    // it as the picture before it.
    shown.margin = {left, 0, pixels(kSpaceTwips) - left, 0};
  }
  send(BCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(&shown));
  redraw();
}

int Win32Button::pixels(std::int32_t twips) const {
  return tessivo::toPixels(twips, context().twips().y);
}

int Win32Button::textWidth() const {
  const HDC dc = GetDC(window());
  const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(send(WM_GETFONT)));
  RECT area{};
  DrawTextW(dc, toWide(model_.caption()).c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(dc, before);
  ReleaseDC(window(), dc);
  return area.right;
}

void Win32Button::onCommand(WORD code) {
  if (code == BN_CLICKED) model_.click();
}

}  // namespace tessivo::ui
