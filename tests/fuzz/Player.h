#pragma once

#include <memory>
#include <set>

#include "base/Text.h"
#include "fuzz/Fuzz.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo::fuzz {

/// The player without windows and without a database: controller, playlist and playback window over
/// engines that do as they are told. Three files exist, a.avi to c.avi in C:\v.
class Player : public ControlerFixture {
 public:
  Player() {
    files.existing = {"C:\\v\\a.avi", "C:\\v\\b.avi", "C:\\v\\c.avi"};
    screen.load();
    controler.setReferences(tray, panel, screen, playList);
    trace.take();
  }

  /// Nothing of the input before is left that the next one could meet.
  virtual void reset() {
    controler.stopPlay();
    controler.deleteAllItemFromPL();
    time.advance(2000);
    trace.take();
    log.lines.clear();
  }

 protected:
  void TestBody() override {}

  /// What must hold whatever came in: everything in the list is a file that exists or an address,
  /// its marks are right, and nothing was executed.
  void checkPlayer() {
    std::set<std::string> keysSeen;
    std::int32_t playItems = 0;
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      const MoviePtr item = playList.objGetAItem(i);
      checkItem(*item);
      holds(keysSeen.insert(toUpper(item->strKey)).second, "keys differ");
      holds(playList.lngGetIndexByItemFlag(item->strKey) == i, "an item is found by its key");
      playItems += item->boolIsPlayItem ? 1 : 0;
    }
    const bool empty = playList.lngListCount() == 0;
    holds(playItems == (empty ? 0 : 1), "one play item");
    holds(!empty || screen.lngState() == playState::kStopped, "an empty list does not play");
    holds(processes.started.empty(), "nothing is executed");
  }

  /// As many characters as the system's longest path.
  static constexpr std::size_t kLongestPath = 32767;

 private:
  void checkItem(const Movie& item) {
    const std::string& path = item.strFilePath;
    holds(files.existing.contains(path) || containsNoCase(path, "http"), "a file or an address");
    holds(path.find('\0') == std::string::npos, "a path has no NUL");
    holds(toUtf16(path).size() <= kLongestPath, "a path of bounded length");
    holds(item.strFileName == fileNameOf(path), "the name is the path's last part");
  }
};

/// The world of the next input. To make one takes longer than most inputs do, so that it serves
/// some hundred of them.
template <typename World>
World& freshWorld() {
  constexpr int kInputs = 300;
  static std::unique_ptr<World> world;
  static int inputs = 0;
  if (world && ++inputs < kInputs) {
    world->reset();
  } else {
    world = nullptr;
    world = std::make_unique<World>();
    inputs = 0;
  }
  return *world;
}

}  // namespace tessivo::fuzz
