#include "ui/win32/Win32ComboBox.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

constexpr std::int32_t kRowsShown = 12;

}  // namespace

Win32ComboBox::Win32ComboBox(ComboBox& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_COMBOBOXW, "", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL);
  addNewItems();
  apply(Aspect::value);
}

void Win32ComboBox::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::items:
      return addNewItems();
    case Aspect::value:
      send(CB_SETCURSEL, static_cast<WPARAM>(model_.listIndex()));
      return;
    default:
      return ControlWindow::apply(aspect);
  }
}

/// Entries only ever come at the end, or all go.
void Win32ComboBox::addNewItems() {
  const auto& items = model_.items();
  if (items.empty()) send(CB_RESETCONTENT);
  for (auto i = static_cast<std::size_t>(send(CB_GETCOUNT)); i < items.size(); ++i) {
    const std::wstring text = toWide(items[i].text);
    if (send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())) < 0) return;
  }
}

void Win32ComboBox::onCommand(WORD code) {
  if (code == CBN_SELCHANGE) model_.choose(static_cast<int>(send(CB_GETCURSEL)));
}

/// The system takes the height with the list dropped down.
std::int32_t Win32ComboBox::windowHeight(std::int32_t height) const {
  return height * (1 + kRowsShown);
}

}  // namespace tessivo::ui
