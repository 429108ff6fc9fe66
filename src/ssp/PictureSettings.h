#pragma once

#include <array>
#include <string>
#include <string_view>

namespace tessivo::ssp {

enum class PictureOrder { byName, random };

struct PictureSettings {
  std::string folder;    ///< empty: the user's own pictures
  int staySeconds = 10;  ///< one of kStaySeconds
  PictureOrder order = PictureOrder::byName;

  friend bool operator==(const PictureSettings&, const PictureSettings&) = default;
};

/// How long a picture can stay.
inline constexpr std::array<int, 8> kStaySeconds{3, 5, 8, 10, 15, 30, 60, 300};

/// The settings in the text of an ini file; what is missing or not understood has its default.
PictureSettings parsePictureSettings(std::string_view text);
/// A folder with characters that no path has is left out.
std::string pictureSettingsText(const PictureSettings& settings);

}  // namespace tessivo::ssp
