#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/Log.h"
#include "platform/win32/WindowsText.h"

namespace tessivo::ssp {

/// A log for whoever watches the program with a debugger. A screen saver leaves no files behind.
class DebugLog : public Log {
 public:
  void info(std::string_view text) override { write(text); }
  void error(std::string_view text) override { write(text); }

 private:
  static void write(std::string_view text) {
    OutputDebugStringW(toWide(std::string(text) + "\n").c_str());
  }
};

}  // namespace tessivo::ssp
