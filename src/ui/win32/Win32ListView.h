#pragma once

#include <utility>

#include "ui/ListView.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system list view that keeps no rows: it asks the model for each row that it draws. What the
/// program changes in one go reaches the control in one step.
class Win32ListView final : public ControlPeer<ListViewPeer> {
 public:
  Win32ListView(ListView& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

  void rowCountChanged(int count) override;
  void rowChanged(int row) override;
  void selectionChanged(int row) override;
  void ensureVisible(int row) override;
  int rowAt(std::int32_t y) const override;
  std::int32_t topOf(int row) const override;
  std::int32_t columnWidth(int column) const override;
  void columnWidthChanged(int column) override;

 protected:
  void carryOver() override;
  LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
  std::optional<LRESULT> onNotify(NMHDR& header) override;

 private:
  void addColumns();
  void rescaleColumns();
  int columnPixels(int column) const;
  bool rowEdges(int row, RECT& edges) const;
  bool hasRow(int row) const { return row >= 0 && row < model_.rowCount(); }
  bool keepsWidth(const NMHDR& header) const;
  void noteDirty(int first, int last);
  void redrawRows(int first, int last);
  void showSelection(int row);
  void setRowState(int row, UINT state);
  void describe(LVITEMW& item);
  LRESULT find(const NMLVFINDITEMW& search) const;
  LRESULT draw(NMLVCUSTOMDRAW& drawing) const;
  void noteChange(const NMLISTVIEW& change);
  void click(const NMITEMACTIVATE& where, bool isDouble);
  void rightClick(const NMITEMACTIVATE& where);
  void tickWithKey();
  bool isOnBox(POINT point) const;
  void showCellTip(POINT point);

  ListView& model_;
  int toldCount_ = 0;
  int rowToShow_ = -1;
  bool selectionTold_ = false;
  int selectedRow_ = -1;                  ///< in the control, as far as it tells
  std::pair<int, int> dirtyRows_{0, -1};  ///< first and last row to draw anew
  std::wstring cellText_;  ///< what the control is given to draw, until it asks for the next
  bool quiet_ = false;     ///< the program, not the user, changes the selection
  bool inMouse_ = false;   ///< the list handles a mouse button's message
  std::pair<int, int> tipCell_{-1, -1};
  double twipsOfColumns_ = 15;  ///< twips per pixel when the columns got their width
};

}  // namespace tessivo::ui
