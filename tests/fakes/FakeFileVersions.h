#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileVersions.h"

namespace tessivo {

/// A version resource with those numbers and nothing behind them.
inline std::vector<std::uint8_t> versionResource(std::uint16_t major, std::uint16_t minor,
                                                 std::uint16_t third, std::uint16_t fourth) {
  std::vector<std::uint8_t> bytes;
  const auto word = [&bytes](std::uint16_t value) {
    bytes.push_back(static_cast<std::uint8_t>(value));
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
  };
  word(92);  // all of it
  word(52);  // the fixed part
  word(0);   // which is no text
  for (const char16_t letter : std::u16string_view(u"VS_VERSION_INFO\0", 16)) word(letter);
  word(0);  // up to a multiple of four
  for (const std::uint16_t half : {0x04BD, 0xFEEF, 0, 1}) word(half);
  for (const std::uint16_t half : {minor, major, fourth, third}) word(half);
  bytes.resize(92);
  return bytes;
}

struct FakeFileVersions : FileVersions {
  std::vector<std::uint8_t> resourceOf(const std::string& file) const override {
    asked.push_back(file);
    if (throws) throw std::runtime_error("cannot be read");
    const auto found = files.find(file);
    return found == files.end() ? std::vector<std::uint8_t>{} : found->second;
  }
  std::map<std::string, std::vector<std::uint8_t>> files;
  bool throws = false;
  mutable std::vector<std::string> asked;
};

}  // namespace tessivo
