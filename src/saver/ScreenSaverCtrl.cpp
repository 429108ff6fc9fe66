#include "saver/ScreenSaverCtrl.h"

#include <string_view>
#include <utility>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr const char* kFolder = "\\SSP";
constexpr const char* kExtension = ".exe";
constexpr std::size_t kExtensionLength = 4;
constexpr std::int32_t kCheckMs = 1000;
constexpr const char* kPreviewArguments = "RUN##0##0##0##0##0## ";

bool isProgram(std::string_view name) {
  const auto dot = name.rfind('.');
  return dot != std::string_view::npos && toUpper(name.substr(dot + 1)) == "EXE";
}

/// Whether it names a file of the folder itself. The chosen name comes from the database.
bool isFileName(std::string_view name) {
  return name.find_first_of("\\/:") == std::string_view::npos;
}

std::string field(const std::string& text) {
  return "##" + text;
}
std::string field(std::int32_t number) {
  return field(std::to_string(number));
}

}  // namespace

ScreenSaverCtrl::ScreenSaverCtrl(const SaverServices& services,
                                 std::function<PlayWindow()> playWindow)
    : services_(services),
      playWindow_(std::move(playWindow)),
      strScrSavPrcsFolderPath_(services.applicationFolder + kFolder),
      m_objMKC_(services.input, services.timers) {
  m_objMKC_.lngCheckMilliSecondsValue(kCheckMs);
  m_objMKC_.lngFreeMinute(lngDelayMinute_);
  m_objMKC_.UserIsActive.listen([this] { m_objMKC_UserIsActive(); });
  m_objMKC_.ComputerIsIdle.listen([this] { m_objMKC_ComputerIsIdle(); });
}

void ScreenSaverCtrl::lngWorkState(std::int32_t state) {
  if (state == lngWorkState_) return;
  lngWorkState_ = state;
  apply();
}

void ScreenSaverCtrl::apply() {
  switch (lngWorkState_) {
    case saverState::open_saver:
      m_objMKC_.lngWorkState(idleState::kIdle);
      startNamed(strScreenSaverProcName_, runArguments(), WindowStyle::normalNoFocus);
      break;
    case saverState::unenabled_saver:
      m_objMKC_.lngWorkState(idleState::kStopped);
      break;
    case saverState::waitting_saver:
      m_objMKC_.lngWorkState(idleState::kActive);
      break;
    default:
      break;
  }
}

void ScreenSaverCtrl::lngDelayMinute(std::int32_t minutes) {
  lngDelayMinute_ = minutes;
  m_objMKC_.lngFreeMinute(minutes);
}

void ScreenSaverCtrl::m_objMKC_ComputerIsIdle() {
  if (lngWorkState_ != saverState::waitting_saver) return;
  services_.log.info("the user is idle");
  lngWorkState_ = saverState::open_saver;
  apply();
}

void ScreenSaverCtrl::m_objMKC_UserIsActive() {
  if (lngWorkState_ != saverState::open_saver) return;
  services_.log.info("the user is active again");
  lngWorkState_ = saverState::waitting_saver;
  apply();
}

std::string ScreenSaverCtrl::programFile(const std::string& name) const {
  return strScrSavPrcsFolderPath_ + "\\" + name + kExtension;
}

std::string ScreenSaverCtrl::runArguments() const {
  const PlayWindow window = playWindow_();
  return "RUN" + field(playArea_.left) + field(playArea_.top) + field(playArea_.width) +
         field(playArea_.height) + field(window.boolMaxSize ? 1 : 0) + field(window.caption);
}

void ScreenSaverCtrl::previewAScrSavProcByName(const std::string& name) {
  startNamed(name, kPreviewArguments, WindowStyle::normalNoFocus);
}

std::string ScreenSaverCtrl::showAScrSavPrcPramConfigFace(const std::string& name, std::int32_t x,
                                                          std::int32_t y,
                                                          const std::string& ownerCaption) {
  startNamed(name, "SHOW_CONFIG_FACE" + field(x) + field(y) + field(ownerCaption),
             WindowStyle::normal);
  return programFile(name);
}

void ScreenSaverCtrl::startNamed(const std::string& name, const std::string& arguments,
                                 WindowStyle style) {
  if (isFileName(name)) return start(programFile(name), arguments, style);
  services_.log.error("screen saver not started, not in the folder: " + name);
}

void ScreenSaverCtrl::start(const std::string& program, const std::string& arguments,
                            WindowStyle style) {
  const std::uint32_t error = services_.processes.start(program, arguments, style);
  if (error == 0) {
    services_.log.info("screen saver started: " + program + " " + arguments);
  } else {
    services_.log.error("screen saver not started, error " + std::to_string(error) + ": " +
                        program + " " + arguments);
  }
}

void ScreenSaverCtrl::getScrSaverProcNameList() {
  names_.assign(1, "");
  if (trim(strScrSavPrcsFolderPath_).empty()) return;
  const auto files = services_.files.filesIn(strScrSavPrcsFolderPath_);
  if (!files) return;
  for (const std::string& file : *files) {
    if (isProgram(file)) names_.push_back(file.substr(0, file.size() - kExtensionLength));
  }
}

std::string ScreenSaverCtrl::strGetScrSavPrcNameByIndex(std::int32_t index) const {
  if (index <= 0 || index > lngGetScrSavPrcNameLstItmCount()) return "";
  return names_[static_cast<std::size_t>(index)];
}

}  // namespace tessivo
