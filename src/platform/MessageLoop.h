#pragma once

namespace tessivo {

/// The user-interface thread's message loop.
class MessageLoop {
 public:
  virtual ~MessageLoop() = default;
  /// Handles events as they come for so many milliseconds.
  virtual void pumpFor(int ms) = 0;
  /// Makes the loop return; nothing of the program runs after the present event.
  virtual void quit() = 0;
};

}  // namespace tessivo
