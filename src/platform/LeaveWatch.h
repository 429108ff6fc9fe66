#pragma once

#include <functional>

namespace tessivo {

/// Sees to it that a program that is being left ends: an engine that hangs while it is taken down
/// must not keep the process. User-interface thread only.
class LeaveWatch {
 public:
  virtual ~LeaveWatch() = default;
  /// From now on `disarm`, or another `arm`, must come within `ms`. Otherwise `lastWill` is carried
  /// out, on a thread of the watch's own, and the process ends by force. It may use what the
  /// hanging thread does not touch before its `disarm`, which does not return any more then. Where
  /// that cannot be, for want of a thread, nobody watches.
  virtual void arm(int ms, std::function<void()> lastWill) = 0;
  virtual void disarm() = 0;
};

}  // namespace tessivo
