#include "base/FilePath.h"

#include "base/Text.h"

namespace tessivo {

std::filesystem::path toFilePath(const std::string& path) {
#ifdef _WIN32
  const std::u16string utf16 = toUtf16(path);
  return {std::wstring(utf16.begin(), utf16.end())};
#else
  return {path};
#endif
}

}  // namespace tessivo
