// The control panel's transport: play, pause, stop, progress, volume, engine rule, loop mode.
#include "base/Text.h"
#include "base/TimeText.h"
#include "panel/frmMain.h"
#include "screen/PlayRule.h"

namespace tessivo {
namespace {

constexpr ui::KeyCode kPageUp = 33;
constexpr ui::KeyCode kPageDown = 34;
constexpr ui::KeyCode kLeft = 37;
constexpr ui::KeyCode kDown = 40;

bool movesSlider(ui::KeyCode key) {
  return key == kPageUp || key == kPageDown || (key >= kLeft && key <= kDown);
}

struct RecycleMode {
  const char* caption;
  const char* toolTip;
};

RecycleMode recycleMode(std::int32_t type) {
  if (type == 1) return {"单曲循环", "正处于单曲循环播放模式"};
  if (type == 2) return {"列表循环", "正处于列表循环播放模式"};
  return {"顺序播放", "正处于顺序播放模式"};
}

}  // namespace

void frmMain::listenToTransport() {
  cmdPlay.onClick.listen([this] { playOrPause(); });
  cmdStop.onClick.listen([this] { stop(); });
  comboPlayRuler.onClick.listen([this] { changeRule(); });
  cmdRecyclePlayPL.onClick.listen([this] { stepRecycleMode(); });
}

void frmMain::listenToSliders() {
  sldJinDu.onMouseDown.listen([this](const ui::MouseEvent&) { draggingProgress_ = true; });
  sldJinDu.onKeyDown.listen([this](ui::KeyCode key) {
    if (movesSlider(key)) draggingProgress_ = true;
  });
  sldJinDu.onScroll.listen(
      [this] { labMoviePosi.setCaption(strGetTimStringBySecValue(sldJinDu.value())); });
  sldJinDu.onMouseUp.listen([this](const ui::MouseEvent&) { releaseProgress(); });
  sldJinDu.onKeyUp.listen([this](ui::KeyCode key) {
    if (movesSlider(key)) releaseProgress();
  });
  const auto setVolume = [this] {
    controler_.setVolume(static_cast<std::int16_t>(sldVolume.value()));
  };
  sldVolume.onScroll.listen(setVolume);
  sldVolume.onChange.listen(setVolume);
}

void frmMain::playOrPause() {
  if (cmdPlay.tag() == "1") {
    controler_.pause();
    setFaceToAPlayState(panelState::kPaused, false);
  } else {
    setFaceToAPlayState(controler_.play() ? panelState::kPlaying : panelState::kPaused, false);
  }
}

void frmMain::stop() {
  controler_.stopPlay();
  setFaceToAPlayState(panelState::kStopped, false);
}

void frmMain::releaseProgress() {
  if (!draggingProgress_) return;
  controler_.setJinDu(sldJinDu.value());
  draggingProgress_ = false;
}

void frmMain::changeRule() {
  if (initialising_ || comboPlayRuler.listIndex() < 0) return;
  const std::int32_t rule =
      comboPlayRuler.items()[static_cast<std::size_t>(comboPlayRuler.listIndex())].data;
  if (rule == ruleApplied_) return;
  ruleApplied_ = rule;
  const bool wasPlaying = controler_.lngScreenState() == playState::kPlaying;
  controler_.setPlayRuler(rule);
  setFaceToAPlayState(panelState::kStopped, false);
  if (wasPlaying) playOrPause();
}

void frmMain::stepRecycleMode() {
  SysConfig& config = controler_.config();
  config.lngRecyclePlayType(config.lngRecyclePlayType() % 3 + 1);
  showRecycleMode();
}

void frmMain::showRecycleMode() {
  const RecycleMode mode = recycleMode(controler_.config().lngRecyclePlayType());
  cmdRecyclePlayPL.setCaption(mode.caption);
  cmdRecyclePlayPL.setToolTip(mode.toolTip);
}

void frmMain::setPlayButtonState(int state) {
  if (state != 1 && state != 2) return;
  cmdPlay.setCaption(state == 1 ? "暂停" : "播放");
  cmdPlay.setTag(std::to_string(state));
}

std::string frmMain::playItemName() const {
  const auto item = controler_.objGetPlayItem();
  return item ? item->strFileName : "";
}

void frmMain::setFaceToAPlayState(int state, bool refresh) {
  const std::string name = playItemName();
  switch (state) {
    case panelState::kPlaying:
      labPlayState1.setCaption("正在播放: ");
      setPlayButtonState(1);
      txtFileName.setCaption(name);
      labPlayErrNote.setCaption("");
      break;
    case panelState::kPaused:
      labPlayState1.setCaption("暂停播放: ");
      setPlayButtonState(2);
      break;
    case panelState::kStopped:
      labPlayState1.setCaption("停止: ");
      setJinDu(0, "00:00:00", -1, "X");
      setPlayButtonState(2);
      txtFileName.setCaption(name);
      break;
    default:
      break;
  }
  if (refresh) repaint();
}

void frmMain::setJinDu(std::int32_t, std::int32_t position, const std::string& positionText,
                       std::int32_t length, const std::string& lengthText) {
  setJinDu(position, positionText, length, lengthText);
}

void frmMain::setJinDu(std::int32_t position, const std::string& positionText, std::int32_t length,
                       const std::string& lengthText) {
  if (draggingProgress_ || length == 0) return;
  labMoviePosi.setCaption(positionText);
  if (length != -1) {
    labSlidMax.setCaption(std::to_string(length) + "秒");
    sldJinDu.setRange(0, length);
  }
  sldJinDu.setValue(position);
  if (toUpper(lengthText) != "X") labMovieLen.setCaption(lengthText);
}

void frmMain::setFaceBySysConfigPara(const SysConfig& config) {
  sldVolume.setValue(config.intVolumeValue());
  for (std::size_t i = 0; i < comboPlayRuler.items().size(); ++i) {
    if (comboPlayRuler.items()[i].data == config.lngPlayRuler()) {
      comboPlayRuler.setListIndex(static_cast<int>(i));
    }
  }
  ruleApplied_ = config.lngPlayRuler();
  showRecycleMode();
  if (config.boolSavePlayList() && controler_.objGetPlayItem()) {
    setJinDu(
        config.lngCurrentPlayPosition(), strGetTimStringBySecValue(config.lngCurrentPlayPosition()),
        config.lngCurrentPlayItemLen(), strGetTimStringBySecValue(config.lngCurrentPlayItemLen()));
  }
  txtFileName.setCaption(playItemName());
  initialising_ = false;
}

bool frmMain::playNext(int direction, bool wrap) {
  stop();
  MoviePtr previous;
  MoviePtr now;
  controler_.playNextPreviousPlayItem(direction, wrap, previous, now);
  if (!now) return false;
  setPLItemStateByKey(now->strKey, 1);
  controler_.play();
  setFaceToAPlayState(panelState::kPlaying, false);
  return true;
}

void frmMain::playOverEventProcess() {
  switch (controler_.config().lngRecyclePlayType()) {
    case 1:
      stop();
      if (controler_.play()) setFaceToAPlayState(panelState::kPlaying, false);
      break;
    case 2:
      playNext(stepDirection::kNext, true);
      break;
    default:
      if (!playNext(stepDirection::kNext, false)) controler_.showMainFace();
      break;
  }
}

void frmMain::playErrEventProcess(const std::string& reason) {
  stop();
  labPlayErrNote.setCaption(playItemName() + ": " + reason);
  const SysConfig& config = controler_.config();
  // Without wrap-around, so that a list of unplayable files comes to an end.
  const std::string note = labPlayErrNote.caption();
  if (config.boolPlayNextOnErr() && playNext(stepDirection::kNext, false)) {
    labPlayErrNote.setCaption(note);
  }
  if (config.boolPopuMainFaceForErr()) controler_.showMainFace();
}

}  // namespace tessivo
