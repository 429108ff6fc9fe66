#pragma once

#include <cstdint>

namespace tessivo {

/// Which engine plays a file. A plain number everywhere, also in the database: values other than
/// these occur and select no engine.
namespace playRule {
inline constexpr std::int32_t kPreferReal = 0;
inline constexpr std::int32_t kPreferMedia = 1;
inline constexpr std::int32_t kRealOnly = 2;
inline constexpr std::int32_t kMediaOnly = 3;
}  // namespace playRule

/// What the playback window is doing (`lngState`).
namespace playState {
inline constexpr std::int32_t kPlaying = 1;
inline constexpr std::int32_t kStopped = 2;
inline constexpr std::int32_t kPaused = 3;
inline constexpr std::int32_t kStarting = 4;  ///< accepted, the engine's start is pending
}  // namespace playState

}  // namespace tessivo
