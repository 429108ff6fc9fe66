#pragma once

#include <cstdlib>
#include <string>

#include "base/Text.h"

namespace tessivo {

/// Where the media are that tests/media/make has made; empty when no script has said so.
inline std::string mediaFolder() {
  const wchar_t* folder = _wgetenv(L"TESSIVO_TEST_MEDIA");
  if (folder == nullptr) return {};
  const std::wstring text = folder;
  return toUtf8(std::u16string(text.begin(), text.end()));
}
inline std::string media(const std::string& name) {
  return mediaFolder() + "\\" + name;
}

}  // namespace tessivo
