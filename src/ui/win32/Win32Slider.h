#pragma once

#include "ui/Slider.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system track bar. A press beside the thumb brings the thumb there.
class Win32Slider final : public ControlPeer<> {
 public:
  Win32Slider(Slider& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  void onScroll(WORD code) override;

 private:
  LRESULT press(HWND window, WPARAM wParam, LPARAM lParam);
  RECT thumb() const;
  std::int32_t valueAt(LONG x) const;

  Slider& model_;
};

}  // namespace tessivo::ui
