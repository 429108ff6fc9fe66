// Whatever is logged, with paths and requests of any origin in it, is one line of the log file.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fakes/TempFolder.h"
#include "fakes/VirtualTime.h"
#include "fuzz/Fuzz.h"
#include "platform/FileLog.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

std::string contentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void run(Input input) {
  static const TempFolder folder;
  static const std::string path = folder.file("Tessivo.log");
  std::filesystem::remove(path);
  const std::string text = input.rest();
  const VirtualTime time;
  {
    FileLog log(path, time);
    log.error(text);
    log.info("next");
  }
  const std::string written = contentOf(path);
  const auto end = written.find('\n');
  holds(written.ends_with(" next\r\n") && written.find('\n', end + 1) == written.size() - 1,
        "one line each");
  constexpr std::size_t kStamp = 64;
  holds(end < FileLog::kLongestText + kStamp, "a line of bounded length");
  const bool plain = text.find_first_of("\r\n") == std::string::npos;
  if (plain && text.size() <= FileLog::kLongestText) {
    holds(written.find(text + "\r\n") != std::string::npos, "the text as it is");
  }
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
