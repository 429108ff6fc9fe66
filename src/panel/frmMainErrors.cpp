// The log of playback errors, and what follows an error.
#include "panel/frmMain.h"
#include "platform/DateTimeText.h"
#include "screen/PlayRule.h"

namespace tessivo {

void frmMain::listenToErrorLog() {
  cmdClearPlayErrLL.onClick.listen([this] { clearErrorLog(); });
  // The new-error marker leads to what it announces.
  const auto show = [this] { tsLists.choose(2); };
  picPlayErrNote.onClick.listen(show);
  picPlayErrSign.onClick.listen(show);
  labPlayErrNote.onClick.listen(show);
  lvPlayErrLogList.onMouseUp.listen([this](const ui::MouseEvent&) {
    if (lvPlayErrLogList.columnWidth(0) == kTickColumn) return;
    lvPlayErrLogList.setColumnWidth(0, kTickColumn);
  });
}

void frmMain::playErrEventProcess(const std::string& reason) {
  const auto failed = controler_.objGetPlayItem();
  if (!failed) return stop();
  const std::string path = failed->strFilePath;
  const std::string key = failed->strKey;
  const bool wasLast =
      controler_.lngGetIndexByItemFlag(key) == controler_.lngGetPlayListItemCount();
  // The user may have gone to another row since the item was started; that one is not to go.
  selectPLItemByKey(key);
  deleteEntry(key);
  logError(reason, path);
  if (playListHidden_) hideOrShowPL();
  picPlayErrNote.setVisible(true);
  goOnAfterError(wasLast);
  if (controler_.config().boolPopuMainFaceForErr()) controler_.showMainFace();
}

void frmMain::logError(const std::string& reason, const std::string& path) {
  ui::ListRow row;
  row.key = std::to_string(++errorsLogged_);
  row.subItems = {dateTimeText(services_.clock.now()), reason, path};
  const int index = lvPlayErrLogList.append(std::move(row));
  lvPlayErrLogList.select(index);
  lvPlayErrLogList.ensureVisible(index);
  labPlayErrLogCount.setCaption(std::to_string(lvPlayErrLogList.rowCount()));
}

void frmMain::goOnAfterError(bool wasLast) {
  constexpr std::int32_t kListLoop = 2;
  // An engine that was handed another path let messages through, and something else came to play.
  if (controler_.lngScreenState() != playState::kStopped) return;
  const SysConfig& config = controler_.config();
  if (wasLast && config.lngRecyclePlayType() != kListLoop) {
    stop();
    controler_.showMainFace();
  } else if (!config.boolPlayNextOnErr()) {
    stop();
  } else if (wasLast) {
    playNext(stepDirection::kNext, true);
  } else {
    startPlaying();
  }
}

void frmMain::clearErrorLog() {
  picPlayErrNote.setVisible(false);
  lvPlayErrLogList.clear();
  labPlayErrLogCount.setCaption("0");
}

}  // namespace tessivo
