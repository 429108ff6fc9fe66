#pragma once

#include <windows.h>

#include <cstdint>

namespace tessivo {

/// What an engine's attempt threads and the engine itself post to the engine's window. Each
/// carries the serial number of its attempt, so that news of an abandoned attempt is dropped.
enum class EngineEvent : UINT {
  opened,    ///< value: length in milliseconds, 0 when unknown
  playing,   ///
  paused,    ///
  position,  ///< value: milliseconds
  ended,     ///< the medium has come to its end
  failed,    ///< value: HRESULT; it cannot be opened or played on
  closed,    ///< the attempt has let go of everything; always the last one
  notify     ///< value: what a member call has to announce, in the engine's own coding
};

/// Callable from any thread. A window that has gone is ignored.
inline void postEngineEvent(HWND window, EngineEvent event, WPARAM serial, std::int32_t value) {
  PostMessageW(window, WM_APP + static_cast<UINT>(event), serial, value);
}

}  // namespace tessivo
