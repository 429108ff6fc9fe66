#include "ui/win32/Win32Toolkit.h"

// after windows.h
#include <commctrl.h>

#include <utility>

#include "ui/Controls.h"
#include "ui/win32/Win32Button.h"
#include "ui/win32/Win32CheckBox.h"
#include "ui/win32/Win32ComboBox.h"
#include "ui/win32/Win32Form.h"
#include "ui/win32/Win32Label.h"
#include "ui/win32/Win32ListView.h"
#include "ui/win32/Win32PictureBox.h"
#include "ui/win32/Win32Slider.h"
#include "ui/win32/Win32TabStrip.h"
#include "ui/win32/Win32TextBox.h"

namespace tessivo::ui {
namespace {

/// Makes the peer of each control of a container, and of those inside it.
class PeerMaker : public ControlVisitor {
 public:
  explicit PeerMaker(std::shared_ptr<FormContext> context) : context_(std::move(context)) {}

  void makeAll(const Container& container) {
    for (Control* child : container.children()) child->accept(*this);
    // A tab strip is drawn behind the pages that lie on it.
    for (Control* child : container.children()) {
      if (dynamic_cast<TabStrip*>(child)) sendToBack(*child);
    }
  }

  void visit(Button& control) override { make<Win32Button>(control); }
  void visit(CheckBox& control) override { make<Win32CheckBox>(control); }
  void visit(ComboBox& control) override { make<Win32ComboBox>(control); }
  void visit(Label& control) override { make<Win32Label>(control); }
  void visit(ListView& control) override { make<Win32ListView>(control); }
  void visit(PictureBox& control) override {
    make<Win32PictureBox>(control);
    makeAll(control);
  }
  void visit(Slider& control) override { make<Win32Slider>(control); }
  void visit(TabStrip& control) override { make<Win32TabStrip>(control); }
  void visit(TextBox& control) override { make<Win32TextBox>(control); }

 private:
  template <typename RealPeer, typename Model>
  void make(Model& control) {
    control.attachPeer(std::make_unique<RealPeer>(control, context_));
  }
  static void sendToBack(const Control& control) {
    SetWindowPos(reinterpret_cast<HWND>(control.nativeHandle()), HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }

  std::shared_ptr<FormContext> context_;
};

}  // namespace

Win32Toolkit::Win32Toolkit(TwipsPerPixel twips, Log& log)
    : log_(log), twips_(twips), fonts_(std::make_shared<UiFonts>(twips)) {
  const INITCOMMONCONTROLSEX kinds{sizeof kinds, ICC_LISTVIEW_CLASSES | ICC_TAB_CLASSES |
                                                     ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&kinds);
}

void Win32Toolkit::open(Form& form) {
  if (form.isOpen()) return;
  auto context = std::make_shared<FormContext>(log_, fonts_, twips_);
  auto peer = std::make_unique<Win32Form>(form, context);
  Win32Form* const window = peer.get();
  form.attachPeer(std::move(peer));
  PeerMaker(std::move(context)).makeAll(form);
  window->opened();
}

bool Win32Toolkit::translate(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  auto* form = Win32Form::of(message.hwnd);
  if (!form) return false;
  if (message.wParam == VK_TAB && !(GetKeyState(VK_CONTROL) & 0x8000)) {
    form->moveFocus(ControlWindow::modelOf(GetFocus()), GetKeyState(VK_SHIFT) & 0x8000);
    return true;
  }
  if (message.wParam == VK_RETURN && dynamic_cast<Button*>(ControlWindow::modelOf(message.hwnd))) {
    SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
  }
  return false;
}

}  // namespace tessivo::ui
