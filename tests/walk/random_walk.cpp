// A random walk through the whole program: random_walk [--seed S] [--events N] [--notes N]
// Ends with 0 when every rule held. Otherwise it says the seed, the last events, and what was
// wrong.
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string_view>

#include "walk/Walk.h"

namespace {

using tessivo::walk::Walk;

std::uint64_t number(std::string_view text) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && end == text.data() + text.size()) return value;
  std::cerr << "not a number: " << text << "\n";
  std::exit(2);
}

void tellFailure(const Walk& walk, std::uint64_t seed) {
  constexpr std::size_t kLines = 10;
  constexpr std::size_t kLetters = 200;
  for (const std::string& note : walk.notes()) std::cout << "  " << note << "\n";
  const auto& lines = walk.log().lines;
  for (std::size_t i = lines.size() - std::min(lines.size(), kLines); i < lines.size(); ++i) {
    std::cout << "  log: " << lines[i].substr(0, kLetters) << "\n";
  }
  std::cout << "FAIL random walk, seed " << seed << ", after " << walk.counts().events
            << " events: " << walk.failure() << "\n";
}

void tellCounts(const Walk& walk, std::uint64_t seed, double seconds) {
  const auto& counts = walk.counts();
  const auto share = [&counts](std::uint64_t sum) {
    return static_cast<double>(sum) /
           static_cast<double>(std::max<std::uint64_t>(1, counts.events));
  };
  std::cout << "PASS random walk, seed " << seed << ": " << counts.events << " events in "
            << seconds << " s; " << counts.lives << " lives, " << counts.dialogs << " dialogs, "
            << counts.savesRefused << " saves refused, " << counts.stillnessChecks
            << " times still, " << counts.livenessChecks << " times kept playing; panel in reach "
            << share(counts.withPanel) << ", items " << share(counts.items) << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  std::uint64_t seed = 1;
  std::uint64_t events = 15'000;
  std::size_t notes = 60;
  for (int i = 1; i + 1 < argc; i += 2) {
    const std::string_view option = argv[i];
    if (option == "--seed") seed = number(argv[i + 1]);
    if (option == "--events") events = number(argv[i + 1]);
    if (option == "--notes") notes = number(argv[i + 1]);
  }
  // Each life stores its list: in memory, where there is such a folder.
  if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
  tessivo::walk::DatabaseTrouble::prepare();
  const auto begin = std::chrono::steady_clock::now();
  Walk walk(seed);
  walk.keepNotes(notes);
  const bool good = walk.run(events);
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
  good ? tellCounts(walk, seed, took.count()) : tellFailure(walk, seed);
  return good ? 0 : 1;
}
