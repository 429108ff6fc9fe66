#include "app/CommandLine.h"

#include "app/Controler.h"

namespace tessivo {

void processCmdLine(const std::string& text, Controler& controler) {
  if (text.empty()) return;
  controler.BatchAddMovie({"", text}, true);
}

}  // namespace tessivo
