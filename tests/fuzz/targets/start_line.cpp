// The player's whole command line, as the shell passes it.
#include "app/StartWish.h"
#include "fuzz/Fuzz.h"
#include "platform/CommandLineText.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

void run(Input input) {
  const std::string line = input.rest();
  const std::string arguments(argumentText(line));
  holds(line.ends_with(arguments), "the arguments are the end of the line");
  holds(arguments.empty() || arguments.size() < line.size(), "the program's name comes first");
  holds(!arguments.starts_with(' ') && !arguments.starts_with('\t'), "no blanks before them");
  const StartWish wish = startWish(arguments);
  holds(wish.commandLine == (wish.convert ? "" : arguments), "what is left is left as it is");
  holds(wish.convert == (toUpper(trim(arguments)) == "--CONVERT"), "the one wish");
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
