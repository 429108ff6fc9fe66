#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Log.h"

namespace tessivo {

struct FakeLog : Log {
  void info(std::string_view text) override { lines.push_back("info " + std::string(text)); }
  void error(std::string_view text) override { lines.push_back("error " + std::string(text)); }
  std::vector<std::string> lines;
};

}  // namespace tessivo
