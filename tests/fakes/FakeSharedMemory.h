#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Utf16Bytes.h"
#include "platform/SharedMemory.h"

namespace tessivo {

/// Mappings by name, of exactly the size that they were made with. Notes each call.
struct FakeSharedMemory : SharedMemory {
  bool exists(const std::string& name) const override { return mappings.contains(name); }
  MappingHandle createFileMapping(const std::string& name, std::int32_t bytes) override {
    calls += "open " + name + " " + std::to_string(bytes) + " | ";
    if (refuse) return 0;
    if (!mappings.contains(name)) mappings[name].resize(static_cast<std::size_t>(bytes));
    opened = name;
    return 7;
  }
  std::span<std::uint8_t> mapView(MappingHandle) override {
    calls += "map | ";
    if (refuseView) return {};
    return mappings.at(opened);
  }
  bool unmapView(std::span<std::uint8_t>) override {
    calls += "unmap | ";
    return true;
  }
  bool closeHandle(MappingHandle) override {
    calls += "close | ";
    return true;
  }
  /// What the shell's component does: the paths, padded with zero bytes.
  void put(const std::string& name, const std::string& text, std::size_t padding) {
    mappings[name] = toUtf16Bytes(text);
    mappings[name].resize(mappings[name].size() + padding);
  }

  std::map<std::string, std::vector<std::uint8_t>> mappings;
  std::string opened;
  std::string calls;
  bool refuse = false;
  bool refuseView = false;
};

}  // namespace tessivo
