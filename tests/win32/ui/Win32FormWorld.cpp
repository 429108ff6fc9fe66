#include <windows.h>
// after windows.h
#include <shlobj.h>

#include <cstring>

#include "fakes/FakeLog.h"
#include "forms/FormWorld.h"
#include "ui/win32/Win32Toolkit.h"
#include "win32/ui/RealControls.h"

namespace tessivo::ui {
namespace {

/// The world of real windows: everything is read from and done to the system's controls.
class Win32FormWorld : public FormWorld {
 public:
  Toolkit& toolkit() override { return toolkit_; }

  std::string text(const Control& control) override { return textOf(windowOf(control)); }
  bool isVisible(const Control& control) override {
    return (GetWindowLongPtrW(windowOf(control), GWL_STYLE) & WS_VISIBLE) != 0;
  }
  bool isEnabled(const Control& control) override { return IsWindowEnabled(windowOf(control)); }
  Rect bounds(const Control& control) override {
    RECT at{};
    GetWindowRect(windowOf(control), &at);
    MapWindowPoints(nullptr, GetParent(windowOf(control)), reinterpret_cast<POINT*>(&at), 2);
    return {at.left, at.top, at.right - at.left, at.bottom - at.top};
  }
  bool isChecked(const CheckBox& box) override { return send(box, BM_GETCHECK) == BST_CHECKED; }
  int position(const Slider& slider) override { return number(slider, TBM_GETPOS); }
  int maximum(const Slider& slider) override { return number(slider, TBM_GETRANGEMAX); }
  int entryCount(const ComboBox& box) override { return number(box, CB_GETCOUNT); }
  int chosenEntry(const ComboBox& box) override { return number(box, CB_GETCURSEL); }
  int selectedTab(const TabStrip& tabs) override { return number(tabs, TCM_GETCURSEL) + 1; }
  int rowCount(const ListView& list) override { return number(list, LVM_GETITEMCOUNT); }
  int selectedRow(const ListView& list) override {
    return static_cast<int>(send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  std::string cell(const ListView& list, int row, int column) override {
    std::wstring text(500, L'\0');
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    text.resize(static_cast<std::size_t>(
        send(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item))));
    return fromWide(text);
  }
  bool isTicked(const ListView& list, int row) override {
    const auto state = send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
    return (state >> 12) == 2;
  }

  void click(Button& button) override { send(button, BM_CLICK); }
  void click(CheckBox& box) override { send(box, BM_CLICK); }
  void choose(ComboBox& box, int entry) override {
    send(box, CB_SETCURSEL, static_cast<WPARAM>(entry));
    SendMessageW(GetParent(windowOf(box)), WM_COMMAND, MAKEWPARAM(0, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(windowOf(box)));
  }
  void chooseTab(TabStrip& tabs, int tab) override {
    RECT at{};
    send(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab - 1), reinterpret_cast<LPARAM>(&at));
    clickAt(windowOf(tabs), middleOf(at));
  }
  void type(TextBox& box, const std::string& text) override {
    // As a paste over all that is there does: one change for the whole text.
    send(box, EM_SETSEL, 0, -1);
    send(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(toWide(text).c_str()));
  }
  void dragTo(Slider& slider, int value) override {
    const HWND window = windowOf(slider);
    const LPARAM from = middleOf(thumb(slider));
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, from);
    const LPARAM to = MAKELPARAM(xOf(slider, value), HIWORD(from));
    SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, to);
    SendMessageW(window, WM_LBUTTONUP, 0, to);
  }
  void pressKey(Slider& slider, KeyCode key, int /*reached*/) override {
    send(slider, WM_KEYDOWN, static_cast<WPARAM>(key));
    send(slider, WM_KEYUP, static_cast<WPARAM>(key));
  }
  void clickRow(ListView& list, int row) override {
    send(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    RECT at = itemRect(windowOf(list), row, LVIR_BOUNDS);
    at.right = at.left + 300;
    clickAt(windowOf(list), middleOf(at));
  }
  void tickRow(ListView& list, int row) override {
    RECT at = itemRect(windowOf(list), row, LVIR_BOUNDS);
    at.right = at.left + 20;
    clickAt(windowOf(list), middleOf(at));
  }
  void mouse(Control& control, const MouseEvent& event) override {
    const LPARAM at = MAKELPARAM(event.x / 15, event.y / 15);
    const bool left = event.button == MouseButton::left;
    send(control, left ? WM_LBUTTONDOWN : WM_RBUTTONDOWN, left ? MK_LBUTTON : MK_RBUTTON, at);
    send(control, left ? WM_LBUTTONUP : WM_RBUTTONUP, 0, at);
  }
  void close(Form& form) override { send(form, WM_CLOSE); }

  bool hasFocus(const Control& control) override { return GetFocus() == windowOf(control); }
  void doubleClickRow(ListView& list, int row) override {
    const LPARAM at = pointTo(list, row);
    pressAndRelease(windowOf(list), WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON, at);
    pressAndRelease(windowOf(list), WM_LBUTTONDBLCLK, WM_LBUTTONUP, MK_LBUTTON, at);
  }
  void rightClickRow(ListView& list, int row) override {
    const LPARAM at = pointTo(list, row);
    pressAndRelease(windowOf(list), WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON, at);
  }
  void setColumnWidth(ListView& list, int column, std::int32_t twips) override {
    send(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), twips / 15);
  }
  void hold(Button& button) override { send(button, WM_LBUTTONDOWN, MK_LBUTTON, inside(button)); }
  void release(Button& button) override { send(button, WM_LBUTTONUP, 0, inside(button)); }
  void mouseDown(Control& control, const MouseEvent& at) override {
    send(control, WM_LBUTTONDOWN, MK_LBUTTON, pixels(at));
  }
  void mouseMove(Control& control, const MouseEvent& at) override {
    send(control, WM_MOUSEMOVE, MK_LBUTTON, pixels(at));
  }
  void mouseUp(Control& control, const MouseEvent& at) override {
    send(control, WM_LBUTTONUP, 0, pixels(at));
  }
  void key(Form&, Control& focus, KeyCode code, bool control) override {
    const HWND window = windowOf(focus);
    holdControlKey(control);
    const auto key = static_cast<WPARAM>(code);
    if (!Win32Toolkit::translate({window, WM_KEYDOWN, key, 0, 0, {}}) && IsWindow(window)) {
      SendMessageW(window, WM_KEYDOWN, key, 0);
      if (IsWindow(window)) SendMessageW(window, WM_KEYUP, key, 0);
    }
    holdControlKey(false);
  }
  void mnemonic(Form& form, char letter) override {
    Win32Toolkit::translate(
        {windowOf(form), WM_SYSCHAR, static_cast<unsigned char>(letter), 0, 0, {}});
  }
  void drop(Form& form, const std::vector<std::string>& paths) override {
    std::wstring names;
    for (const auto& path : paths) names += toWide(path) + L'\0';
    names += L'\0';
    const std::size_t size = sizeof(DROPFILES) + names.size() * sizeof(wchar_t);
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    auto* header = static_cast<DROPFILES*>(GlobalLock(block));
    header->pFiles = sizeof(DROPFILES);
    header->fWide = TRUE;
    std::memcpy(header + 1, names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(block);
    send(form, WM_DROPFILES, reinterpret_cast<WPARAM>(block));
  }
  void answerDialogs(std::function<void(Form&)> answer) override {
    toolkit_.answer = std::move(answer);
  }

 protected:
  void chooseInMenu(Form& form, MenuItem&, int entry) override {
    const auto press = [&form](WPARAM key) {
      PostMessageW(windowOf(form), WM_KEYDOWN, key, 0);
      PostMessageW(windowOf(form), WM_KEYUP, key, 0);
    };
    for (int i = 0; i <= entry; ++i) press(VK_DOWN);
    press(entry < 0 ? VK_ESCAPE : VK_RETURN);
  }

 private:
  /// Real windows; when a dialog is up and its loop turns, the user answers it.
  struct AnsweringToolkit : Toolkit {
    explicit AnsweringToolkit(Log& log) : real(TwipsPerPixel{}, log) {}
    void open(Form& form) override { real.open(form); }
    void showModal(Form& dialog) override {
      static AnsweringToolkit* now = nullptr;
      static Form* up = nullptr;
      now = this;
      up = &dialog;
      SetTimer(nullptr, 0, 1, [](HWND, UINT, UINT_PTR id, DWORD) {
        KillTimer(nullptr, id);
        Form& form = *up;
        const HWND window = windowOf(form);
        if (now->answer) now->answer(form);
        if (IsWindow(window) && up == &form) PostMessageW(window, WM_CLOSE, 0, 0);
      });
      real.showModal(dialog);
      up = nullptr;
    }
    Win32Toolkit real;
    std::function<void(Form&)> answer;
  };

  static LPARAM pixels(const MouseEvent& at) {
    return MAKELPARAM(static_cast<WORD>(static_cast<short>(at.x / 15)),
                      static_cast<WORD>(static_cast<short>(at.y / 15)));
  }
  static LPARAM inside(const Control& control) {
    RECT area{};
    GetClientRect(windowOf(control), &area);
    return middleOf(area);
  }
  static void holdControlKey(bool down) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  static LPARAM pointTo(const ListView& list, int row) {
    const int last = list.rowCount() - 1;
    RECT at{};
    if (last >= 0) at = itemRect(windowOf(list), row < 0 ? last : row, LVIR_BOUNDS);
    if (row < 0) OffsetRect(&at, 0, at.bottom - at.top + 30);
    const LPARAM point = MAKELPARAM(60, (at.top + at.bottom) / 2);
    SendMessageW(windowOf(list), WM_MOUSEMOVE, 0, point);
    return point;
  }

  static int number(const Control& control, UINT message) {
    return static_cast<int>(send(control, message));
  }
  static RECT thumb(const Slider& slider) {
    RECT at{};
    send(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&at));
    return at;
  }
  /// Where the middle of the thumb is for that value.
  static int xOf(const Slider& slider, int value) {
    RECT channel{};
    send(slider, TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
    const RECT at = thumb(slider);
    const LONG width = at.right - at.left;
    const LONG way = channel.right - channel.left - width;
    return static_cast<int>(channel.left + width / 2 +
                            way * (value - slider.min()) / (slider.max() - slider.min()));
  }

  FakeLog log_;
  AnsweringToolkit toolkit_{log_};
};

}  // namespace

std::unique_ptr<FormWorld> makeFormWorld() {
  return std::make_unique<Win32FormWorld>();
}

}  // namespace tessivo::ui
