#pragma once

#include <algorithm>
#include <array>
#include <cstddef>

/// What every operation and every notification does in every play state.
namespace tessivo::stateTable {

enum class Input {
  playGoodPath,
  playEmptyPath,
  playMissingFile,
  playWebAddress,
  pause,
  stopPlay,
  newPath,
  newRule0,
  newRule1,
  newRule2,
  newRule3,
  newUnknownRule,
  setVolume,
  setMute,
  getPosition,
  getPositionTooLarge,
  setPosition,
  setPositionTooLarge,
  getLength,
  openMenu,
  mediaPlaying,
  mediaEnded,
  mediaPaused,
  mediaStopped,
  mediaError,
  realPlaying,
  realStoppedExpected,
  realStoppedEarly,
  realStoppedLate,
  realPaused,
  realError,
  realPosition,
  count
};
inline constexpr std::size_t kInputs = static_cast<std::size_t>(Input::count);
inline constexpr std::size_t kStates = 4;

/// What comes of an input, by lngState 1 to 4: the result ("-": none), lngState at once, lngState
/// when the hops have run, and the events.
using ByState = std::array<const char*, kStates>;
struct Row {
  Input input;
  const char* name;
  ByState real;   ///< RealPlayer is current, rule 2
  ByState media;  ///< Media Player is current, rule 3
};

inline constexpr std::array<Row, kInputs> kTable{{
    //                  1 playing, 2 stopped, 3 paused, 4 starting
    {Input::playGoodPath,
     "playGoodPath",
     {"false 1 1", "true 4 4", "true 4 4", "false 4 4"},
     {"false 1 1", "true 4 4", "true 4 4", "false 4 4"}},
    {Input::playEmptyPath,
     "playEmptyPath",
     {"false 1 1 empty", "false 2 2 empty", "false 3 3 empty", "false 4 4 empty"},
     {"false 1 1 empty", "false 2 2 empty", "false 3 3 empty", "false 4 4 empty"}},
    {Input::playMissingFile,
     "playMissingFile",
     {"false 1 1 missing", "false 2 2 missing", "false 3 3 missing", "false 4 4 missing"},
     {"false 1 1 missing", "false 2 2 missing", "false 3 3 missing", "false 4 4 missing"}},
    {Input::playWebAddress,
     "playWebAddress",
     {"false 1 1", "true 4 4", "true 4 4", "false 4 4"},
     {"false 1 1", "true 4 4", "true 4 4", "false 4 4"}},
    {Input::pause,
     "pause",
     {"- 3 3", "- 2 2", "- 3 3", "- 4 4"},
     {"- 3 3", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::stopPlay,
     "stopPlay",
     {"- 2 2", "- 2 2", "- 2 2", "- 4 4"},
     {"- 2 2", "- 2 2", "- 2 2", "- 4 4"}},
    {Input::newPath,
     "newPath",
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"},
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"}},
    {Input::newRule0,
     "newRule0",
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"},
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"}},
    {Input::newRule1,
     "newRule1",
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"},
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"}},
    {Input::newRule2,
     "newRule2",
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"},
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"}},
    {Input::newRule3,
     "newRule3",
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"},
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"}},
    {Input::newUnknownRule,
     "newUnknownRule",
     {"real 2 2", "real 2 2", "real 2 2", "real 2 2"},
     {"media 2 2", "media 2 2", "media 2 2", "media 2 2"}},
    {Input::setVolume,
     "setVolume",
     {"55 1 1", "55 2 2", "55 3 3", "55 4 4"},
     {"55 1 1", "55 2 2", "55 3 3", "55 4 4"}},
    {Input::setMute,
     "setMute",
     {"true 1 1", "true 2 2", "true 3 3", "true 4 4"},
     {"true 1 1", "true 2 2", "true 3 3", "true 4 4"}},
    {Input::getPosition,
     "getPosition",
     {"7 1 1", "7 2 2", "7 3 3", "7 4 4"},
     {"12 1 1", "12 2 2", "12 3 3", "12 4 4"}},
    {Input::getPositionTooLarge,
     "getPositionTooLarge",
     {"7 1 1", "7 2 2", "7 3 3", "7 4 4"},
     {"error 1 1", "error 2 2", "error 3 3", "error 4 4"}},
    {Input::setPosition,
     "setPosition",
     {"true 1 1", "true 2 2", "true 3 3", "true 4 4"},
     {"true 1 1", "true 2 2", "true 3 3", "true 4 4"}},
    {Input::setPositionTooLarge,
     "setPositionTooLarge",
     {"false 1 1", "false 2 2", "false 3 3", "false 4 4"},
     {"false 1 1", "false 2 2", "false 3 3", "false 4 4"}},
    {Input::getLength,
     "getLength",
     {"3 1 1", "3 2 2", "3 3 3", "3 4 4"},
     {"200 1 1", "200 2 2", "200 3 3", "200 4 4"}},
    {Input::openMenu,
     "openMenu",
     {"pause+stop 1 1", "play 2 2", "play+stop 3 3", "stop 4 4"},
     {"pause+stop 1 1", "play 2 2", "play+stop 3 3", "stop 4 4"}},
    {Input::mediaPlaying,
     "mediaPlaying",
     {"- 1 1", "- 1 1", "- 1 1", "- 1 1"},
     {"- 1 1", "- 1 1", "- 1 1", "- 1 1"}},
    {Input::mediaEnded,
     "mediaEnded",
     {"- 2 2 PlayOver", "- 2 2 PlayOver", "- 2 2 PlayOver", "- 2 2 PlayOver"},
     {"- 2 2 PlayOver", "- 2 2 PlayOver", "- 2 2 PlayOver", "- 2 2 PlayOver"}},
    {Input::mediaPaused,
     "mediaPaused",
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::mediaStopped,
     "mediaStopped",
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::mediaError,
     "mediaError",
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"},
     {"- 1 2 media only", "- 2 2 media only", "- 3 2 media only", "- 4 2 media only"}},
    {Input::realPlaying,
     "realPlaying",
     {"- 1 1", "- 1 1", "- 1 1", "- 1 1"},
     {"- 1 1", "- 1 1", "- 1 1", "- 1 1"}},
    {Input::realStoppedExpected,
     "realStoppedExpected",
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::realStoppedEarly,
     "realStoppedEarly",
     {"- 1 2 real only", "- 2 2", "- 3 2 real only", "- 4 2 real only"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::realStoppedLate,
     "realStoppedLate",
     {"- 2 2 PlayOver", "- 2 2", "- 2 2 PlayOver", "- 2 2 PlayOver"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::realPaused,
     "realPaused",
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::realError,
     "realError",
     {"- 1 2 real only", "- 2 2 real only", "- 3 2 real only", "- 4 2 real only"},
     {"- 1 1", "- 2 2", "- 3 3", "- 4 4"}},
    {Input::realPosition,
     "realPosition",
     {"- 1 1 JinDu 65", "- 2 2 JinDu 65", "- 3 3 JinDu 65", "- 4 4 JinDu 65"},
     {"- 1 1 JinDu 65", "- 2 2 JinDu 65", "- 3 3 JinDu 65", "- 4 4 JinDu 65"}},
}};

constexpr bool isComplete() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    const Row& row = kTable[i];
    if (row.input != static_cast<Input>(i) || !row.name) return false;
    const auto filled = [](const char* cell) { return cell != nullptr; };
    if (!std::all_of(row.real.begin(), row.real.end(), filled)) return false;
    if (!std::all_of(row.media.begin(), row.media.end(), filled)) return false;
  }
  return true;
}
static_assert(isComplete(), "a row for every input, in their order, and a cell for every state");

}  // namespace tessivo::stateTable
