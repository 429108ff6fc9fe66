#pragma once

#include <cstdint>
#include <span>

#include "app/CommandLine.h"
#include "platform/Log.h"
#include "ui/Timer.h"

namespace tessivo {

/// Answers the requests of later instances, which arrive at the tray form's window. What is not
/// followed is logged and has no other effect, whoever sent it.
class RequestReceiver {
 public:
  RequestReceiver(Controler& controler, CommandLine& commandLine, Log& log)
      : controler_(controler), commandLine_(commandLine), log_(log) {}

  /// Whether start-up has finished; before that every request is ignored.
  bool boolSysReady() const { return boolSysReady_; }
  void boolSysReady(bool ready) { boolSysReady_ = ready; }

  /// A request: its number and bytes. A command line starts the guard timer (300 ms); another one
  /// that comes while it runs is dropped, because many launches at once are one that got out of
  /// hand. The request to show the control panel is followed always.
  void take(std::uintptr_t number, std::span<const std::uint8_t> bytes,
            ui::Timer& timDelayCallWinProc);

 private:
  void refuse(const std::string& why);

  Controler& controler_;
  CommandLine& commandLine_;
  Log& log_;
  bool boolSysReady_ = false;
};

}  // namespace tessivo
