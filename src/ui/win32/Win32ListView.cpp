#include "ui/win32/Win32ListView.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/win32/WindowsText.h"

namespace tessivo::ui {
namespace {

constexpr UINT kUnticked = 1;  ///< the system's numbers of the two state pictures
constexpr UINT kTicked = 2;

std::string cellOf(const ListRow& row, int column) {
  if (column == 0) return row.title;
  const auto index = static_cast<std::size_t>(column) - 1;
  return column > 0 && index < row.subItems.size() ? row.subItems[index] : std::string();
}

bool isButtonMessage(UINT message) {
  return message > WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK;
}

}  // namespace

Win32ListView::Win32ListView(ListView& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context),
                  {.clicks = false, .captures = false, .ownRightButton = true}),
      model_(model) {
  create(WC_LISTVIEWW, "", LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS,
         WS_EX_CLIENTEDGE);
  const DWORD extras =
      LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | (model.hasCheckBoxes() ? LVS_EX_CHECKBOXES : 0);
  send(LVM_SETEXTENDEDLISTVIEWSTYLE, extras, static_cast<LPARAM>(extras));
  send(LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK);
  addColumns();
  rowCountChanged(model.rowCount());
  selectionChanged(model.selected());
}

void Win32ListView::addColumns() {
  twipsOfColumns_ = context().twips().x;
  int number = 0;
  for (const auto& column : model_.columns()) {
    std::wstring header = toWide(column.header);
    LVCOLUMNW real{};
    real.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    real.pszText = header.data();
    real.cx = tessivo::toPixels(column.width, context().twips().x);
    real.iSubItem = number;
    send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(number++), reinterpret_cast<LPARAM>(&real));
  }
}

void Win32ListView::apply(Aspect aspect) {
  ControlWindow::apply(aspect);
  if (aspect == Aspect::items && window()) InvalidateRect(window(), nullptr, FALSE);
  if (aspect == Aspect::scale) rescaleColumns();
}

/// What the user made of the widths is kept, in proportion.
void Win32ListView::rescaleColumns() {
  const double now = context().twips().x;
  for (int column = 0; column < static_cast<int>(model_.columns().size()); ++column) {
    const auto width = static_cast<double>(columnPixels(column)) * twipsOfColumns_ / now;
    send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), roundedToInt32(width).value_or(0));
  }
  twipsOfColumns_ = now;
}

int Win32ListView::columnPixels(int column) const {
  return static_cast<int>(send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
}

std::int32_t Win32ListView::columnWidth(int column) const {
  const std::int32_t designed = model_.columns().at(static_cast<std::size_t>(column)).width;
  const std::int32_t pixels = columnPixels(column);
  // A width that is as set is told as set, without what the pixels' size rounds away.
  const bool untouched = pixels == tessivo::toPixels(designed, context().twips().x);
  return untouched ? designed : tessivo::toTwips(pixels, context().twips().x);
}

void Win32ListView::columnWidthChanged(int column) {
  const std::int32_t width = model_.columns().at(static_cast<std::size_t>(column)).width;
  send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column),
       tessivo::toPixels(width, context().twips().x));
}

void Win32ListView::rowCountChanged(int count) {
  // Rows after a removed one move up.
  if (count < toldCount_) noteDirty(0, toldCount_);
  toldCount_ = count;
  postpone();
}

void Win32ListView::rowChanged(int row) {
  noteDirty(row, row);
  postpone();
}

void Win32ListView::selectionChanged(int /*row*/) {
  selectionTold_ = true;
  postpone();
}

void Win32ListView::ensureVisible(int row) {
  rowToShow_ = row;
  postpone();
}

void Win32ListView::noteDirty(int first, int last) {
  const bool none = dirtyRows_.first > dirtyRows_.second;
  dirtyRows_ =
      none ? std::pair(first, last)
           : std::pair(std::min(first, dirtyRows_.first), std::max(last, dirtyRows_.second));
}

void Win32ListView::carryOver() {
  quiet_ = true;
  const int count = model_.rowCount();
  if (count != send(LVM_GETITEMCOUNT)) {
    send(LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
  }
  if (std::exchange(selectionTold_, false)) showSelection(model_.selected());
  const int rowToShow = std::exchange(rowToShow_, -1);
  if (hasRow(rowToShow)) send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(rowToShow), FALSE);
  const auto [first, last] = std::exchange(dirtyRows_, std::pair(0, -1));
  if (last >= count && window()) {
    InvalidateRect(window(), nullptr, TRUE);
  } else {
    redrawRows(first, last);
  }
  quiet_ = false;
}

