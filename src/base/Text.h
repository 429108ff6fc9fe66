#pragma once

#include <string>
#include <string_view>

namespace tessivo {

/// UTF-8 of a UTF-16 text. An unpaired surrogate (Windows file names may hold one) becomes the
/// three bytes that its code point would take, so that toUtf16 gives the same text back.
std::string toUtf8(std::u16string_view utf16);

/// UTF-16 of a UTF-8 text, the inverse of toUtf8. A byte that starts no valid sequence becomes
/// U+FFFD.
std::u16string toUtf16(std::string_view utf8);

/// The text without blanks (U+0020) at both ends; other white space stays.
std::string_view trim(std::string_view text);

/// ASCII letters in upper case, everything else as it is.
std::string toUpper(std::string_view text);

/// Whether `part` occurs in `text`, ASCII letters compared without regard to case.
bool containsNoCase(std::string_view text, std::string_view part);

/// The part after the last '\'; the whole text when there is none.
std::string_view fileNameOf(std::string_view path);

}  // namespace tessivo
