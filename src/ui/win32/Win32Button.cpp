#include "ui/win32/Win32Button.h"

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
  const auto pixels = [this](std::int32_t twips) {
    return tessivo::toPixels(twips, context().twips().y);
  };
  const bool alone = model_.caption().empty();
  auto picture =
      loadIconWithSpace(model_.icon(), pixels(kIconTwips), alone ? 0 : pixels(kSpaceTwips));
  send(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(picture.get()));
  picture_ = std::move(picture);  // the one before is no longer shown
}

void Win32Button::onCommand(WORD code) {
  if (code == BN_CLICKED) model_.click();
}

}  // namespace tessivo::ui
