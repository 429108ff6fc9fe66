#include "ui/win32/Win32TextBox.h"

#include <utility>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

Win32TextBox::Win32TextBox(TextBox& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context),
                  {.clicks = true, .captures = false, .ownRightButton = false}),
      model_(model) {
  create(WC_EDITW, model.caption(), ES_AUTOHSCROLL | (model.readOnly() ? ES_READONLY : 0),
         model.border() ? WS_EX_CLIENTEDGE : 0);
}

std::wstring Win32TextBox::shownText() const {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window())) + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      GetWindowTextW(window(), text.data(), static_cast<int>(text.size()))));
  return text;
}

void Win32TextBox::apply(Aspect aspect) {
  if (aspect != Aspect::caption) return ControlWindow::apply(aspect);
  // What the user has just typed is there already, and setting it again would move the caret.
  const std::wstring text = toWide(model_.caption());
  if (text != shownText()) SetWindowTextW(window(), text.c_str());
}

void Win32TextBox::onCommand(WORD code) {
  if (code != EN_CHANGE) return;
  // Setting the text by program raises the notification too; the texts are equal then.
  std::string text = fromWide(shownText());
  if (text != model_.caption()) model_.type(std::move(text));
}

HBRUSH Win32TextBox::onColour(HDC dc) {
  const auto standard = GetSysColor(model_.readOnly() ? COLOR_BTNFACE : COLOR_WINDOW);
  const COLORREF back = model_.backColour() ? toColorRef(*model_.backColour()) : standard;
  SetTextColor(dc, textColourOf(model_, GetSysColor(COLOR_WINDOWTEXT)));
  SetBkColor(dc, back);
  return context().brush(back);
}

}  // namespace tessivo::ui
