#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "fakes/Trace.h"
#include "fakes/VirtualTime.h"
#include "platform/IdleInput.h"
#include "platform/Processes.h"
#include "platform/SystemPower.h"

namespace tessivo {

/// A machine whose tick count stood at `startTick` when the virtual time began, and whose user
/// touches it only when a test says so.
struct FakeIdleInput : IdleInput {
  explicit FakeIdleInput(const VirtualTime& t) : time(t) {}
  std::optional<std::uint32_t> lastInputTick() const override {
    ++reads;
    if (whenRead) whenRead();
    if (fails) return std::nullopt;
    return lastInput;
  }
  std::uint32_t tickCount() const override {
    return startTick + static_cast<std::uint32_t>(time.ticksMs());
  }
  /// The user types or moves the mouse now.
  void touch() { lastInput = tickCount(); }
  /// The machine has run for so long at the beginning; the user touched it then.
  void begin(std::uint32_t tick) { startTick = lastInput = tick; }

  const VirtualTime& time;
  std::uint32_t startTick = 0;
  std::uint32_t lastInput = 0;
  bool fails = false;
  std::function<void()> whenRead;
  mutable int reads = 0;
};

/// Notes each call in the trace.
struct FakeSystemPower : SystemPower {
  explicit FakeSystemPower(Trace& t) : trace(t) {}
  bool systemParameters(std::uint32_t action, std::uint32_t parameter, std::uint32_t& word,
                        std::uint32_t profile) override {
    std::ostringstream text;
    text << "parameters " << action << ' ' << parameter << ' ' << word << ' ' << profile;
    trace.add(text.str());
    if (fails) return false;
    if (action == kSetScreenSaveActive) screenSaverOn = parameter != 0;
    if (answer) word = *answer;
    return true;
  }
  std::uint32_t setExecutionState(std::uint32_t bits) override {
    std::ostringstream text;
    if (whenAsked) whenAsked();
    text << "execution state " << std::hex << bits;
    trace.add(text.str());
    if (!fails) maySleep = bits == kContinuous;
    return fails ? 0 : kContinuous;
  }

  static constexpr std::uint32_t kSetScreenSaveActive = 17;
  static constexpr std::uint32_t kContinuous = 0x80000000;
  Trace& trace;
  bool screenSaverOn = true;
  bool maySleep = true;
  std::optional<std::uint32_t> answer;
  std::function<void()> whenAsked;  ///< for the execution state
  bool fails = false;
};

/// Programs that are started are noted; those that run are what a test says.
struct FakeProcesses : Processes {
  struct Started {
    std::string program;
    std::string arguments;
    WindowStyle style = WindowStyle::normal;

    bool operator==(const Started&) const = default;
    friend void PrintTo(const Started& one, std::ostream* out) {
      *out << one.program << ' ' << one.arguments << " style " << static_cast<int>(one.style);
    }
  };
  std::uint32_t start(const std::string& program, const std::string& arguments,
                      WindowStyle style) override {
    started.push_back({program, arguments, style});
    return error;
  }
  std::optional<std::uint32_t> enumerate(std::span<std::uint32_t> identifiers) const override {
    asked.push_back(identifiers.size());
    if (!tells) return std::nullopt;
    const std::size_t count = std::min(identifiers.size(), running.size());
    std::transform(running.begin(), running.begin() + static_cast<std::ptrdiff_t>(count),
                   identifiers.begin(), [](const auto& process) { return process.first; });
    return static_cast<std::uint32_t>(count * sizeof(std::uint32_t));
  }
  std::optional<ProcessModule> firstModule(std::uint32_t identifier) const override {
    looked.push_back(identifier);
    for (const auto& [process, module] : running) {
      if (process == identifier) return module;
    }
    return std::nullopt;
  }
  void run(std::uint32_t identifier, const std::string& path) {
    running.emplace_back(identifier, ProcessModule{path.substr(path.rfind('\\') + 1), path});
  }

  std::vector<Started> started;
  std::uint32_t error = 0;
  /// In the system's order; without a module one that may not be looked at.
  std::vector<std::pair<std::uint32_t, std::optional<ProcessModule>>> running;
  bool tells = true;
  mutable std::vector<std::size_t> asked;     ///< the room of each enumeration
  mutable std::vector<std::uint32_t> looked;  ///< whose executable was asked for
};

}  // namespace tessivo
