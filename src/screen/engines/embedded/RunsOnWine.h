#pragma once

namespace tessivo {

/// Whether the Windows below us is Wine, whose media components differ in a few points that no
/// call reports (see the places that ask).
bool runsOnWine();

}  // namespace tessivo
