#pragma once

#include "ui/TextBox.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system edit control of one line.
class Win32TextBox final : public ControlPeer<> {
 public:
  Win32TextBox(TextBox& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void onCommand(WORD code) override;
  HBRUSH onColour(HDC dc) override;

 private:
  std::wstring shownText() const;

  TextBox& model_;
};

}  // namespace tessivo::ui
