// The control panel's transport: play, pause, stop, progress, volume, engine rule, loop mode.
#include "base/Text.h"
#include "base/TimeText.h"
#include "panel/frmMain.h"
#include "screen/PlayRule.h"
#include "ui/Icons.h"

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
  int icon;
};

RecycleMode recycleMode(std::int32_t type) {
  if (type == 1) return {"单曲循环", "正处于单曲循环播放模式", icon::kRepeatOne};
  if (type == 2) return {"列表循环", "正处于列表循环播放模式", icon::kRepeatList};
  return {"顺序播放", "正处于顺序播放模式", icon::kInOrder};
}

}  // namespace

void frmMain::fillRules() {
  comboPlayRuler.addItem("仅使用RealPlayer播放引擎", playRule::kRealOnly);
  comboPlayRuler.addItem("仅使用MediaPlayer播放引擎", playRule::kMediaOnly);
  comboPlayRuler.addItem("优先使用RealPlayer播放引擎", playRule::kPreferReal);
  comboPlayRuler.addItem("优先使用MediaPlayer播放引擎", playRule::kPreferMedia);
  comboPlayRuler.setListIndex(0);
}

void frmMain::listenToTransport() {
  cmdPlay.onClick.listen([this] { playOrPause(); });
  cmdStop.onClick.listen([this] { stop(); });
  cmdSetScreen.onClick.listen([this] { setScreen(); });
  comboPlayRuler.onClick.listen([this] { changeRule(); });
  cmdRecyclePlayPL.onClick.listen([this] { stepRecycleMode(); });
  picJingFangYin.onClick.listen([this] { toggleMute(); });
  timSetFangJingYinButton.onTimer.listen([this] { checkHover(); });
}

void frmMain::listenToSliders() {
  sldJinDu.onMouseDown.listen([this](const ui::MouseEvent& event) {
    if (event.button == MouseButton::left) draggingProgress_ = true;
  });
  sldJinDu.onKeyDown.listen([this](ui::KeyCode key) {
    if (movesSlider(key)) draggingProgress_ = true;
  });
  sldJinDu.onScroll.listen([this] { showDraggedProgress(); });
  sldJinDu.onMouseUp.listen([this](const ui::MouseEvent&) { releaseProgress(); });
  sldJinDu.onKeyUp.listen([this](ui::KeyCode key) {
    if (movesSlider(key)) releaseProgress();
  });
  // The release of the key or button will not be heard any more.
  sldJinDu.onLoseFocus.listen([this] { releaseProgress(); });
  // What moves the slider at one go (the wheel, Home, End) has no release.
  sldJinDu.onChange.listen([this] {
    if (!draggingProgress_) controler_.setJinDu(sldJinDu.value());
  });
  sldVolume.onScroll.listen([this] {
    changeVolume();
    setFaceToAPlayState(panelState::kSoundOn, false);
  });
  sldVolume.onChange.listen([this] { changeVolume(); });
}

void frmMain::playOrPause() {
  if (cmdPlay.tag() == "1") {
    controler_.pause();
    setFaceToAPlayState(panelState::kPaused, false);
  } else {
    startPlaying();
  }
}

void frmMain::startPlaying() {
  setFaceToAPlayState(controler_.play() ? panelState::kPlaying : panelState::kPaused, false);
}

void frmMain::stop() {
  controler_.stopPlay();
  setFaceToAPlayState(panelState::kStopped, false);
}

void frmMain::releaseProgress() {
  if (!draggingProgress_) return;
  controler_.setJinDu(sldJinDu.value());
  draggingProgress_ = false;
  sldJinDu.setToolTip("");
}

/// Shows where the thumb is without going there.
void frmMain::showDraggedProgress() {
  const std::int64_t value = sldJinDu.value();
  const std::int64_t percent = sldJinDu.max() > 0 ? value * 100 / sldJinDu.max() : 0;
  const std::string position = strGetTimStringBySecValue(sldJinDu.value());
  labMoviePosi.setCaption(position);
  sldJinDu.setToolTip(position + " / " + strGetTimStringBySecValue(sldJinDu.max()) + " (" +
                      std::to_string(percent) + "%)");
}

void frmMain::changeVolume() {
  controler_.setVolume(static_cast<std::int16_t>(sldVolume.value()));
}

void frmMain::toggleMute() {
  controler_.setMute(!controler_.boolGetMuteValue());
  setFaceToAPlayState(controler_.boolGetMuteValue() ? panelState::kMuted : panelState::kSoundOn,
                      false);
}

void frmMain::setMute(bool mute) {
  picJingFangYin.setIcon(mute ? icon::kMuted : icon::kSoundOn);
}

/// The picture has a border while the pointer is over it; its tag says which it has.
void frmMain::checkHover() {
  const bool over =
      services_.windows.isUnder(picJingFangYin.nativeHandle(), services_.pointer.position());
  if (over == (picJingFangYin.tag() == "1")) return;
  picJingFangYin.setTag(over ? "1" : "0");
  picJingFangYin.setBorder(over);
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
  const std::int32_t type = config.lngRecyclePlayType();
  config.lngRecyclePlayType(type == 1 || type == 2 ? type + 1 : 1);
  showRecycleMode();
}

void frmMain::showRecycleMode() {
  const RecycleMode mode = recycleMode(controler_.config().lngRecyclePlayType());
  cmdRecyclePlayPL.setCaption(mode.caption);
  cmdRecyclePlayPL.setToolTip(mode.toolTip);
  cmdRecyclePlayPL.setIcon(mode.icon);
}

void frmMain::setPlayButtonState(int state) {
  if (state != 1 && state != 2) return;
  cmdPlay.setCaption(state == 1 ? "暂停" : "播放");
  cmdPlay.setTag(std::to_string(state));
  cmdPlay.setIcon(state == 1 ? icon::kPause : icon::kPlay);
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
    case panelState::kSoundOn:
    case panelState::kMuted:
      setMute(state == panelState::kMuted);
      break;
    case panelState::kFullScreen:
    case panelState::kNormal:
      showScreenState(state == panelState::kFullScreen);
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
    if (sldJinDu.max() != length) sldJinDu.setRange(0, length);
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
  markPlayItem();
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

}  // namespace tessivo
