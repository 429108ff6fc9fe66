#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tessivo::ssp {

/// The values of one section of an ini file. A key that occurs twice counts as it was said last.
class IniSettings {
 public:
  /// `section` is "[SECTION]" in upper case. A text that is no ini file has no values.
  IniSettings(std::string_view text, std::string_view section);

  /// Keys are in upper case. Nothing when the key is missing.
  std::optional<std::string> text(const std::string& key) const;
  /// 0 or 1; `otherwise` for anything else.
  bool flag(const std::string& key, bool otherwise) const;

 private:
  std::map<std::string, std::string> values_;
};

}  // namespace tessivo::ssp
