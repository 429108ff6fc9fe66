// The answer of the system's dialog that adds files: a folder and names with a NUL between them, or
// one path.
#include <algorithm>

#include "fuzz/Player.h"
#include "panel/AddFilesDialog.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

class OpenDialogTarget : public Player {
 public:
  void run(Input input) {
    const std::string answer = input.rest();
    auto paths = chosenPaths(answer);
    check(answer, paths);
    if (paths.empty()) return;
    const std::size_t count = paths.size() - 1;
    controler.BatchAddMovie(std::move(paths), (answer.size() & 1) != 0);
    time.advance(1000);
    holds(playList.lngListCount() <= static_cast<std::int32_t>(count), "no more than chosen");
    checkPlayer();
  }

 private:
  static void check(const std::string& answer, const std::vector<std::string>& paths) {
    const auto nuls = static_cast<std::size_t>(std::ranges::count(answer, '\0'));
    if (nuls == 0) {
      const bool ends = answer.ends_with('\\') || answer.find_first_of("\\/") == std::string::npos;
      holds(!ends || paths.empty(), "a folder is no file");
      holds(paths.empty() || paths.size() == 2, "one path");
      holds(paths.empty() || paths[1] == answer, "the path as it was answered");
      return;
    }
    holds(paths.size() == nuls + 1, "a path for each name");
    const std::string folder = answer.substr(0, answer.find('\0'));
    for (std::size_t i = 1; i < paths.size(); ++i) {
      holds(paths[i].starts_with(folder), "in the folder");
      holds(paths[i].find('\0') == std::string::npos, "a path has no NUL");
      holds(paths[i].find('\\') != std::string::npos, "a full path");
    }
  }
};

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::freshWorld<tessivo::fuzz::OpenDialogTarget>().run({data, size});
  return 0;
}
