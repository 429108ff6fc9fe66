#include "app/RequestReceiver.h"

#include "app/Controler.h"
#include "app/Request.h"

namespace tessivo {

void RequestReceiver::take(std::uintptr_t number, std::span<const std::uint8_t> bytes,
                           ui::Timer& timDelayCallWinProc) {
  if (!boolSysReady_) return refuse("not ready yet");
  if (number != request::kNumber) return refuse("number " + std::to_string(number));
  const auto text = request::decode(bytes);
  if (!text) return refuse(std::to_string(bytes.size()) + " bytes");
  if (*text == request::kShowMainFace) {
    log_.info("request: " + *text);
    return controler_.showMainFace();
  }
  if (text->empty()) return refuse("empty");
  if (timDelayCallWinProc.enabled()) return refuse("less than 300 ms after another: " + *text);
  timDelayCallWinProc.setEnabled(true);
  log_.info("request: " + *text);
  commandLine_.processCmdLine(*text);
}

void RequestReceiver::refuse(const std::string& why) {
  log_.info("request refused: " + why);
}

}  // namespace tessivo
