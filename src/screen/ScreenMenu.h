#pragma once

#include <cstdint>
#include <functional>

#include "base/Signal.h"
#include "monitors/cMonitors2.h"
#include "ui/Menu.h"

namespace tessivo {

/// Codes of the control menu's entries as the owner receives them.
namespace menuCode {
inline constexpr std::int32_t kExitFullScreen = 1;
inline constexpr std::int32_t kScreen = 2;
inline constexpr std::int32_t kPlay = 3;
inline constexpr std::int32_t kPause = 4;
inline constexpr std::int32_t kStop = 5;
inline constexpr std::int32_t kSoundOn = 6;
inline constexpr std::int32_t kMute = 7;
inline constexpr std::int32_t kShowMainFace = 8;
}  // namespace menuCode

/// What the menu is to offer.
struct ScreenMenuState {
  std::int32_t lngState = 0;
  bool boolMaxSize = false;
  bool boolMute = false;
};

/// The playback window's control menu (`mnuPopuMenu`) with the list of screens in it. It carries
/// nothing out: choosing raises an event.
class ScreenMenu {
 public:
  explicit ScreenMenu(const Displays& displays);

  /// Rebuilds the screen entries from the monitors that there are now.
  void createScreenListMenu();
  /// Shows, hides and enables the entries.
  void prepare(const ScreenMenuState& state);
  ui::MenuItem& mnuPopuMenu() { return root_; }
  ui::MenuItem& mnuScreenX(std::size_t index) { return mnuFullScreenTo_.item(index); }
  std::size_t screenCount() const { return mnuFullScreenTo_.count(); }

  /// The menu code of an entry other than a screen.
  Signal<std::int32_t> chosen;
  /// The monitor of a screen entry; not raised when there is no monitor.
  Signal<const cMonitor&> screenChosen;

 private:
  ui::MenuItem& addScreenEntry();
  void chooseScreen(std::size_t index);

  cMonitors2 monitors_;
  ui::MenuItem root_;
  ui::MenuItem& mnuPlay_;
  ui::MenuItem& mnuPause_;
  ui::MenuItem& mnuStop_;
  ui::MenuItem& mnuFangYin_;
  ui::MenuItem& mnuJingYin_;
  ui::MenuItem& mnuFullScreenTo_;
  ui::MenuItem& mnuExitFullScreen_;
  ui::MenuItem& mnuShowMainFace_;
};

}  // namespace tessivo
