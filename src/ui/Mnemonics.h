#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// The button or check box of the form whose caption marks this letter by an "&", in either case;
/// left out is what is hidden or disabled, or lies in a hidden container. Nothing when there is
/// none.
/// "&&" is an ampersand and marks nothing.
Control* controlOfMnemonic(const Container& form, char32_t letter);

}  // namespace tessivo::ui
