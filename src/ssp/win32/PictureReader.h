#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The picture of a file, turned upright and fitted into the area, with black around it: a bitmap
/// as large as the area. Null when the file is no picture, is damaged, or has too many pixels. Of a
/// file with several pictures the first. Any thread that has COM may call.
UniqueGdi<HBITMAP> readPicture(const std::string& path, Size area);

}  // namespace tessivo::ssp
