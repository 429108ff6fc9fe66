#include "screen/CaughtWindows.h"

#include <algorithm>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr const char* kRealPlayerClass = "RealAudioCtrlWndClass";
/// No parent chain is longer; a chain that bites its own tail ends here.
constexpr int kLongestChain = 100;

std::string keyOf(WindowHandle window) {
  return std::to_string(window) + "H";
}

}  // namespace

void CaughtWindows::catchWindow(WindowHandle window) {
  if (closed_ || previous_.contains(keyOf(window))) return;
  if (!windows_.isOurs(window) || !isBelowRealPlayer(window)) return;
  const std::uintptr_t previous = procedures_.replace(window, *this);
  if (previous == 0) return;  // tried again with the next probe
  previous_[keyOf(window)] = previous;
  handles_.push_back(std::to_string(window));
}

void CaughtWindows::giveBackAll() {
  closed_ = true;
  for (const std::string& handle : std::exchange(handles_, {})) {
    procedures_.restore(std::stoull(handle), previous_.at(handle + "H"));
  }
}

bool CaughtWindows::isBelowRealPlayer(WindowHandle window) const {
  const std::string wanted = toUpper(kRealPlayerClass);
  WindowHandle parent = windows_.parentOf(window);
  for (int i = 0; parent != 0 && i < kLongestChain; ++i) {
    if (toUpper(windows_.classOf(parent)) == wanted) return true;
    parent = windows_.parentOf(parent);
  }
  return false;
}

bool CaughtWindows::consume(WindowHandle, WindowMessage message) {
  if (closed_) return false;
  switch (message) {
    case WindowMessage::leftUp:
      pictureMouse.raise(PictureMouse::leftUp);
      return true;
    case WindowMessage::leftDoubleClick:
      pictureMouse.raise(PictureMouse::leftDoubleClick);
      return true;
    case WindowMessage::rightUp:
      pictureMouse.raise(PictureMouse::rightUp);
      return true;
    case WindowMessage::leftDown:
    case WindowMessage::rightDown:
    case WindowMessage::rightDoubleClick:
    case WindowMessage::mouseMove:
      return true;
    default:
      return false;
  }
}

/// Kept after the procedures are back, for a window that somebody else took over meanwhile.
std::uintptr_t CaughtWindows::previousProcedure(WindowHandle window) const {
  const auto found = previous_.find(keyOf(window));
  return found == previous_.end() ? 0 : found->second;
}

/// Its handle may be given to another window.
void CaughtWindows::gone(WindowHandle window) {
  previous_.erase(keyOf(window));
  std::erase(handles_, std::to_string(window));
}

}  // namespace tessivo
