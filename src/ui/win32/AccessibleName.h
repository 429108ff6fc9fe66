#pragma once

#include <windows.h>

#include <string>

namespace tessivo::ui {

/// Tells others who a control's window is: `name` to programs that work the form from outside (a
/// window property of that name), `spoken` to screen readers, for a control that shows no text of
/// its own; empty: the control's text says it.
void nameWindow(HWND window, const std::string& name, const std::string& spoken);

}  // namespace tessivo::ui
