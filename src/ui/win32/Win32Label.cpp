#include "ui/win32/Win32Label.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

UINT alignmentOf(const Label& label) {
  switch (label.alignment()) {
    case Alignment::right:
      return DT_RIGHT;
    case Alignment::centre:
      return DT_CENTER;
    case Alignment::left:
      break;
  }
  return DT_LEFT;
}

}  // namespace

Win32Label::Win32Label(Label& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context),
                  {.clicks = true, .captures = true, .ownRightButton = false}),
      model_(model) {
  // SS_NOTIFY: without it the mouse goes to the window behind.
  create(WC_STATICW, model.caption(), SS_LEFT | SS_NOPREFIX | SS_NOTIFY);
}

void Win32Label::apply(Aspect aspect) {
  aspect == Aspect::caption ? postpone() : ControlWindow::apply(aspect);
}

void Win32Label::carryOver() {
  // The system's control would paint a new text at once, in its own way. Redrawing is not switched
  // off for a hidden one: switching it on again would show it.
  const bool shown = (GetWindowLongPtrW(window(), GWL_STYLE) & WS_VISIBLE) != 0;
  if (shown) send(WM_SETREDRAW, FALSE);
  SetWindowTextW(window(), toWide(model_.caption()).c_str());
  if (shown) send(WM_SETREDRAW, TRUE);
  if (window()) InvalidateRect(window(), nullptr, FALSE);
}

LRESULT Win32Label::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return TRUE;
    case WM_PAINT:
      paint(window);
      return 0;
    default:
      return ControlWindow::handle(window, message, wParam, lParam);
  }
}

void Win32Label::paint(HWND window) {
  PAINTSTRUCT painting;
  const HDC screen = BeginPaint(window, &painting);
  RECT area{};
  GetClientRect(window, &area);
  const HDC memory = CreateCompatibleDC(screen);
  const UniqueGdi<HBITMAP> picture(CreateCompatibleBitmap(screen, area.right, area.bottom));
  const HGDIOBJ before = SelectObject(memory, picture.get());
  draw(memory, area);
  BitBlt(screen, 0, 0, area.right, area.bottom, memory, 0, 0, SRCCOPY);
  SelectObject(memory, before);
  DeleteDC(memory);
  EndPaint(window, &painting);
}

void Win32Label::draw(HDC dc, RECT area) {
  FillRect(dc, &area, onColour(dc));
  if (!model_.enabled()) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  const HGDIOBJ before = SelectObject(dc, context().fonts().plain());
  const std::wstring text = toWide(model_.caption());
  DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &area,
            alignmentOf(model_) | DT_NOPREFIX | DT_WORDBREAK | DT_EXPANDTABS);
  SelectObject(dc, before);
}

}  // namespace tessivo::ui
