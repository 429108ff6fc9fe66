#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// A picture in memory, 32 bits a pixel (blue, green, red, unused), the top row first, black. Where
/// its pixels lie goes to `pixels`, unless that is null. Null when there is no room for it.
UniqueGdi<HBITMAP> makeDib(Size size, std::uint8_t** pixels);

}  // namespace tessivo::ssp
