#pragma once

#include "ui/Label.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system static text that paints itself in one go, so that a text that changes every second does
/// not flicker. The text is shown as it is, without mnemonics, and is broken into lines.
class Win32Label final : public ControlPeer<> {
 public:
  Win32Label(Label& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void carryOver() override;
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void paint(HWND window);
  void draw(HDC dc, RECT area);

  Label& model_;
};

}  // namespace tessivo::ui
