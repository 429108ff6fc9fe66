#pragma once

#include <string>

namespace tessivo {

/// Whether the file is one of Microsoft Access, by its first bytes. No such file: no.
bool isAccessFile(const std::string& path);

/// `path` + `suffix` + the first number from 1 whose name no file has.
std::string freeNameBeside(const std::string& path, const std::string& suffix);

}  // namespace tessivo
