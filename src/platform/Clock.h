#pragma once

#include <cstdint>

namespace tessivo {

/// A moment of local time.
struct LocalTime {
  int year = 0;
  int month = 0;    ///< 1..12
  int day = 0;      ///< 1..31
  int msOfDay = 0;  ///< milliseconds since midnight, 0..86 399 999
};

/// The only source of time. Tests advance it by hand.
class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalTime now() const = 0;
  /// Milliseconds of a clock that never goes back; the origin is arbitrary.
  virtual std::uint64_t ticksMs() const = 0;
};

}  // namespace tessivo
