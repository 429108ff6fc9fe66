#include "ui/win32/Win32PopupMenu.h"

#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

struct DestroyMenuHandle {
  using pointer = HMENU;
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using UniqueMenu = std::unique_ptr<std::remove_pointer_t<HMENU>, DestroyMenuHandle>;

/// Builds the real menu; the command of an entry is its place in `entries`, counted from 1.
UniqueMenu build(MenuItem& menu, std::vector<MenuItem*>& entries) {
  UniqueMenu real(CreatePopupMenu());
  for (std::size_t i = 0; i < menu.count(); ++i) {
    MenuItem& item = menu.item(i);
    if (!item.visible()) continue;
    if (item.isSeparator()) {
      AppendMenuW(real.get(), MF_SEPARATOR, 0, nullptr);
      continue;
    }
    const UINT flags = MF_STRING | (item.enabled() ? MF_ENABLED : MF_GRAYED);
    const std::wstring caption = toWide(item.caption());
    if (item.count() > 0) {
      // The menu above owns the one below from here on.
      HMENU below = build(item, entries).release();
      AppendMenuW(real.get(), flags | MF_POPUP, reinterpret_cast<UINT_PTR>(below), caption.c_str());
    } else {
      entries.push_back(&item);
      AppendMenuW(real.get(), flags, entries.size(), caption.c_str());
      const auto command = static_cast<UINT>(entries.size());
      if (item.isDefault()) SetMenuDefaultItem(real.get(), command, FALSE);
    }
  }
  return real;
}

bool holds(const MenuItem& menu, const MenuItem* wanted) {
  for (std::size_t i = 0; i < menu.count(); ++i) {
    if (&menu.item(i) == wanted || holds(menu.item(i), wanted)) return true;
  }
  return false;
}

/// A window that nobody sees, to own a menu whose form is to stay where it is. Gives the foreground
/// back to the window that had it.
class HiddenOwner {
 public:
  HiddenOwner()
      : window_(CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr)) {}
  ~HiddenOwner() {
    if (GetForegroundWindow() == window_) SetForegroundWindow(before_);
    DestroyWindow(window_);
  }
  HiddenOwner(const HiddenOwner&) = delete;
  HiddenOwner& operator=(const HiddenOwner&) = delete;
  HWND window() const { return window_; }

 private:
  HWND before_ = GetForegroundWindow();
  HWND window_;
};

}  // namespace

MenuItem* runPopupMenu(HWND form, bool activates, MenuItem& menu, std::optional<POINT> screen) {
  std::vector<MenuItem*> entries;
  const UniqueMenu real = build(menu, entries);
  POINT at = screen.value_or(POINT{});
  if (!screen) GetCursorPos(&at);
  // Without the foreground the menu would not close when the user clicks elsewhere.
  std::optional<HiddenOwner> hidden;
  if (!activates) hidden.emplace();
  const HWND owner = hidden ? hidden->window() : form;
  SetForegroundWindow(owner);
  const auto command = static_cast<std::size_t>(
      TrackPopupMenu(real.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, owner, nullptr));
  // The form may have been unloaded by a timer, and the menu with it.
  if (!IsWindow(form) || GetWindowLongPtrW(form, GWLP_USERDATA) == 0) return nullptr;
  PostMessageW(owner, WM_NULL, 0, 0);
  if (command == 0 || command > entries.size()) return nullptr;
  MenuItem* chosen = entries[command - 1];
  return holds(menu, chosen) ? chosen : nullptr;
}

}  // namespace tessivo::ui
