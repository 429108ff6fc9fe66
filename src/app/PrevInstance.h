#pragma once

#include <string>

#include "platform/Log.h"
#include "platform/Messaging.h"

namespace tessivo {

/// The instance that runs already, as a second one sees it, which then ends.
class PrevInstance {
 public:
  PrevInstance(Messaging& messaging, Log& log) : messaging_(messaging), log_(log) {}

  /// Has it show its control panel, hands it the command line unless that is empty, and brings it
  /// to the foreground. Without its window (it is still starting, or closing) the request is lost.
  void handOver(const std::string& commandLine);

 private:
  void sendStringToPrevInstance(const std::string& text, std::uintptr_t wParam,
                                WindowHandle target);

  Messaging& messaging_;
  Log& log_;
};

}  // namespace tessivo
