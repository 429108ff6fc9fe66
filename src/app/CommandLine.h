#pragma once

#include <string>

namespace tessivo {

class Controler;

/// Acts on the program's own argument: the whole text is one path, added and played. An empty text
/// does nothing.
void processCmdLine(const std::string& text, Controler& controler);

}  // namespace tessivo
