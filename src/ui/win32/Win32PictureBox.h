#pragma once

#include "ui/PictureBox.h"
#include "ui/win32/ControlWindow.h"
#include "ui/win32/IconPicture.h"

namespace tessivo::ui {

/// A plain window that holds other controls or shows a picture.
class Win32PictureBox final : public ControlPeer<> {
 public:
  Win32PictureBox(PictureBox& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  LRESULT handleKeyboard(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void setFrame();
  void loadPicture();
  void erase(HWND window, HDC dc) const;

  PictureBox& model_;
  UniqueIcon picture_;
  int side_ = 0;  ///< of the picture, pixels
};

}  // namespace tessivo::ui
