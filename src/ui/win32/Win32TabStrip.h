#pragma once

#include "ui/TabStrip.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system tab control without pages.
class Win32TabStrip final : public ControlPeer<> {
 public:
  Win32TabStrip(TabStrip& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> onNotify(NMHDR& header) override;

 private:
  void addNewTabs();
  void fillHeight();
  /// Tabs counted from 1; 0: none.
  int shownTab() const { return static_cast<int>(send(TCM_GETCURSEL)) + 1; }
  int tabAt(POINT point) const;

  TabStrip& model_;
};

}  // namespace tessivo::ui
