#include "ui/ListView.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/ClearQuickly.h"
#include "base/Text.h"

namespace tessivo::ui {
namespace {

/// `upperText` is in upper case already.
bool beginsWith(const std::string& title, std::string_view upperText) {
  const std::string upper = toUpper(title);
  return upper.starts_with(upperText) ||
         (upper.starts_with('.') && upper.substr(1).starts_with(upperText));
}

}  // namespace

int ListView::rowCount() const {
  return static_cast<int>(rows_.size());
}

const ListRow& ListView::row(int index) const {
  return *rows_.at(static_cast<std::size_t>(index));
}

ListRow& ListView::rowToChange(int index) {
  return *rows_.at(static_cast<std::size_t>(index));
}

int ListView::indexOf(const std::string& key) const {
  const auto index = rows_.indexOfKey(key);
  return index ? static_cast<int>(*index) : -1;
}

int ListView::findTitle(const std::string& text, int from) const {
  const std::string wanted = toUpper(text);
  if (wanted.empty()) return -1;
  for (int i = 0, rows = rowCount(); i < rows; ++i) {
    const int index = (std::max(from, 0) + i) % rows;
    if (beginsWith(row(index).title, wanted)) return index;
  }
  return -1;
}

int ListView::append(ListRow row) {
  rows_.append(std::make_unique<ListRow>(std::move(row)));
  if (listPeer()) listPeer()->rowCountChanged(rowCount());
  return rowCount() - 1;
}

void ListView::remove(int index) {
  if (!has(index)) return;
  rows_.erase(static_cast<std::size_t>(index));
  if (selected_ == index) {
    selected_ = -1;
  } else if (selected_ > index) {
    --selected_;
  }
  tellRowsAndSelection();
}

void ListView::clear() {
  clearQuickly(rows_);
  selected_ = -1;
  tellRowsAndSelection();
}

void ListView::swapWithNext(int index) {
  if (!has(index) || !has(index + 1)) return;
  rows_.swapWithNext(static_cast<std::size_t>(index));
  const int before = selected_;
  if (before == index) selected_ = index + 1;
  if (before == index + 1) selected_ = index;
  if (!listPeer()) return;
  listPeer()->rowChanged(index);
  listPeer()->rowChanged(index + 1);
  if (selected_ != before) listPeer()->selectionChanged(selected_);
}

void ListView::setTagAndBold(int index, std::string tag, bool bold) {
  if (!has(index)) return;
  rowToChange(index).tag = std::move(tag);
  rowToChange(index).bold = bold;
  if (listPeer()) listPeer()->rowChanged(index);
}

void ListView::setChecked(int index, bool checked) {
  if (!has(index)) return;
  rowToChange(index).checked = checked;
  if (listPeer()) listPeer()->rowChanged(index);
}

void ListView::setAllChecked(bool checked) {
  rows_.forEach([checked](const auto& row) { row->checked = checked; });
  changed(Aspect::items);
}

void ListView::select(int index) {
  selected_ = has(index) ? index : -1;
  if (listPeer()) listPeer()->selectionChanged(selected_);
}

void ListView::ensureVisible(int index) {
  if (has(index) && listPeer()) listPeer()->ensureVisible(index);
}

int ListView::rowAt(std::int32_t y) const {
  if (listPeer()) return listPeer()->rowAt(y);
  return y >= 0 && has(y / kModelRowHeight) ? y / kModelRowHeight : -1;
}

std::int32_t ListView::topOf(int row) const {
  return listPeer() ? listPeer()->topOf(row) : row * kModelRowHeight;
}

std::int32_t ListView::columnWidth(int column) const {
  if (listPeer()) return listPeer()->columnWidth(column);
  return columns_.at(static_cast<std::size_t>(column)).width;
}

void ListView::setColumnWidth(int column, std::int32_t width) {
  columns_.at(static_cast<std::size_t>(column)).width = width;
  if (listPeer()) listPeer()->columnWidthChanged(column);
}

void ListView::clickRow(int index) {
  if (!enabled() || !has(index)) return;
  select(index);
  onItemClick.raise(index);
}

void ListView::tick(int index, bool checked) {
  if (!enabled() || !hasCheckBoxes_ || !has(index) || row(index).checked == checked) return;
  setChecked(index, checked);
  onItemCheck.raise(index);
}

void ListView::tellRowsAndSelection() {
  if (!listPeer()) return;
  listPeer()->rowCountChanged(rowCount());
  listPeer()->selectionChanged(selected_);
}

}  // namespace tessivo::ui
