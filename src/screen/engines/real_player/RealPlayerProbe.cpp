#include "screen/engines/real_player/RealPlayerProbe.h"

#include <windows.h>

#include "platform/Log.h"
#include "screen/engines/real_player/RealPlayerControl.h"

namespace tessivo {
namespace {

/// A window that is never shown.
class HiddenWindow {
 public:
  HiddenWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 16, 16, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr)) {}
  ~HiddenWindow() { DestroyWindow(window_); }
  HiddenWindow(const HiddenWindow&) = delete;
  HiddenWindow& operator=(const HiddenWindow&) = delete;
  HWND handle() const { return window_; }

 private:
  HWND window_;
};

/// Keeps what was said last. The check is repeated again and again; its caller knows what is new.
struct LastWord final : Log {
  void info(std::string_view text) override { last = text; }
  void error(std::string_view text) override { last = text; }
  std::string last;
};

}  // namespace

std::string whyRealPlayerFails() {
  const HiddenWindow window;
  LastWord log;
  RealPlayerControl control(window.handle(), log);
  if (control.created() && control.takesSource("00000")) return "";
  return log.last.empty() ? "the RealPlayer control does not answer" : log.last;
}

}  // namespace tessivo
