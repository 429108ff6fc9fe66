// killed_saves [--kills N] [--seed N]: a process saves lists, settings, a screen-saver program's
// settings and lines of the log, one after the other without a pause, and is killed at a moment
// that nobody chose; what it left is looked at, and the next one goes on. Linux only: no fork on
// Windows.
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <new>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>

#include "data/DataAccess.h"
#include "data/PlayList.h"
#include "data/PrepareDatabase.h"
#include "data/SysConfig.h"
#include "fakes/TempFolder.h"
#include "fakes/VirtualTime.h"
#include "platform/FileLog.h"
#include "ssp/SettingsFile.h"

namespace {

using namespace tessivo;

constexpr int kItems = 200;
constexpr int kLongestLifeUs = 40'000;

enum Thing { kList, kSettings, kIni, kLog, kThings };
constexpr std::array<const char*, kThings> kNames{"the list", "the settings", "the ini file",
                                                  "the log"};

/// What the saving process says of itself, in memory that outlives it.
struct Progress {
  std::atomic<int> now{kThings};                  ///< what is being saved; kThings: nothing yet
  std::array<std::atomic<int>, kThings> saved{};  ///< the number of the last save that returned
};

Progress& sharedProgress() {
  void* const memory =
      mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw std::runtime_error("no shared memory");
  return *new (memory) Progress;
}

struct Files {
  TempFolder folder;
  std::string database = folder.file("SysConfig");
  std::string ini = folder.file("时钟.ini");
  std::string log = folder.file("Tessivo.log");
};

struct NoLog : Log {
  void info(std::string_view) override {}
  void error(std::string_view text) override { last = text; }
  std::string last;
};

std::string iniText(int number) {
  return "[" + std::to_string(number) + "]\r\n" + std::string(3000, 'i') + "\r\nend\r\n";
}
std::string logText(int number) {
  return "line " + std::to_string(number) + std::string(200, 'l') + " end";
}

bool saveList(const std::string& path, int number) {
  VirtualTime time;
  MovieKeys keys(time);
  PlayList list(keys);
  list.strPLDBFilePath(path);
  for (int i = 0; i < kItems + number % 50; ++i) {
    auto movie = std::make_shared<Movie>(keys);
    movie->strFileName = std::to_string(number);
    movie->strFilePath = std::string(150, 'p') + std::to_string(i);
    list.addAItem(movie);
  }
  return list.boolSavePlayListToPLDB();
}

bool saveSettings(const std::string& path, int number) {
  SysConfig config;
  config.strDBFilePath(path);
  config.lngSSDelayMinute(number);
  config.lngCurrentPlayPosition(number);
  config.lngCurrentPlayItemLen(number);
  config.strScrSavProcName(std::to_string(number));
  return config.boolSaveData();
}

/// Until it is killed; the things from `first` on.
[[noreturn]] void saveForEver(const Files& files, Progress& progress, Thing first) {
  const VirtualTime time;
  FileLog log(files.log, time);
  const ssp::SettingsFile ini(files.ini, "");
  for (;;) {
    for (int thing = first; thing < kThings; ++thing) {
      const int number = progress.saved[static_cast<std::size_t>(thing)] + 1;
      progress.now = thing;
      bool isSaved = true;
      if (thing == kList) isSaved = saveList(files.database, number);
      if (thing == kSettings) isSaved = saveSettings(files.database, number);
      if (thing == kIni) isSaved = ini.save(iniText(number));
      if (thing == kLog) log.info(logText(number));
      if (!isSaved) _exit(1);
      progress.saved[static_cast<std::size_t>(thing)] = number;
    }
  }
}

[[noreturn]] void wrong(const std::string& what) {
  throw std::runtime_error(what);
}

/// The number that all rows of the stored list say.
int storedList(const std::string& path) {
  const VirtualTime time;
  MovieKeys keys(time);
  PlayList list(keys);
  list.strPLDBFilePath(path);
  if (!list.boolGetPlayListFromPLDB()) wrong("the list cannot be read: " + list.strReport());
  if (list.lngListCount() == 0) return 0;
  const int number = std::stoi(list.objGetAItem(1)->strFileName);
  if (list.lngListCount() != kItems + number % 50) wrong("the list is not whole");
  for (int i = 1; i <= list.lngListCount(); ++i) {
    const auto movie = list.objGetAItem(i);
    if (movie->strFileName != std::to_string(number)) wrong("the list is mixed");
    if (movie->strFilePath != std::string(150, 'p') + std::to_string(i - 1)) wrong("in disorder");
  }
  return number;
}

int storedSettings(const std::string& path) {
  SysConfig config;
  config.strDBFilePath(path);
  if (!config.boolGetData()) {
    if (!config.strReport().empty()) wrong("the settings cannot be read: " + config.strReport());
    return 0;
  }
  const int number = config.lngSSDelayMinute();
  if (config.lngCurrentPlayPosition() != number || config.lngCurrentPlayItemLen() != number ||
      config.strScrSavProcName() != std::to_string(number)) {
    wrong("the settings are mixed");
  }
  return number;
}

int storedIni(const std::string& path) {
  const std::string text = ssp::SettingsFile(path, "").read();
  if (text.empty()) return 0;
  const int number = std::stoi(text.substr(1));
  if (text != iniText(number)) wrong("the ini file is not whole");
  return number;
}

/// Every line is whole; the last one's number.
int storedLog(const std::string& path) {
  std::ifstream file(toFilePath(path), std::ios::binary);
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    const auto text = line.find(" info line ");
    if (text == std::string::npos) wrong("a line of the log has no beginning");
    number = std::stoi(line.substr(text + 11));
    if (!line.ends_with(logText(number) + "\r")) wrong("a line of the log is not whole");
  }
  return number;
}

