#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>

#include "platform/MessageLoop.h"

namespace tessivo {

/// The message loop of Windows.
class Win32MessageLoop : public MessageLoop {
 public:
  using Filter = std::function<bool(MSG&)>;

  /// `filter` sees each message before it is dispatched and says whether it has dealt with it: the
  /// keyboard of the forms.
  void setFilter(Filter filter) { filter_ = std::move(filter); }

  /// Handles messages until `quit`.
  void run();
  /// Handles messages while the condition holds, for as long as a modal form is open. The
  /// condition is asked after each message.
  void runWhile(const std::function<bool()>& condition);
  /// Sleeps between the messages. Ends early when the program quits.
  void pumpFor(int ms) override;
  void quit() override;

 private:
  /// Handles what is waiting until `isDone` says so; false when the program quits.
  bool handleWaiting(const std::function<bool()>& isDone);
  void handle(MSG& message);

  Filter filter_;
  bool quitting_ = false;
};

}  // namespace tessivo
