#pragma once

#include <string>

#include "platform/Log.h"
#include "ssp/SaverArguments.h"
#include "ssp/SettingsFile.h"
#include "ssp/win32/SaverProgram.h"

namespace tessivo::ssp {

/// Shows the program's settings where the arguments say, lets them be saved, and returns when the
/// dialog has gone. It goes without being accepted when the window that waits for it goes.
void configureSaver(const SaverProgram& program, const SaverArguments& arguments,
                    const SettingsFile& file, Log& log);

}  // namespace tessivo::ssp
