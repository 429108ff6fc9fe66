#pragma once

#include <windows.h>

#include "base/Twips.h"
#include "platform/win32/Gdi.h"

namespace tessivo::ui {

/// The one font of all forms, plain and bold, scaled to the screen. A Chinese character set makes
/// Windows take another Chinese font where the named one is missing.
class UiFonts {
 public:
  explicit UiFonts(TwipsPerPixel twips);
  HFONT plain() const { return plain_.get(); }
  HFONT bold() const { return bold_.get(); }

 private:
  UniqueGdi<HFONT> plain_;
  UniqueGdi<HFONT> bold_;
};

}  // namespace tessivo::ui
