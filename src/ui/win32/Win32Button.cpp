#include "ui/win32/Win32Button.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

Win32Button::Win32Button(Button& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_BUTTONW, model.caption(), BS_PUSHBUTTON);
}

void Win32Button::apply(Aspect aspect) {
  if (aspect != Aspect::caption) return ControlWindow::apply(aspect);
  SetWindowTextW(window(), toWide(model_.caption()).c_str());
}

void Win32Button::onCommand(WORD code) {
  if (code == BN_CLICKED) model_.click();
}

}  // namespace tessivo::ui
