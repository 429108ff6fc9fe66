#pragma once

#include <cstdint>
#include <string>

#include "platform/Processes.h"

namespace tessivo::rpiAPI {

/// Looks among the running processes for an executable, ASCII letters in any case: by
/// `fullPath`, or when that is empty by `baseName`, which sets `fullPath` to that of the last
/// match. `count` becomes the number of matches. Returns the last match's process identifier, 0
/// when there is none, -1 when both names are empty, -2 (and `count` as it was) when the system
/// does not tell its processes. Linear in the processes. A path longer than 259 characters is never
/// found.
std::int32_t lngSearchProcess(const Processes& processes, std::string& fullPath,
                              const std::string& baseName, std::int32_t& count);

}  // namespace tessivo::rpiAPI
