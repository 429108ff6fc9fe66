#include "saver/SendKeyToAWin.h"

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::uint32_t kKeyDown = 0x100;
constexpr std::uint32_t kKeyUp = 0x101;
constexpr unsigned char kLastAscii = 0x7F;

/// The key message's parameter: flags, scan code and repeat count, eight hexadecimal digits.
std::int32_t keyData(std::uint32_t flags, std::uint32_t scanCode) {
  return static_cast<std::int32_t>(flags << 24 | (scanCode & 0xFF) << 16 | 1);
}

}  // namespace

void SendKeyToAWin::SendKey(WindowHandle window, const std::string& key) {
  const std::string first = toUpper(key.substr(0, 1));
  if (first.empty() || static_cast<unsigned char>(first[0]) > kLastAscii) return;
  const auto virtualKey = static_cast<unsigned char>(first[0]);
  const std::uint32_t scanCode = keys_.scanCodeOf(virtualKey);
  keys_.post(window, kKeyDown, virtualKey, keyData(0x00, scanCode));
  keys_.post(window, kKeyUp, virtualKey, keyData(0xC0, scanCode));
}

}  // namespace tessivo
