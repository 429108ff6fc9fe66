#pragma once

namespace tessivo {

/// Tells the desktop that file types have other handlers or icons now. Does not wait for it.
void noticeAssociationsChanged();

}  // namespace tessivo
