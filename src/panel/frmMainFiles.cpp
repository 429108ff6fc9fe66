// Adding files to the playlist and taking entries out of it.
#include "panel/AddFilesDialog.h"
#include "panel/frmMain.h"
#include "panel/frmMsgBox.h"
#include "screen/PlayRule.h"

namespace tessivo {
namespace {

constexpr std::uint32_t kMostDroppedFiles = 500;

}  // namespace

void frmMain::addFiles(bool play) {
  const auto answer = services_.fileDialogs.openFiles(addFilesRequest(nativeHandle()));
  if (answer.outcome == FileDialogOutcome::tooMany) notice("错误：您选择的文件过多！");
  if (answer.outcome == FileDialogOutcome::chosen) {
    auto paths = chosenPaths(answer.text);
    paths.empty() ? notice("文件路径不合法") : controler_.BatchAddMovie(std::move(paths), play);
  }
  lvPlayList.setFocus();
}

void frmMain::dropFiles(const ui::DroppedFiles& files) {
  if (!enabled()) return;  // a dialog is up
  if (files.count() > kMostDroppedFiles) return notice("您选择的文件数量太多！");
  std::vector<std::string> paths{""};
  for (std::uint32_t i = 0; i < files.count(); ++i) paths.push_back(files.path(i));
  controler_.BatchAddMovie(std::move(paths), false);
}

void frmMain::notice(const std::string& text) {
  showNotice(services_.toolkit, *this, text);
}

void frmMain::deleteTicked() {
  if (lvPlayList.rowCount() == 0) return setDeleteAll(false);
  std::deque<std::string> ticked;
  lvPlayList.forEachRow([&ticked](const ui::ListRow& row) {
    if (row.checked) ticked.push_back(row.key);
  });
  if (ticked.empty()) {
    labDeleteNote.setVisible(true);
    timDelayHideDeleteNote.setEnabled(false);
    timDelayHideDeleteNote.setEnabled(true);
    return;
  }
  // A deletion under way takes them on: what both want to delete is gone when its turn comes again.
  keysCollected_ += ticked.size();
  keysToDelete_.insert(keysToDelete_.end(), ticked.begin(), ticked.end());
  if (!deleting_.isRunning()) deleting_.run([this] { return deleteNext(); });
  lvPlayList.setFocus();
}

bool frmMain::deleteNext() {
  if (!keysToDelete_.empty()) {
    const std::string key = std::move(keysToDelete_.front());
    keysToDelete_.pop_front();
    if (const int row = lvPlayList.indexOf(key); row >= 0) {
      lvPlayList.select(row);
      deleteEntry(key);
    }
  }
  if (!keysToDelete_.empty()) return true;
  endDeleting();
  return false;
}

void frmMain::endDeleting() {
  keysCollected_ = 0;
  showWork();
  if (chkToDeleteAll.checked()) setDeleteAll(false);
}

void frmMain::deleteEntry(const std::string& key) {
  const int row = lvPlayList.indexOf(key);
  if (row < 0) return;
  const bool wasPlayItem = lvPlayList.row(row).tag == "1";
  MoviePtr next;
  controler_.deleteAItemFromPL(key, next);
  // An engine that is given another path may let messages through: the row may lie elsewhere now.
  lvPlayList.remove(lvPlayList.indexOf(key));
  showFileCount();
  if (!next) {
    if (controler_.lngGetPlayListItemCount() > 0) return;
    stop();
    controler_.setFilePath("");
    return;
  }
  // What was playing has been stopped: another item is the current one.
  const bool isStopped = controler_.lngScreenState() == playState::kStopped;
  if (wasPlayItem && isStopped) setFaceToAPlayState(panelState::kStopped, false);
  lvPlayList.select(lvPlayList.indexOf(next->strKey));
  if (next->boolIsPlayItem) markRow(next->strKey);
}

void frmMain::clearPL() {
  keysToDelete_.clear();
  stop();
  // Before the engines are handed the empty path: one that lets messages through may let a file
  // come.
  lvPlayList.clear();
  markedKey_.clear();
  controler_.deleteAllItemFromPL();
  txtFileName.setCaption(playItemName());
  showFileCount();
  setDeleteAll(false);
  lvPlayList.setFocus();
}

void frmMain::showAdding(std::int32_t done, std::int32_t total) {
  addingText_ =
      total == 0 ? "" : "正在添加: " + std::to_string(done) + " / " + std::to_string(total);
  showWork();
}

/// Says what is going on while it takes long.
void frmMain::showWork() {
  const std::size_t done = keysCollected_ - keysToDelete_.size();
  const bool deletes = deleting_.isRunning() && keysCollected_ > 0;
  labWork.setCaption(deletes ? "正在删除: " + std::to_string(done) + " / " +
                                   std::to_string(keysCollected_)
                             : addingText_);
  labWork.setVisible(!labWork.caption().empty() && !playListHidden_);
}

void frmMain::finishWork() {
  if (!deleting_.isRunning()) return;
  hide();
  deleting_.finish();
}

}  // namespace tessivo
