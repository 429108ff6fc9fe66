#pragma once

#include "platform/win32/Gdi.h"
#include "ui/PictureBox.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A plain window that holds other controls.
class Win32PictureBox : public ControlPeer<> {
 public:
  Win32PictureBox(PictureBox& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void setFrame();
  void loadPicture();
  void erase(HWND window, HDC dc) const;

  PictureBox& model_;
  UniqueIcon picture_;
};

}  // namespace tessivo::ui
