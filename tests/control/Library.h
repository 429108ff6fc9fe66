#pragma once

#include <string>

namespace tessivo::test_control {

/// Where this library lies.
std::wstring libraryPath();

}  // namespace tessivo::test_control
