#pragma once

#include <cstdint>

namespace tessivo {

/// The system's screen-saver settings and what keeps it awake. The numbers are the system's own.
class SystemPower {
 public:
  virtual ~SystemPower() = default;
  /// One call of `SystemParametersInfo`: action, its parameter, the word it reads or writes, what
  /// becomes of the user's profile. False when the system refuses.
  virtual bool systemParameters(std::uint32_t action, std::uint32_t parameter, std::uint32_t& word,
                                std::uint32_t profile) = 0;
  /// One call of `SetThreadExecutionState` with its ES_ bits. Returns the bits that held before; 0
  /// when the system refuses.
  virtual std::uint32_t setExecutionState(std::uint32_t bits) = 0;
};

}  // namespace tessivo
