// Runs a target without libFuzzer:
//
//   fuzz_TARGET_run FOLDER FOUND     each file of the folder, and changed copies of it
//   fuzz_TARGET_run FILE             one input
//
// The changes are the same in every run. When the target breaks, the input that did it is written
// to the file FOUND and named.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/Changes.h"
#include "fuzz/Fuzz.h"

// The sanitizers end the process as a broken check does.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() {
  return "abort_on_error=1:handle_abort=0:detect_stack_use_after_return=1";
}
extern "C" const char* __ubsan_default_options();
extern "C" const char* __ubsan_default_options() {
  return "abort_on_error=1:print_stacktrace=1:handle_abort=0";
}

namespace {

/// What the target is given now, for the handler of its end.
struct Present {
  std::string input;
  std::string name;
  int change = 0;  ///< the number of the changed copy; 0: the file itself
  std::string found;
};
Present& present() {
  static Present one;
  return one;
}

/// The process is about to end: whatever this costs does not matter.
extern "C" void writeFound(int signal) {
  const Present& now = present();
  std::fprintf(stderr, "%s, changed copy %d", now.name.c_str(), now.change);
  if (!now.found.empty()) {
    std::ofstream(now.found, std::ios::binary)
        .write(now.input.data(), static_cast<std::streamsize>(now.input.size()));
    std::fprintf(stderr, ", kept as %s", now.found.c_str());
  }
  std::fprintf(stderr, "\n");
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

std::string read(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A copy of exactly that size, so that a byte read too far is seen.
void give(const std::string& input) {
  present().input = input;
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& folder) {
  std::error_code none;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::uint64_t seedOf(const std::string& text) {
  std::uint64_t seed = 0;
  for (const char c : text) seed = seed * 31 + static_cast<unsigned char>(c);
  return seed;
}

int runFolder(const std::filesystem::path& folder) {
  const auto files = filesOf(folder);
  if (files.empty()) {
    std::printf("FAIL %s: no corpus\n", folder.c_str());
    return 1;
  }
  std::vector<std::string> inputs;
  for (const auto& file : files) inputs.push_back(read(file));
  for (std::size_t i = 0; i < files.size(); ++i) {
    present().name = files[i].string();
    present().change = 0;
    give(inputs[i]);
    tessivo::fuzz::Changes changes(seedOf(files[i].filename().string()));
    for (int change = 1; change <= tessivo::fuzz::kChangesPerFile; ++change) {
      present().change = change;
      give(changes.changed(inputs[i], inputs));
    }
  }
  std::printf("PASS %s: %zu inputs, %d changed copies of each\n",
              folder.filename().string().c_str(), files.size(), tessivo::fuzz::kChangesPerFile);
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2 || count > 3) {
    std::fprintf(stderr, "usage: %s FOLDER FOUND | FILE\n", arguments[0]);
    return 2;
  }
  // Temporary databases in memory, where that is possible.
  if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 1);
  const std::filesystem::path given = arguments[1];
  if (count == 3) present().found = arguments[2];
  std::signal(SIGABRT, writeFound);
  if (!std::filesystem::is_regular_file(given)) return runFolder(given);
  present().name = given.string();
  give(read(given));
  return 0;
}
