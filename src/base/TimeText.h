#pragma once

#include <cstdint>
#include <string>

namespace tessivo {

/// Seconds as hours:minutes:seconds, each with at least two digits: 65 gives "00:01:05", a hundred
/// hours "100:00:00". The quotients are truncated toward zero, so a negative time has its sign in
/// the fields that are not zero.
std::string strGetTimStringBySecValue(std::int32_t seconds);

}  // namespace tessivo