/// Those in sight: the control would visit all the others, too.
void Win32ListView::redrawRows(int first, int last) {
  const auto top = static_cast<int>(send(LVM_GETTOPINDEX));
  const auto page = static_cast<int>(send(LVM_GETCOUNTPERPAGE)) + 1;
  first = std::max(first, top);
  last = std::min(last, top + page);
  if (first <= last) send(LVM_REDRAWITEMS, static_cast<WPARAM>(first), last);
}

void Win32ListView::showSelection(int row) {
  // A control with single selection may visit all its rows to take the selection from the other
  // ones. So it is told which one that is, and is a control with many for as long.
  const auto style = GetWindowLongPtrW(window(), GWL_STYLE);
  SetWindowLongPtrW(window(), GWL_STYLE, style & ~LONG_PTR{LVS_SINGLESEL});
  if (selectedRow_ >= 0 && selectedRow_ != row) setRowState(selectedRow_, 0);
  const LRESULT others = selectedRow_ >= 0 && selectedRow_ == row ? 1 : 0;
  if (send(LVM_GETSELECTEDCOUNT) > others) setRowState(-1, 0);  // it lost track of them
  if (row >= 0) setRowState(row, LVIS_SELECTED | LVIS_FOCUSED);
  selectedRow_ = row;
  SetWindowLongPtrW(window(), GWL_STYLE, style);
}

/// Row -1: of all rows.
void Win32ListView::setRowState(int row, UINT state) {
  LVITEMW item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  item.state = state;
  send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

int Win32ListView::rowAt(std::int32_t y) const {
  const auto top = static_cast<int>(send(LVM_GETTOPINDEX));
  RECT first{};
  if (!hasRow(top) || !rowEdges(top, first)) return -1;
  const LONG below = tessivo::toPixels(y, context().twips().y) - first.top;
  const LONG height = first.bottom - first.top;
  const int row = below < 0 || height <= 0 ? -1 : top + static_cast<int>(below / height);
  return hasRow(row) ? row : -1;
}

bool Win32ListView::rowEdges(int row, RECT& edges) const {
  edges.left = LVIR_BOUNDS;
  return send(LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&edges)) != 0;
}

std::int32_t Win32ListView::topOf(int row) const {
  RECT edges{};
  return rowEdges(row, edges) ? tessivo::toTwips(edges.top, context().twips().y) : -1;
}

LRESULT Win32ListView::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // The header tells the list, not the form.
  if (message == WM_NOTIFY && keepsWidth(*reinterpret_cast<const NMHDR*>(lParam))) return TRUE;
  if (message == WM_MOUSEMOVE && model_.firstColumnWithTips() > 0) {
    showCellTip({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    // The tool tips do not see the move with which they learn of the cell: a pointer that rests
    // there after one long move would never get its tip.
    context().tellToolTips({window, message, wParam, lParam, 0, {}});
  }
  if (!isButtonMessage(message)) return ControlWindow::handle(window, message, wParam, lParam);
  const auto alive = input().alive();
  inMouse_ = true;
  const LRESULT result = ControlWindow::handle(window, message, wParam, lParam);
  if (*alive) inMouse_ = false;
  return result;
}

bool Win32ListView::keepsWidth(const NMHDR& header) const {
  if (header.code != HDN_BEGINTRACKW && header.code != HDN_BEGINTRACKA &&
      header.code != HDN_DIVIDERDBLCLICKW && header.code != HDN_DIVIDERDBLCLICKA) {
    return false;
  }
  const auto column = static_cast<std::size_t>(reinterpret_cast<const NMHEADERW&>(header).iItem);
  return column < model_.columns().size() && model_.columns()[column].header.empty();
}

std::optional<LRESULT> Win32ListView::onNotify(NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOW:
      describe(reinterpret_cast<NMLVDISPINFOW&>(header).item);
      return 0;
    case static_cast<UINT>(NM_CUSTOMDRAW):
      return draw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
    case LVN_ITEMCHANGED:
      noteChange(reinterpret_cast<const NMLISTVIEW&>(header));
      return 0;
    case static_cast<UINT>(NM_CLICK):
      click(reinterpret_cast<const NMITEMACTIVATE&>(header), false);
      return 0;
    case static_cast<UINT>(NM_DBLCLK):
      click(reinterpret_cast<const NMITEMACTIVATE&>(header), true);
      return 0;
    case static_cast<UINT>(NM_RCLICK):
      rightClick(reinterpret_cast<const NMITEMACTIVATE&>(header));
      return 1;
    case LVN_BEGINDRAG:
    case LVN_BEGINRDRAG:
      // A press that becomes a drag is no click, but selects all the same.
      model_.clickRow(reinterpret_cast<const NMLISTVIEW&>(header).iItem);
      return 0;
    case LVN_ODFINDITEMW:
      return find(reinterpret_cast<const NMLVFINDITEMW&>(header));
    case LVN_ODFINDITEMA:
      return -1;
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_SPACE) tickWithKey();
      return 0;
    default:
      return std::nullopt;
  }
}

