// The control panel's playlist: rows, play mark, ticks, entry menu, moving, and the two pages.
#include <algorithm>

#include "panel/frmMain.h"

namespace tessivo {
namespace {

constexpr int kUp = 1;
constexpr int kDown = 2;

}  // namespace

void frmMain::listenToList() {
  tsLists.onClick.listen([this] { clickTab(); });
  lvPlayList.onItemClick.listen(
      [this](int row) { controler_.selectAItem(lvPlayList.row(row).key); });
  lvPlayList.onMouseMove.listen([this](const ui::MouseEvent& event) { listMouseY_ = event.y; });
  lvPlayList.onDoubleClick.listen([this] { playRowUnderPointer(); });
  lvPlayList.onMouseUp.listen([this](const ui::MouseEvent& event) { openEntryMenu(event); });
  lvPlayList.onItemCheck.listen([this](int row) {
    if (!lvPlayList.row(row).checked && chkToDeleteAll.checked()) setDeleteAll(false);
  });
  chkToDeleteAll.onClick.listen([this] { toDeleteAllClicked(); });
  cmdPLAdd.onClick.listen([this] { addFiles(false); });
  cmdPLDelete.onClick.listen([this] { deleteTicked(); });
  timDelayHideDeleteNote.onTimer.listen([this] {
    timDelayHideDeleteNote.setEnabled(false);
    labDeleteNote.setVisible(false);
  });
  mnuPlayMovie.onClick.listen([this] { playRowUnderPointer(); });
  mnuDeleteMovie.onClick.listen([this] { deleteTicked(); });
  mnuAddFilesToPL.onClick.listen([this] { addFiles(false); });
  mnuPlayFiles.onClick.listen([this] { addFiles(true); });
  mnuClearPL.onClick.listen([this] { clearPL(); });
}

void frmMain::listenToMoving() {
  const auto repeats = [this](ui::Button& button, int direction, const char* tag) {
    button.onClick.listen([this, direction] { moveSelected(direction); });
    button.onMouseDown.listen([this, tag](const ui::MouseEvent& event) {
      if (event.button != MouseButton::left) return;
      timDelayQuickMoveItem.setEnabled(true);
      timQuickMoveItem.setTag(tag);
    });
    button.onMouseUp.listen([this](const ui::MouseEvent&) {
      const bool wasRepeating = timQuickMoveItem.enabled();
      timDelayQuickMoveItem.setEnabled(false);
      timQuickMoveItem.setEnabled(false);
      if (wasRepeating) lvPlayList.setFocus();
    });
  };
  repeats(cmdPLUp, kUp, "1");
  repeats(cmdPLDown, kDown, "0");
  timDelayQuickMoveItem.onTimer.listen([this] {
    timDelayQuickMoveItem.setEnabled(false);
    timQuickMoveItem.setEnabled(true);
  });
  timQuickMoveItem.onTimer.listen(
      [this] { (timQuickMoveItem.tag() == "0" ? cmdPLDown : cmdPLUp).click(); });
}

void frmMain::AddAMovieToFaceList(const Movie& movie) {
  ui::ListRow row;
  row.key = movie.strKey;
  row.tag = movie.boolIsPlayItem ? "1" : "0";
  row.subItems = {movie.strFileName, movie.strFilePath};
  row.bold = movie.boolIsPlayItem;
  if (movie.boolIsPlayItem) markedKey_ = movie.strKey;
  const int index = lvPlayList.append(std::move(row));
  lvPlayList.select(index);
  lvPlayList.ensureVisible(index);
  showFileCount();
  // A new row is not ticked, so not every row is.
  if (chkToDeleteAll.checked()) setDeleteAll(false);
}

void frmMain::setPLItemStateByKey(const std::string& key, int state) {
  if (state == 1) selectPLItemByKey(key);
  markRow(key);
}

void frmMain::markRow(const std::string& key) {
  lvPlayList.setTagAndBold(lvPlayList.indexOf(markedKey_), "0", false);
  markedKey_.clear();
  const int row = lvPlayList.indexOf(key);
  if (row < 0) return;
  lvPlayList.setTagAndBold(row, "1", true);
  markedKey_ = key;
}

void frmMain::selectPLItemByKey(const std::string& key) {
  const int row = lvPlayList.indexOf(key);
  if (row < 0) return;
  lvPlayList.select(row);
  lvPlayList.ensureVisible(row);
}

void frmMain::playRow(int row) {
  const std::string key = lvPlayList.row(row).key;
  stop();
  controler_.PlayAMovieByFlag(key);
  setFaceToAPlayState(panelState::kPlaying, false);
  markPlayItem();
}

/// After an item was handed to the engines: one that lets messages through meanwhile may have let
/// another item come.
void frmMain::markPlayItem() {
  if (const auto item = controler_.objGetPlayItem()) setPLItemStateByKey(item->strKey, 1);
}

void frmMain::playRowUnderPointer() {
  const int row = lvPlayList.rowAt(listMouseY_);
  if (row >= 0) playRow(row);
}

void frmMain::openEntryMenu(const ui::MouseEvent& event) {
  if (event.button != MouseButton::right || lvPlayList.rowAt(event.y) < 0) return;
  const Rect& page = picPlayListBackGround.bounds();
  popupMenu(mnuMovieOperations, Point{page.left + event.x, page.top + event.y});
}

/// The menu of the selected row, as if the pointer were there.
void frmMain::openEntryMenuByKey() {
  const int row = lvPlayList.selected();
  if (row < 0) return;
  lvPlayList.ensureVisible(row);
  const Rect& page = picPlayListBackGround.bounds();
  listMouseY_ = lvPlayList.topOf(row) + 1;
  const std::int32_t y = std::clamp(listMouseY_, 0, lvPlayList.bounds().height);
  popupMenu(mnuMovieOperations, Point{page.left + lvPlayList.columnWidth(0), page.top + y});
}

void frmMain::tickAll() {
  if (!chkToDeleteAll.checked()) chkToDeleteAll.click();
}

/// The program ticks or clears the box: what its click does to the rows is held back by the tag.
void frmMain::setDeleteAll(bool ticked) {
  chkToDeleteAll.setTag("1");
  chkToDeleteAll.setChecked(ticked);
  toDeleteAllClicked();
}

void frmMain::toDeleteAllClicked() {
  if (chkToDeleteAll.tag() == "1") {
    chkToDeleteAll.setTag("0");
    return;
  }
  lvPlayList.setAllChecked(chkToDeleteAll.checked());
}

void frmMain::moveSelected(int direction) {
  const int row = lvPlayList.selected();
  MoviePtr neighbour;
  if (row >= 0 && controler_.moveAItemUpDown(direction, lvPlayList.row(row).key, neighbour)) {
    lvPlayList.swapWithNext(direction == kUp ? row - 1 : row);
    lvPlayList.ensureVisible(lvPlayList.selected());
  }
  // The keyboard stays with a button that is held: losing it would end the holding.
  if (!timQuickMoveItem.enabled()) lvPlayList.setFocus();
}

void frmMain::showFileCount() {
  labFileCount.setCaption(std::to_string(lvPlayList.rowCount()));
}

void frmMain::clickTab() {
  picPlayErrNote.setVisible(false);
  showPage(tsLists.selected());
}

/// The page of that tab; none for 0.
void frmMain::showPage(int tab) {
  picPlayErrLLBackGround.setVisible(tab == 2);
  picPlayListBackGround.setVisible(tab == 1);
  if (tab == 1) lvPlayList.setFocus();
  if (tab == 2) lvPlayErrLogList.setFocus();
}

}  // namespace tessivo
