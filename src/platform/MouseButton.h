#pragma once

namespace tessivo {

/// Button numbers as mouse events carry them.
enum class MouseButton { left = 1, right = 2, middle = 4 };

}  // namespace tessivo
