#include "ui/win32/Win32TabStrip.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

Win32TabStrip::Win32TabStrip(TabStrip& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(WC_TABCONTROLW, "", TCS_TABS | TCS_FOCUSONBUTTONDOWN);
  addNewTabs();
  apply(Aspect::value);
}

void Win32TabStrip::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::items:
      return addNewTabs();
    case Aspect::value:
      send(TCM_SETCURSEL, static_cast<WPARAM>(model_.selected() - 1));
      return;
    case Aspect::bounds:
    case Aspect::scale:
      ControlWindow::apply(aspect);
      return fillHeight();
    default:
      return ControlWindow::apply(aspect);
  }
}

/// Tabs as high as the strip: there is no page in it.
void Win32TabStrip::fillHeight() {
  constexpr int kEdge = 2;
  RECT area{};
  GetClientRect(window(), &area);
  send(TCM_SETITEMSIZE, 0, MAKELPARAM(1, std::max<LONG>(1, area.bottom - kEdge)));
}

/// Tabs only ever come at the end.
void Win32TabStrip::addNewTabs() {
  const auto& tabs = model_.tabs();
  for (auto i = static_cast<std::size_t>(send(TCM_GETITEMCOUNT)); i < tabs.size(); ++i) {
    std::wstring caption = toWide(tabs[i]);
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = caption.data();
    if (send(TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&tab)) < 0) return;
  }
}

LRESULT Win32TabStrip::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_LBUTTONDOWN) return ControlWindow::handle(window, message, wParam, lParam);
  // A press on the tab that is selected already brings no notification.
  const auto alive = input().alive();
  const bool onSelected = tabAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}) == shownTab();
  const LRESULT result = ControlWindow::handle(window, message, wParam, lParam);
  if (*alive && onSelected) model_.choose(shownTab());
  return result;
}

std::optional<LRESULT> Win32TabStrip::onNotify(NMHDR& header) {
  if (header.code != TCN_SELCHANGE) return std::nullopt;
  model_.choose(shownTab());
  return 0;
}

int Win32TabStrip::tabAt(POINT point) const {
  TCHITTESTINFO hit{point, 0};
  return static_cast<int>(send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) + 1;
}

}  // namespace tessivo::ui
