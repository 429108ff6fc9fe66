#pragma once

#include <optional>
#include <string>

namespace tessivo {

/// A page of the disk and a place in it.
struct PageAnchor {
  std::string page;    ///< the path of the file
  std::string anchor;  ///< without the "#"
};

/// The two halves of a path like "C:\Help\Page.htm#Place". Nothing when the text is no page with an
/// anchor: no "#", nothing after it, or something else than ".htm" or ".html" before the last one.
std::optional<PageAnchor> pageAnchorOf(const std::string& text);

/// The address of that place for a browser, "file:///C:/Help/Page.htm#Place". The page's path is a
/// full one, with a drive or of a server; what an address cannot hold is written with "%", its
/// bytes in UTF-8.
std::string addressOf(const PageAnchor& place);

}  // namespace tessivo
