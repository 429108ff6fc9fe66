#pragma once

#include <memory>

#include "base/KeyedSequence.h"
#include "ui/Control.h"

namespace tessivo::ui {

/// A row of a list view: `title` is the first column's text, by which typing finds the row and
/// screen readers name it; `subItems` are the columns after it.
struct ListRow {
  std::string key;
  std::string tag;
  std::vector<std::string> subItems;
  bool bold = false;
  bool checked = false;
  std::string title{};
};

/// What a list view's peer follows beyond the common aspects. Row numbers count from 0.
class ListViewPeer : public Peer {
 public:
  virtual void rowCountChanged(int count) = 0;
  virtual void rowChanged(int row) = 0;
  virtual void selectionChanged(int row) = 0;  ///< -1: none
  virtual void ensureVisible(int row) = 0;
  /// The row at that height, in twips from the list's top; -1 when there is none.
  virtual int rowAt(std::int32_t y) const = 0;
  /// The row's upper edge, in twips from the list's top; it need not be in sight.
  virtual std::int32_t topOf(int row) const = 0;
  /// The real width of a column in twips, and its setting.
  virtual std::int32_t columnWidth(int column) const = 0;
  virtual void columnWidthChanged(int column) = 0;
};

/// A report-mode list with optional check boxes and single selection. The rows live here and only
/// here; the peer asks for what it draws. Appending, finding by key and changing a row do not grow
/// with the list; removing and moving take O(log n).
class ListView : public Control {
 public:
  using Control::Control;
  struct Column {
    std::string header;
    std::int32_t width = 0;  ///< twips
  };

  /// Before the form is opened. The user cannot change the width of a column without a header.
  void addColumn(std::string header, std::int32_t width) {
    columns_.push_back({std::move(header), width});
  }
  const std::vector<Column>& columns() const { return columns_; }
  /// The width that the column has now: the user may have changed it.
  std::int32_t columnWidth(int column) const;
  /// Silent.
  void setColumnWidth(int column, std::int32_t width);
  bool hasCheckBoxes() const { return hasCheckBoxes_; }
  void setHasCheckBoxes(bool has) { hasCheckBoxes_ = has; }
  /// From this column on each cell has its own text as its tool tip; 0: none has. Before the form
  /// is opened.
  int firstColumnWithTips() const { return firstColumnWithTips_; }
  void setFirstColumnWithTips(int column) { firstColumnWithTips_ = column; }

  int rowCount() const;
  const ListRow& row(int index) const;
  /// Calls `visit` with every row in order. `visit` must not change the list.
  template <typename Visit>
  void forEachRow(Visit visit) const {
    rows_.forEach([&visit](const auto& row) { visit(*row); });
  }
  /// Row number of a key (its first row's, ASCII letters in any case); -1 when no row has it.
  int indexOf(const std::string& key) const;

  /// The first row from `from` on, going round at the end, whose title begins with the text, ASCII
  /// letters in any case; a title's leading dot may be left out. -1 when there is none.
  int findTitle(const std::string& text, int from) const;

  int append(ListRow row);
  void remove(int index);
  void clear();
  /// Exchanges a row with the one after it.
  void swapWithNext(int index);
  void setTagAndBold(int index, std::string tag, bool bold);
  void setChecked(int index, bool checked);
  void setAllChecked(bool checked);

  int selected() const { return selected_; }  ///< -1: none
  /// Silent.
  void select(int index);
  void ensureVisible(int index);
  /// The row at that height (twips from the list's top); -1 when there is none. Without a peer each
  /// row takes kModelRowHeight, the first one from the top.
  int rowAt(std::int32_t y) const;
  static constexpr std::int32_t kModelRowHeight = 255;
  /// The row's upper edge in twips from the list's top; it need not be in sight.
  std::int32_t topOf(int row) const;

  // What the user does.
  /// Selects the row and raises `onItemClick`, also for the row that is selected already.
  void clickRow(int index);
  /// Raises `onItemCheck` when the tick differs.
  void tick(int index, bool checked);

  Signal<int> onItemClick;
  Signal<int> onItemCheck;
  void accept(ControlVisitor& visitor) override;

 private:
  struct KeyOfRow {
    const std::string& operator()(const std::unique_ptr<ListRow>& row) const { return row->key; }
  };

  ListViewPeer* listPeer() const { return static_cast<ListViewPeer*>(peer()); }
  bool has(int index) const { return index >= 0 && index < rowCount(); }
  ListRow& rowToChange(int index);
  void tellRowsAndSelection();

  std::vector<Column> columns_;
  bool hasCheckBoxes_ = false;
  int firstColumnWithTips_ = 0;
  KeyedSequence<std::unique_ptr<ListRow>, KeyOfRow> rows_;
  int selected_ = -1;
};

}  // namespace tessivo::ui
