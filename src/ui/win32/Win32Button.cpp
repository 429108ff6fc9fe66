#include "ui/win32/Win32Button.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

constexpr std::int32_t kIconTwips = 240;

}  // namespace

Win32Button::Win32Button(Button& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_BUTTONW, model.caption(), BS_PUSHBUTTON);
  showPicture();
}

void Win32Button::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::caption:
      SetWindowTextW(window(), toWide(model_.caption()).c_str());
      return;
    case Aspect::items:
      return showPicture();
    case Aspect::scale:
      ControlWindow::apply(aspect);
      return showPicture();
    default:
      return ControlWindow::apply(aspect);
  }
}

void Win32Button::showPicture() {
  auto picture = loadIcon(model_.icon(), tessivo::toPixels(kIconTwips, context().twips().y));
  send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture.get()));
  picture_ = std::move(picture);  // the one before is no longer shown
}

void Win32Button::onCommand(WORD code) {
  if (code == BN_CLICKED) model_.click();
}

}  // namespace tessivo::ui
