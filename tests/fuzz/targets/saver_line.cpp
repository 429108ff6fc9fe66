// What a screen-saver program is started with.
#include "fuzz/Fuzz.h"
#include "ssp/SaverArguments.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

using namespace tessivo::ssp;

std::string field(std::int32_t number) {
  return std::to_string(number) + "##";
}

/// The same as text.
std::string lineOf(const SaverArguments& arguments) {
  const Rect& area = arguments.area;
  if (arguments.task == SaverTask::configure) {
    return "SHOW_CONFIG_FACE##" + field(arguments.middle.x) + field(arguments.middle.y) +
           arguments.ownerCaption;
  }
  return "RUN##" + field(area.left) + field(area.top) + field(area.width) + field(area.height) +
         field(arguments.fullScreen ? 1 : 0) + arguments.caption;
}

void checkArea(const Rect& area) {
  constexpr std::int32_t kLongestSide = 32767;
  holds(area.width > 0 && area.width <= kLongestSide, "a width that a window can have");
  holds(area.height > 0 && area.height <= kLongestSide, "a height that a window can have");
  // The sanitizer sees a sum that does not fit.
  holds(area.left + area.width > area.left && area.top + area.height > area.top, "its edges");
}

bool same(const SaverArguments& a, const SaverArguments& b) {
  return a.task == b.task && a.area.left == b.area.left && a.area.top == b.area.top &&
         a.area.width == b.area.width && a.area.height == b.area.height &&
         a.fullScreen == b.fullScreen && a.caption == b.caption && a.middle.x == b.middle.x &&
         a.middle.y == b.middle.y && a.ownerCaption == b.ownerCaption;
}

void run(Input input) {
  const std::string line = input.rest();
  const SaverArguments arguments = parseSaverArguments(line);
  holds(line.ends_with(arguments.caption) && line.ends_with(arguments.ownerCaption),
        "the last field is the rest");
  if (arguments.task == SaverTask::run) checkArea(arguments.area);
  if (arguments.task == SaverTask::settings || arguments.task == SaverTask::invalid) return;
  holds(same(parseSaverArguments(lineOf(arguments)), arguments), "written it reads the same");
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
