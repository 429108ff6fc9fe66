#pragma once

#include <string>

#include "platform/Log.h"
#include "platform/SharedMemory.h"

namespace tessivo {

class Controler;

/// Carries out command lines: the program's own at its start, and those that later instances hand
/// over.
class CommandLine {
 public:
  CommandLine(Controler& controler, SharedMemory& memory, Log& log)
      : controler_(controler), memory_(memory), log_(log) {}

  /// The verb of the shell's menu leads to a selection of files in shared memory, added and played
  /// ("DMenuF_1__") or only added ("DMenuF_2__"); when that cannot be followed it is logged and
  /// nothing happens. Every other text is, as a whole, one path, added and played. An empty text
  /// does nothing.
  void processCmdLine(const std::string& text);
  /// Whether that is one path, which will be played when it is a file.
  static bool isPath(const std::string& text);

 private:
  void addSelection(const std::string& text, bool play);
  /// Nothing happens; the log says why.
  void refuse(const std::string& why);

  Controler& controler_;
  SharedMemory& memory_;
  Log& log_;
};

}  // namespace tessivo
