// make_playlist DATABASE RULE VOLUME FILE…: stores a playlist and the settings as the player does.
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "data/PlayList.h"
#include "data/PrepareDatabase.h"
#include "data/SysConfig.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/WindowsText.h"

namespace {

using namespace tessivo;

struct PrintedLog : Log {
  void info(std::string_view text) override { print(text); }
  void error(std::string_view text) override { print(text); }
  static void print(std::string_view text) {
    std::printf("%.*s\n", static_cast<int>(text.size()), text.data());
  }
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
  if (args.size() < 3) {
    std::puts("make_playlist DATABASE RULE VOLUME FILE...");
    return 2;
  }
  PrintedLog log;
  prepareDatabase(args[0], log);
  SysConfig config;
  config.strDBFilePath(args[0]);
  config.boolGetData();
  config.lngPlayRuler(std::stoi(args[1]));
  config.intVolumeValue(static_cast<std::int16_t>(std::stoi(args[2])));
  config.lngCurrentPlayPosition(0);
  const Win32Clock clock;
  MovieKeys keys(clock);
  PlayList list(keys);
  list.strPLDBFilePath(args[0]);
  for (std::size_t i = 3; i < args.size(); ++i) {
    auto movie = std::make_shared<Movie>(keys);
    movie->strFilePath = args[i];
    movie->strFileName = fileNameOf(args[i]);
    list.addAItem(movie);
  }
  return config.boolSaveData() && list.boolSavePlayListToPLDB() ? 0 : 1;
}
