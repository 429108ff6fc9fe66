// Texts of any origin: UTF-8 and UTF-16, numbers, anchors of pages.
#include <algorithm>

#include "base/Text.h"
#include "base/Utf16Bytes.h"
#include "data/Value.h"
#include "fuzz/Fuzz.h"
#include "platform/PageAnchor.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

void checkUtf16(std::span<const std::uint8_t> bytes) {
  const auto whole = bytes.first(bytes.size() / 2 * 2);
  const auto again = toUtf16Bytes(fromUtf16Bytes(bytes));
  holds(std::ranges::equal(again, whole), "any UTF-16 comes back from UTF-8");
}

void checkUtf8(const std::string& text) {
  const std::u16string wide = toUtf16(text);
  holds(wide.size() <= text.size(), "no more characters than bytes");
  holds(toUtf16(toUtf8(wide)) == wide, "what is no UTF-8 is replaced once");
  const bool ascii = std::ranges::all_of(text, [](char c) { return c >= 0; });
  holds(!ascii || toUtf8(wide) == text, "ASCII is the same");
}

void checkParts(const std::string& text) {
  holds(text.ends_with(fileNameOf(text)), "the name is the end of the path");
  holds(fileNameOf(text).find('\\') == std::string::npos, "the name has no separator");
  holds(trim(trim(text)) == trim(text), "nothing is left to trim");
  holds(toUpper(toUpper(text)) == toUpper(text), "upper case stays");
  holds(text.empty() || containsNoCase(text, toUpper(text)), "a text contains itself");
}

void checkNumber(const std::string& text) {
  const auto number = asNumber(Value(text));
  if (!number) return;
  holds(std::isfinite(*number), "a finite number");
  holds(asNumber(Value(asText(Value(*number)))) == number, "written it reads the same");
  // The sanitizer sees a conversion that does not fit.
  asInteger<std::int16_t>(Value(text), 0);
  asInteger<std::int32_t>(Value(text), 0);
  asInteger<std::int64_t>(Value(text), 0);
}

void checkAnchor(const std::string& text) {
  const auto place = pageAnchorOf(text);
  if (!place) return;
  holds(place->page + '#' + place->anchor == text, "two halves of the text");
  const std::string address = addressOf(*place);
  const std::string page = address.substr(0, address.size() - place->anchor.size() - 1);
  holds(std::ranges::all_of(page, [](char c) { return c > ' ' && c < '\x7f'; }),
        "an address is plain ASCII up to its anchor");
}

void run(Input input) {
  checkUtf16(input.bytes());
  const std::string text = input.rest();
  checkUtf8(text);
  checkParts(text);
  checkNumber(text);
  checkAnchor(text);
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
