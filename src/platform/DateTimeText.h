#pragma once

#include <string>

#include "platform/Clock.h"

namespace tessivo {

/// "2026-11-20 16:04:19".
std::string dateTimeText(const LocalTime& time);

}  // namespace tessivo
