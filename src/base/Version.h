#pragma once

namespace tessivo {

/// The program's version as the user sees it; Tessivo.rc and Tessivo.manifest carry it too.
inline constexpr const char* kVersion = "0.1.0";

}  // namespace tessivo