void Win32ListView::describe(LVITEMW& item) {
  if (!hasRow(item.iItem)) return;
  const ListRow& row = model_.row(item.iItem);
  if (item.mask & LVIF_TEXT) {
    cellText_ = toWide(cellOf(row, item.iSubItem));
    item.pszText = cellText_.data();
  }
  if ((item.mask & LVIF_STATE) && model_.hasCheckBoxes()) {
    item.stateMask |= LVIS_STATEIMAGEMASK;
    item.state = (item.state & ~LVIS_STATEIMAGEMASK) |
                 INDEXTOSTATEIMAGEMASK(row.checked ? kTicked : kUnticked);
  }
}

/// What the user types, from the row after the one that the letters so far have found.
LRESULT Win32ListView::find(const NMLVFINDITEMW& search) const {
  if (!(search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !search.lvfi.psz) return -1;
  return model_.findTitle(fromWide(search.lvfi.psz), search.iStart);
}

LRESULT Win32ListView::draw(NMLVCUSTOMDRAW& drawing) const {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const auto row = static_cast<int>(drawing.nmcd.dwItemSpec);
  const bool bold = hasRow(row) && model_.row(row).bold;
  const auto& fonts = context().fonts();
  SelectObject(drawing.nmcd.hdc, bold ? fonts.bold() : fonts.plain());
  return CDRF_NEWFONT;
}

/// The user selects with the keys. With the mouse, the click that follows tells more.
void Win32ListView::noteChange(const NMLISTVIEW& change) {
  const bool selects = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
  if (selects) selectedRow_ = change.iItem;
  if (quiet_ || !selects || !hasRow(change.iItem) || inMouse_) return;
  model_.clickRow(change.iItem);
}

void Win32ListView::click(const NMITEMACTIVATE& where, bool isDouble) {
  const auto alive = input().alive();
  const int row = where.iItem;
  if (!hasRow(row)) {
    // The system takes the selection away on a click beside the rows; it is the model's.
    selectionChanged(model_.selected());
  } else {
    const bool onBox = isOnBox(where.ptAction);
    model_.clickRow(row);
    if (*alive && onBox && hasRow(row)) model_.tick(row, !model_.row(row).checked);
  }
  if (!*alive) return;
  isDouble ? model_.doubleClick() : model_.click();
}

void Win32ListView::rightClick(const NMITEMACTIVATE& where) {
  const auto alive = input().alive();
  POINT point = where.ptAction;
  model_.clickRow(where.iItem);
  if (*alive && !hasRow(where.iItem)) selectionChanged(model_.selected());
  if (*alive) model_.mouseUp(input().eventAt(MouseButton::right, point));
}

void Win32ListView::tickWithKey() {
  const int row = model_.selected();
  if (hasRow(row)) model_.tick(row, !model_.row(row).checked);
}

bool Win32ListView::isOnBox(POINT point) const {
  if (!model_.hasCheckBoxes()) return false;
  LVHITTESTINFO hit{};
  hit.pt = point;
  send(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  return hit.flags == LVHT_ONITEMSTATEICON;
}

void Win32ListView::showCellTip(POINT point) {
  LVHITTESTINFO hit{};
  hit.pt = point;
  send(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const std::pair<int, int> cell{hit.iItem, hit.iSubItem};
  if (cell == tipCell_) return;
  tipCell_ = cell;
  const bool has = hasRow(cell.first) && cell.second >= model_.firstColumnWithTips();
  context().setToolTip(window(), has ? cellOf(model_.row(cell.first), cell.second) : std::string());
}

}  // namespace tessivo::ui
