#include "screen/ScreenMenu.h"

#include "monitors/cMonitor.h"
#include "screen/PlayRule.h"

namespace tessivo {
namespace {

constexpr const char* kMainScreen = "主屏幕";
constexpr const char* kOtherScreen = "屏幕";
constexpr const char* kCancel = "取消";

}  // namespace

ScreenMenu::ScreenMenu(const Displays& displays)
    : monitors_(displays),
      root_("mnuPopuMenu", ""),
      mnuPlay_(root_.add("mnuPlay", "播放")),
      mnuPause_(root_.add("mnuPause", "暂停")),
      mnuStop_(root_.add("mnuStop", "停止")),
      mnuFangYin_((root_.addSeparator("mnuL1"), root_.add("mnuFangYin", "放音"))),
      mnuJingYin_(root_.add("mnuJingYin", "静音")),
      mnuFullScreenTo_((root_.addSeparator("mnuL2"), root_.add("mnuFullScreenTo", "全屏到>"))),
      mnuExitFullScreen_(root_.add("mnuExitFullScreen", "退出全屏")),
      mnuShowMainFace_(
          (root_.addSeparator("mnuL3"), root_.add("mnuShowMainFace", "显示控制面板"))) {
  const auto raises = [this](ui::MenuItem& item, std::int32_t code) {
    item.onClick.listen([this, code] { chosen.raise(code); });
  };
  raises(mnuExitFullScreen_, menuCode::kExitFullScreen);
  raises(mnuPlay_, menuCode::kPlay);
  raises(mnuPause_, menuCode::kPause);
  raises(mnuStop_, menuCode::kStop);
  raises(mnuFangYin_, menuCode::kSoundOn);
  raises(mnuJingYin_, menuCode::kMute);
  raises(mnuShowMainFace_, menuCode::kShowMainFace);
  addScreenEntry();
  createScreenListMenu();
}

ui::MenuItem& ScreenMenu::addScreenEntry() {
  const std::size_t index = mnuFullScreenTo_.count();
  ui::MenuItem& item = mnuFullScreenTo_.add("mnuScreenX" + std::to_string(index), "");
  item.onClick.listen([this, index] { chooseScreen(index); });
  return item;
}

void ScreenMenu::createScreenListMenu() {
  mnuFullScreenTo_.shrinkTo(1);
  monitors_.GetMonitorArray();
  const std::int32_t count = monitors_.lngMonitorsCount();
  mnuScreenX(0).setCaption(count > 0 ? kMainScreen : kCancel);
  for (std::int32_t number = 2; number <= count; ++number) {
    addScreenEntry().setCaption(kOtherScreen + std::to_string(number));
  }
}

void ScreenMenu::prepare(const ScreenMenuState& state) {
  mnuFullScreenTo_.setVisible(!state.boolMaxSize);
  mnuExitFullScreen_.setVisible(state.boolMaxSize);
  mnuPlay_.setEnabled(state.lngState == playState::kStopped ||
                      state.lngState == playState::kPaused);
  mnuPause_.setEnabled(state.lngState == playState::kPlaying);
  mnuStop_.setEnabled(state.lngState != playState::kStopped);
  mnuFangYin_.setEnabled(state.boolMute);
  mnuJingYin_.setEnabled(!state.boolMute);
}

void ScreenMenu::chooseScreen(std::size_t index) {
  const auto monitor = monitors_.objGetAMonitorByIndex(static_cast<std::int32_t>(index) + 1);
  if (monitor) screenChosen.raise(*monitor);
}

}  // namespace tessivo
