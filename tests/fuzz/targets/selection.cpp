// The shell's menu: the first line is the command line that a later instance hands over, the rest
// are the bytes of the shared mapping "sel".
#include "app/CommandLine.h"
#include "base/Quotes.h"
#include "fakes/FakeSharedMemory.h"
#include "fuzz/Player.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

constexpr std::string_view kSeparator = "@@_F%D-F_@";

/// The size that is said may cut the last path within a character of two UTF-16 units. The half
/// that is left stands nowhere in the whole text.
std::string withoutHalfACharacter(std::string path) {
  const auto from = path.size() < 3 ? path.size() : path.size() - 3;
  const bool half = path.size() - from == 3 && path[from] == '\xED' && path[from + 1] >= '\xA0' &&
                    path[from + 1] <= '\xAF';
  if (half) path.resize(from);
  return path;
}

/// Notes more than the fake: what is open or mapped must be given back.
struct CountedMemory : FakeSharedMemory {
  MappingHandle createFileMapping(const std::string& name, std::int32_t bytes) override {
    ++open;
    return FakeSharedMemory::createFileMapping(name, bytes);
  }
  std::span<std::uint8_t> mapView(MappingHandle mapping) override {
    const auto view = FakeSharedMemory::mapView(mapping);
    if (!view.empty()) ++mapped;
    return view;
  }
  bool unmapView(std::span<std::uint8_t> view) override {
    --mapped;
    return FakeSharedMemory::unmapView(view);
  }
  bool closeHandle(MappingHandle mapping) override {
    --open;
    return FakeSharedMemory::closeHandle(mapping);
  }
  int open = 0;
  int mapped = 0;
};

class SelectionTarget : public Player {
 public:
  void run(Input input) {
    const std::string line = input.line();
    const std::vector<std::uint8_t> bytes(input.bytes().begin(), input.bytes().end());
    memory.mappings = {{"sel", bytes}};
    memory.calls.clear();
    lines.processCmdLine(line);
    time.advance(1000);
    holds(memory.open == 0 && memory.mapped == 0, "the mapping is given back");
    holds(memory.mappings.size() == 1, "no mapping is made");
    holds(memory.mappings["sel"] == bytes, "the mapping is only read");
    checkPlayer();
    checkList(line, bytes);
  }

 private:
  /// The paths in the list come in the order of the selection.
  void checkList(const std::string& line, const std::vector<std::uint8_t>& bytes) {
    if (!line.starts_with("DMenuF_1__") && !line.starts_with("DMenuF_2__")) {
      holds(playList.lngListCount() <= 1, "another text is one path");
      return;
    }
    std::string all = fromUtf16Bytes(bytes);
    std::size_t at = 0;
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      std::string path = playList.objGetAItem(i)->strFilePath;
      if (i == playList.lngListCount()) path = withoutHalfACharacter(std::move(path));
      at = all.find(path, at);
      holds(at != std::string::npos, "each path is from the selection");
      at += path.size();
    }
    std::int32_t parts = 1;
    for (auto end = all.find(kSeparator); end != std::string::npos; ++parts) {
      end = all.find(kSeparator, end + kSeparator.size());
    }
    holds(playList.lngListCount() <= parts, "no more items than paths");
  }

  CountedMemory memory;
  CommandLine lines{controler, memory, log};
};

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::freshWorld<tessivo::fuzz::SelectionTarget>().run({data, size});
  return 0;
}
