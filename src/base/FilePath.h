#pragma once

#include <filesystem>
#include <string>

namespace tessivo {

/// The system's form of a UTF-8 path.
std::filesystem::path toFilePath(const std::string& path);

}  // namespace tessivo
