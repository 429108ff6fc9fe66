#include "screen/engines/embedded/SourcePath.h"

#include "base/Text.h"

namespace tessivo {
namespace {

/// Components append to the paths they are given, so the prefix comes before MAX_PATH (260) is
/// reached.
constexpr std::size_t kLongPath = 240;

}  // namespace

SourcePath sourcePathOf(std::string_view pathOrUrl) {
  const std::u16string utf16 = toUtf16(pathOrUrl);
  SourcePath source{std::wstring(utf16.begin(), utf16.end()), false};
  source.isUrl = source.text.find(L"://") != std::wstring::npos;
  if (source.isUrl || source.text.size() < kLongPath) return source;
  if (source.text.starts_with(L"\\\\?\\")) return source;
  // With the prefix nothing is normalised any more.
  for (wchar_t& c : source.text) {
    if (c == L'/') c = L'\\';
  }
  if (source.text.starts_with(L"\\\\")) {
    source.text = L"\\\\?\\UNC" + source.text.substr(1);
  } else if (source.text.size() > 2 && source.text[1] == L':') {
    source.text = L"\\\\?\\" + source.text;
  }
  return source;
}

}  // namespace tessivo
