#include "ui/win32/FormContext.h"

#include <commctrl.h>

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

FormContext::Dispatch::~Dispatch() {
  if (--context_->depth_ > 0) return;
  const std::vector<HWND> doomed = std::exchange(context_->doomed_, {});
  for (HWND window : doomed) DestroyWindow(window);
}

void FormContext::destroy(HWND window) {
  if (!window) return;
  if (depth_ == 0) {
    DestroyWindow(window);
    return;
  }
  ShowWindow(window, SW_HIDE);
  doomed_.push_back(window);
}

void FormContext::setTwips(TwipsPerPixel twips) {
  twips_ = twips;
  fonts_ = std::make_shared<UiFonts>(twips);
  if (toolTips_) {
    SendMessageW(toolTips_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_->plain()), FALSE);
  }
}

HBRUSH FormContext::brush(COLORREF colour) {
  auto& brush = brushes_[colour];
  if (!brush) brush.reset(CreateSolidBrush(colour));
  return brush.get();
}

HWND FormContext::toolTips() {
  if (!toolTips_) {
    // Not owned by the form's window: the system may treat an owner's order on the screen as that
    // of what it owns.
    toolTips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr,
                                WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, nullptr,
                                nullptr, GetModuleHandleW(nullptr), nullptr);
    constexpr int kMaxWidth = 600;
    SendMessageW(toolTips_, TTM_SETMAXTIPWIDTH, 0, kMaxWidth);
    SendMessageW(toolTips_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_->plain()), FALSE);
  }
  return toolTips_;
}

void FormContext::dropToolTips() {
  if (toolTips_) DestroyWindow(std::exchange(toolTips_, nullptr));
}

void FormContext::setToolTip(HWND control, const std::string& text) {
  if (!form || (text.empty() && !toolTips_)) return;
  std::wstring wide = toWide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // what every version of the library takes
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = form;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  const auto send = [&](UINT message) {
    SendMessageW(toolTips(), message, 0, reinterpret_cast<LPARAM>(&tool));
  };
  send(TTM_DELTOOLW);
  if (!text.empty()) send(TTM_ADDTOOLW);
}

void FormContext::tellToolTips(MSG message) {
  if (toolTips_) SendMessageW(toolTips_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&message));
}

namespace {

/// What the program itself has put behind a control.
std::optional<Colour> ownBackColourOf(const Control& control) {
  for (const Control* at = &control; at; at = at->parent()) {
    if (at->backColour()) return at->backColour();
  }
  return std::nullopt;
}

}  // namespace

COLORREF toColorRef(Colour colour) {
  return RGB((colour >> 16) & 0xFF, (colour >> 8) & 0xFF, colour & 0xFF);
}

COLORREF backColourOf(const Control& control) {
  const auto own = ownBackColourOf(control);
  return own ? toColorRef(*own) : GetSysColor(COLOR_BTNFACE);
}

bool highContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

COLORREF textColourOf(const Control& control, COLORREF standard, bool strong) {
  const auto own = control.foreColour();
  return own && (!strong || ownBackColourOf(control)) ? toColorRef(*own) : standard;
}

Rect toPixels(const Rect& twips, TwipsPerPixel perPixel) {
  return {tessivo::toPixels(twips.left, perPixel.x), tessivo::toPixels(twips.top, perPixel.y),
          tessivo::toPixels(twips.width, perPixel.x), tessivo::toPixels(twips.height, perPixel.y)};
}

Rect toTwips(const Rect& pixels, TwipsPerPixel perPixel) {
  return {tessivo::toTwips(pixels.left, perPixel.x), tessivo::toTwips(pixels.top, perPixel.y),
          tessivo::toTwips(pixels.width, perPixel.x), tessivo::toTwips(pixels.height, perPixel.y)};
}

Rect toRect(const RECT& edges) {
  return {edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top};
}

HCURSOR cursorOf(PointerShape shape) {
  switch (shape) {
    case PointerShape::sizeVertical:
      return LoadCursorW(nullptr, IDC_SIZENS);
    case PointerShape::hand:
      return LoadCursorW(nullptr, IDC_HAND);
    case PointerShape::busy:
      return LoadCursorW(nullptr, IDC_WAIT);
    case PointerShape::standard:
      break;
  }
  return nullptr;
}

}  // namespace tessivo::ui
