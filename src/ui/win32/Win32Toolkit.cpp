#include "ui/win32/Win32Toolkit.h"

// after windows.h
#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "ui/Controls.h"
#include "ui/TabOrder.h"
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

constexpr LPARAM kWasDown = 1 << 30;  ///< of a key message: the key was down before

HWND windowOf(const Form& form) {
  return reinterpret_cast<HWND>(form.nativeHandle());
}

/// Puts the dialog in the middle of its owner, or of the owner's monitor when the owner is not to
/// be seen, and wholly inside that monitor; without an owner in the middle of the primary one.
void centreOver(HWND owner, HWND dialog) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const RECT& work = monitor.rcWork;
  RECT over = work;
  if (IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &over);
  RECT own{};
  GetWindowRect(dialog, &own);
  const auto place = [](LONG from, LONG to, LONG size, LONG least, LONG most) {
    return std::max(least, std::min(from + (to - from - size) / 2, most - size));
  };
  SetWindowPos(dialog, nullptr,
               place(over.left, over.right, own.right - own.left, work.left, work.right),
               place(over.top, over.bottom, own.bottom - own.top, work.top, work.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The message loop while a dialog is up. The end of the program ends it, too, and goes on to the
/// loop around this one.
void runUntilGone(Form& dialog) {
  MSG message{};
  while (dialog.isOpen() && IsWindow(windowOf(dialog))) {
    const int result = GetMessageW(&message, nullptr, 0, 0);
    if (result <= 0) {
      dialog.unload();
      if (result == 0) PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (Win32Toolkit::translate(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/// Enter and Esc close the list that a combo box has dropped down, and do nothing else.
bool closesDroppedList(const Control* focus, const MSG& message) {
  if (message.wParam != VK_RETURN && message.wParam != VK_ESCAPE) return false;
  return dynamic_cast<const ComboBox*>(focus) &&
         SendMessageW(message.hwnd, CB_GETDROPPEDSTATE, 0, 0);
}

/// In a dialog the arrow keys go from button to button, as in the system's own dialogs.
bool movesToButton(const Control* focus, WPARAM key) {
  const bool forwards = key == VK_RIGHT || key == VK_DOWN;
  if (!forwards && key != VK_LEFT && key != VK_UP) return false;
  const auto* const button = dynamic_cast<const Button*>(focus);
  if (!button) return false;
  if (Control* const next = nextButton(*button, !forwards)) next->setFocus();
  return true;
}

}  // namespace

Win32Toolkit::Win32Toolkit(TwipsPerPixel twips, Log& log)
    : log_(log), twips_(twips), fonts_(std::make_shared<UiFonts>(twips)) {
  const INITCOMMONCONTROLSEX kinds{sizeof kinds, ICC_USEREX_CLASSES | ICC_LISTVIEW_CLASSES |
                                                     ICC_TAB_CLASSES | ICC_BAR_CLASSES |
                                                     ICC_STANDARD_CLASSES};
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

void Win32Toolkit::showModal(Form& dialog) {
  Form* const owner = dialog.owner();
  const bool switchesOff = owner && owner->enabled();
  open(dialog);
  if (!dialog.isOpen()) return;
  const HWND below = owner ? windowOf(*owner) : nullptr;
  // Twice: coming to a monitor of another resolution changes its size.
  centreOver(below, windowOf(dialog));
  centreOver(below, windowOf(dialog));
  // Before the dialog goes: else the system would activate a window of another program.
  const Connection switchOn = dialog.onUnload.connect([&] {
    if (switchesOff) owner->setEnabled(true);
    // The loop below does not see messages that are sent, and would go on waiting for another one.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
  });
  if (switchesOff) owner->setEnabled(false);
  dialog.show();
  dialog.activate();
  runUntilGone(dialog);
  if (dialog.isOpen()) dialog.unload();  // only its window has gone
}

bool Win32Toolkit::translate(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSCHAR) return false;
  auto* form = Win32Form::of(message.hwnd);
  if (!form) return false;
  if (message.message == WM_SYSCHAR) {
    return form->pressMnemonic(static_cast<char32_t>(message.wParam));
  }
  const Control* const focus = ControlWindow::modelOf(message.hwnd);
  if (closesDroppedList(focus, message)) return false;
  const bool repeated = (message.lParam & kWasDown) != 0;
  if (form->pressKey(focus, static_cast<KeyCode>(message.wParam), repeated)) return true;
  if (Win32Form::of(message.hwnd) != form) return true;  // gone meanwhile
  if (message.wParam == VK_TAB && !(GetKeyState(VK_CONTROL) & 0x8000)) {
    form->moveFocus(ControlWindow::modelOf(GetFocus()), GetKeyState(VK_SHIFT) & 0x8000);
    return true;
  }
  if (message.wParam == VK_RETURN && dynamic_cast<const Button*>(focus)) {
    SendMessageW(message.hwnd, BM_CLICK, 0, 0);
    return true;
  }
  return form->isDialog() && movesToButton(focus, message.wParam);
}

}  // namespace tessivo::ui
