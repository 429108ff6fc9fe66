#pragma once

#include <string>
#include <string_view>

namespace tessivo {

/// A source as the media components take it.
struct SourcePath {
  std::wstring text;
  bool isUrl = false;  ///< has a scheme ("http://…"); else it is a path of the file system
};

/// Converts a path or URL. A path too long for the classic limit gets the prefix that lifts it.
SourcePath sourcePathOf(std::string_view pathOrUrl);

}  // namespace tessivo