void checkDatabase(const std::string& path) {
  NoLog log;
  const auto state = prepareDatabase(path, log);
  if (state != DatabaseState::ready) wrong("not taken as it is: " + log.last);
  const auto verdict = DataAccess().objrsGetRecordSet("pragma integrity_check", path);
  const auto text = asText(verdict->value("integrity_check"));
  if (text != "ok") wrong("SQLite says: " + text);
}

/// What was saved last is there, or what was being saved.
void checkNumber(const Progress& progress, Thing thing, int stored) {
  const int saved = progress.saved[thing];
  const bool isNext = stored == saved + 1 && progress.now == thing;
  if (stored != saved && !isNext) {
    wrong(std::string(kNames[thing]) + ": number " + std::to_string(stored) + " is there, number " +
          std::to_string(saved) + " was saved");
  }
}

void killOnce(const Files& files, Progress& progress, Thing first, unsigned lifeUs) {
  const pid_t child = fork();
  if (child == 0) saveForEver(files, progress, first);
  usleep(lifeUs);
  kill(child, SIGKILL);
  int status = 0;
  waitpid(child, &status, 0);
  if (!WIFSIGNALED(status)) wrong("a save failed");
}

void checkAll(const Files& files, Progress& progress) {
  checkDatabase(files.database);
  const std::array<int, kThings> stored{storedList(files.database), storedSettings(files.database),
                                        storedIni(files.ini), storedLog(files.log)};
  for (int thing = 0; thing < kThings; ++thing) {
    const auto at = static_cast<std::size_t>(thing);
    checkNumber(progress, static_cast<Thing>(thing), stored[at]);
    progress.saved[at] = stored[at];
  }
}

struct Tally {
  std::array<int, kThings + 1> killedDuring{};
  int cameThrough = 0;  ///< what was being saved is there
};

int run(int kills, unsigned seed) {
  const Files files;
  NoLog log;
  prepareDatabase(files.database, log);
  Progress& progress = sharedProgress();
  std::mt19937 random(seed);
  Tally tally;
  for (int i = 1; i <= kills; ++i) {
    progress.now = kThings;
    try {
      // Beside a database the other files take no time at all.
      const Thing first = i % 4 == 0 ? kIni : kList;
      killOnce(files, progress, first, static_cast<unsigned>(random() % kLongestLifeUs));
      const auto now = static_cast<std::size_t>(progress.now.load());
      const int before = now < kThings ? progress.saved[now].load() : 0;
      checkAll(files, progress);
      ++tally.killedDuring[now];
      if (now < kThings && progress.saved[now] != before) ++tally.cameThrough;
    } catch (const std::exception& error) {
      std::printf("FAIL killed_saves --seed %u, kill %d: %s\n", seed, i, error.what());
      return 1;
    }
  }
  std::printf("killed while saving");
  for (std::size_t thing = 0; thing < kThings; ++thing) {
    std::printf(" %s %d times,", kNames[thing], tally.killedDuring[thing]);
  }
  std::printf(" before %d times; what was being saved was there %d times\n",
              tally.killedDuring[kThings], tally.cameThrough);
  std::printf("PASS killed_saves: %d kills, seed %u\n", kills, seed);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  int kills = 40;
  unsigned seed = 1;
  for (int i = 1; i + 1 < count; i += 2) {
    const std::string_view name = arguments[i];
    if (name == "--kills") kills = std::stoi(arguments[i + 1]);
    if (name == "--seed") seed = static_cast<unsigned>(std::stoul(arguments[i + 1]));
  }
  return run(kills, seed);
}
