#pragma once

#include <string>

#include "platform/Displays.h"

namespace tessivo {

/// Opens pages, addresses and programs as the user's desktop does. The About box and the help
/// entries use it.
class Shell {
 public:
  virtual ~Shell() = default;
  /// Opens a file or an address with the program that the user has for it, a page of the disk also
  /// at an anchor ("C:\Help\Page.htm#Place"); a program by its name or path, with the parameters as
  /// one text. Does not wait for it. `owner` may be 0. What cannot be opened shows nothing and is
  /// logged; false then.
  virtual bool open(WindowHandle owner, const std::string& file, const std::string& parameters) = 0;
  /// Tells the desktop that file types have other handlers or icons now. Does not wait for it.
  virtual void associationsChanged() = 0;
};

}  // namespace tessivo
