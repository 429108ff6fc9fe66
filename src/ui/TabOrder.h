#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// The control that the Tab key (with Shift: backwards) leads to from `current`, going round at the
/// ends: controls in the order of their construction, those inside a container at its place, left
/// out what is hidden, disabled or takes no keyboard. From nothing it leads to the first (the
/// last). Nothing when no control takes the keyboard.
Control* nextInTabOrder(const Container& form, const Control* current, bool backwards);

/// The button that an arrow key leads to from a button: the next one (backwards: the one before) in
/// the same container, going round at the ends, left out what is hidden or disabled. Nothing when
/// there is no other.
Control* nextButton(const Control& button, bool backwards);

}  // namespace tessivo::ui
