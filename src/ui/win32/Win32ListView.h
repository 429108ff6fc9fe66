#pragma once

#include <utility>

#include "ui/ListView.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system list view that keeps no rows: it asks the model for each row that it draws.
class Win32ListView : public ControlPeer<ListViewPeer> {
 public:
  Win32ListView(ListView& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

  void rowCountChanged(int count) override;
  void rowChanged(int row) override;
  void selectionChanged(int row) override;
  void ensureVisible(int row) override;
  int rowAt(std::int32_t y) const override;

 protected:
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> onNotify(NMHDR& header) override;

 private:
  void addColumns();
  bool hasRow(int row) const { return row >= 0 && row < model_.rowCount(); }
  bool keepsWidth(const NMHDR& header) const;
  void describe(LVITEMW& item);
  LRESULT draw(NMLVCUSTOMDRAW& drawing) const;
  void noteChange(const NMLISTVIEW& change);
  void click(const NMITEMACTIVATE& where, bool isDouble);
  void rightClick(const NMITEMACTIVATE& where);
  void tickWithKey();
  bool isOnBox(POINT point) const;
  void showCellTip(POINT point);

  ListView& model_;
  std::wstring cellText_;  ///< what the control is given to draw, until it asks for the next
  bool quiet_ = false;     ///< the program, not the user, changes the selection
  bool inMouse_ = false;   ///< the list handles a mouse button's message
  std::pair<int, int> tipCell_{-1, -1};
};

}  // namespace tessivo::ui
