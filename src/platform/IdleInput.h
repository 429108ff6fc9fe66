#pragma once

#include <cstdint>
#include <optional>

namespace tessivo {

/// When the user last touched keyboard or mouse, in any program of the session.
class IdleInput {
 public:
  virtual ~IdleInput() = default;
  /// The system's tick count, in milliseconds, of the last input; nothing when the system does not
  /// tell.
  virtual std::optional<std::uint32_t> lastInputTick() const = 0;
  /// Milliseconds since the system started. Begins anew at 0 after 49.7 days.
  virtual std::uint32_t tickCount() const = 0;
};

}  // namespace tessivo
