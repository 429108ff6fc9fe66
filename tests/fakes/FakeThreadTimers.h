#pragma once

#include <cstdint>
#include <map>

#include "fakes/VirtualTime.h"
#include "platform/ThreadTimers.h"

namespace tessivo {

/// The system's thread timers on virtual time.
struct FakeThreadTimers : ThreadTimers {
  explicit FakeThreadTimers(VirtualTime& t) : time(t) {}
  std::uint32_t set(std::int32_t intervalMs, TimerProcedure& procedure) override {
    if (fails) return 0;
    const std::uint32_t identifier = nextIdentifier++;
    lastProcedure = &procedure;
    running[identifier] = {intervalMs, time.start(intervalMs, [&procedure, identifier] {
                             procedure.timerProc(identifier);
                           })};
    return identifier;
  }
  void kill(std::uint32_t identifier) override {
    const auto found = running.find(identifier);
    if (found == running.end()) return;
    time.stop(found->second.id);
    running.erase(found);
  }

  struct Running {
    std::int32_t intervalMs;
    TimerService::Id id;
  };
  VirtualTime& time;
  std::map<std::uint32_t, Running> running;  ///< by identifier
  std::uint32_t nextIdentifier = 7;
  TimerProcedure* lastProcedure = nullptr;
  bool fails = false;
};

}  // namespace tessivo
