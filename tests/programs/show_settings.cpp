// show_settings DATABASE FOLDER [GROUP…]: the settings dialog as a user sees it who belongs to
// these local groups of the machine and to no others, with the settings and file types of that
// database of the player. FOLDER is where the player is said to lie. What is saved of the first tab
// is forgotten.
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

#include "config/frmSysConfig.h"
#include "fakes/FakeAccounts.h"
#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/WindowsText.h"
#include "ui/win32/Win32Toolkit.h"

namespace {

using namespace tessivo;

struct PrintedLog : Log {
  void info(std::string_view text) override { print(text); }
  void error(std::string_view text) override { print(text); }
  static void print(std::string_view text) {
    std::printf("%.*s\n", static_cast<int>(text.size()), text.data());
  }
};

/// The program behind the dialog, with the savers that come with it.
struct Host : SysConfigHost {
  const SysConfig& config() const override { return settings; }
  std::vector<std::string> screenSaverNames() override { return {"图片欣赏", "时钟"}; }
  void saveRunPram(const RunParameter&) override {}
  void previewAScrSavProcByName(const std::string&) override {}
  void showScreenSaverSettings(ui::Form&, const std::string&, std::int32_t, std::int32_t) override {
  }

  SysConfig settings;
};

std::vector<std::string> arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) texts.push_back(fromWide(list[i]));
  LocalFree(list);
  return texts;
}

}  // namespace

int main() {
  const auto args = arguments();
  if (args.size() < 2) {
    std::puts("show_settings DATABASE FOLDER [GROUP...]");
    return 2;
  }
  setUpProcess();
  PrintedLog log;
  const Win32Displays displays;
  Win32TimerService timers(log);
  ui::Win32Toolkit toolkit(displays.twipsPerPixel(), log);
  Win32Shell shell(log);
  Win32Registry registry;
  FakeAccounts accounts;
  accounts.local.assign(args.begin() + 2, args.end());
  Host host;
  host.settings.strDBFilePath(args[0]);
  host.settings.boolGetData();
  ui::Form owner("owner", "Tessivo", displays.twipsPerPixel());
  owner.setBounds({1500, 1500, 9000, 9000});
  toolkit.open(owner);
  frmSysConfig dialog({toolkit, timers, shell, registry, accounts, log, args[0], args[1]},
                      displays.twipsPerPixel(), host);
  dialog.showOver(toolkit, owner);
  owner.unload();
  return 0;
}
