// The control panel's playlist.
#include "panel/frmMain.h"

namespace tessivo {
namespace {

constexpr std::uint32_t kMostDroppedFiles = 500;

}  // namespace

void frmMain::listenToList() {
  lvPlayList.onItemClick.listen(
      [this](int row) { controler_.selectAItem(lvPlayList.row(row).key); });
  lvPlayList.onMouseMove.listen([this](const ui::MouseEvent& event) { listMouseY_ = event.y; });
  lvPlayList.onDoubleClick.listen([this] { playRowUnderPointer(); });
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
}

void frmMain::setPLItemStateByKey(const std::string& key, int state) {
  if (state == 1) selectPLItemByKey(key);
  if (const int old = lvPlayList.indexOf(markedKey_); old >= 0) {
    lvPlayList.setTagAndBold(old, "0", false);
  }
  markedKey_.clear();
  if (const int row = lvPlayList.indexOf(key); row >= 0) {
    lvPlayList.setTagAndBold(row, "1", true);
    markedKey_ = key;
  }
}

void frmMain::selectPLItemByKey(const std::string& key) {
  const int row = lvPlayList.indexOf(key);
  if (row < 0) return;
  lvPlayList.select(row);
  lvPlayList.ensureVisible(row);
}

void frmMain::playRowUnderPointer() {
  const int row = lvPlayList.rowAt(listMouseY_);
  if (row < 0) return;
  const std::string key = lvPlayList.row(row).key;
  stop();
  const bool plays = controler_.PlayAMovieByFlag(key);
  setFaceToAPlayState(plays ? panelState::kPlaying : panelState::kStopped, false);
  setPLItemStateByKey(key, 1);
}

void frmMain::dropFiles(const ui::DroppedFiles& files) {
  if (files.count() > kMostDroppedFiles) {
    labPlayErrNote.setCaption("您选择的文件数量太多！");
    return;
  }
  std::vector<std::string> paths{""};
  for (std::uint32_t i = 0; i < files.count(); ++i) paths.push_back(files.path(i));
  controler_.BatchAddMovie(paths, false);
}

void frmMain::showFileCount() {
  labFileCount.setCaption(std::to_string(lvPlayList.rowCount()));
}

}  // namespace tessivo
