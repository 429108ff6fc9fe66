#include "app/PrevInstance.h"

#include "app/Request.h"
#include "base/Text.h"

namespace tessivo {

void PrevInstance::handOver(const std::string& commandLine) {
  const WindowHandle window = messaging_.findTopLevel(request::kWindowTitle);
  if (window == 0) return;
  sendStringToPrevInstance(request::kShowMainFace, 0, window);
  if (!commandLine.empty()) sendStringToPrevInstance(commandLine, 0, window);
  messaging_.bringToForeground(window);
}

void PrevInstance::sendStringToPrevInstance(const std::string& text, std::uintptr_t wParam,
                                            WindowHandle target) {
  const auto bytes = request::encode(text);
  if (!bytes) {
    log_.error("request not sent, too long: " + std::to_string(toUtf16(text).size()) +
               " characters");
  } else if (!messaging_.sendCopyData(target, wParam, request::kNumber, *bytes)) {
    log_.error("request not answered: " + text);
  }
}

}  // namespace tessivo
