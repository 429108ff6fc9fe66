#include "ui/win32/Win32CheckBox.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

Win32CheckBox::Win32CheckBox(CheckBox& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_BUTTONW, model.caption(), BS_CHECKBOX);
  apply(Aspect::value);
}

void Win32CheckBox::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::caption:
      SetWindowTextW(window(), toWide(model_.caption()).c_str());
      return;
    case Aspect::value:
      send(BM_SETCHECK, model_.checked() ? BST_CHECKED : BST_UNCHECKED);
      return;
    default:
      return ControlWindow::apply(aspect);
  }
}

void Win32CheckBox::onCommand(WORD code) {
  if (code == BN_CLICKED) model_.click();
}

}  // namespace tessivo::ui
