#include "prereq/PlayerDetection.h"

#include <charconv>
#include <exception>
#include <utility>

namespace tessivo {
namespace {

constexpr int kLeastMediaPlayer = 9;

/// The number before the first point; 0 when there is none ("N/A").
int majorOf(const std::string& version) {
  int major = 0;
  std::from_chars(version.data(), version.data() + version.size(), major);
  return major;
}

}  // namespace

PlayersFound PlayerDetection::detect() {
  return {!needed_.mediaPlayer || mediaPlayerIsThere(), !needed_.realPlayer || realPlayerIsThere()};
}

bool PlayerDetection::mediaPlayerIsThere() {
  bool there = false;
  std::string found;
  try {
    const std::string version = version_.GetVersionInfo("wmp.dll");
    there = majorOf(version) >= kLeastMediaPlayer;
    found = "wmp.dll is of version " + version;
  } catch (const std::exception& error) {
    found = error.what();
  }
  tell(toldOfMediaPlayer_,
       std::string("Windows Media Player is ") + (there ? "" : "not ") + "installed: " + found);
  return there;
}

bool PlayerDetection::realPlayerIsThere() {
  std::string why;
  try {
    why = askRealPlayer_();
  } catch (const std::exception& error) {
    why = std::string("asking it failed: ") + error.what();
  }
  tell(toldOfRealPlayer_,
       why.empty() ? "RealPlayer is installed" : "RealPlayer is not installed: " + why);
  return why.empty();
}

void PlayerDetection::tell(std::string& last, std::string text) {
  if (last == text) return;
  log_.info(text);
  last = std::move(text);
}

}  // namespace tessivo
