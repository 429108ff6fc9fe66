// What is dropped on the control panel: a path a line. The first byte says whether there are 500
// more (bit 0) and whether a dialog is up (bit 7).
#include "fuzz/Panel.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 500;

namespace {

constexpr std::size_t kMost = 500;

class DroppedFilesTarget : public Panel {
 public:
  void run(Input input) {
    const std::uint8_t world = input.byte();
    const std::size_t more = (world & 1) != 0 ? kMost : 0;
    main.setEnabled((world & 0x80) == 0);
    std::vector<std::string> paths;
    while (!input.atEnd()) paths.push_back(input.line());
    paths.insert(paths.end(), more, "C:\\v\\b.avi");
    drop(paths);
    time.advance(5000);
    const auto count = static_cast<std::size_t>(playList.lngListCount());
    if (!main.enabled() || paths.size() > kMost) {
      holds(count == 0, "nothing is added");
    } else {
      holds(count >= more && count <= paths.size(), "no more than was dropped");
    }
    holds(toolkit.dialogs == (main.enabled() && paths.size() > kMost ? 1 : 0), "too many are said");
    checkPanel();
  }
};

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::freshWorld<tessivo::fuzz::DroppedFilesTarget>().run({data, size});
  return 0;
}
