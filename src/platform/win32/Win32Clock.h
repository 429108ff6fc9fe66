#pragma once

#include "platform/Clock.h"

namespace tessivo {

/// The time of Windows.
class Win32Clock : public Clock {
 public:
  LocalTime now() const override;
  std::uint64_t ticksMs() const override;
};

}  // namespace tessivo
