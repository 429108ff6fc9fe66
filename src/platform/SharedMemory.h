#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace tessivo {

/// The system's handle of a named, page-file-backed file mapping; 0 is none.
using MappingHandle = std::uintptr_t;

/// Named memory that programs share.
class SharedMemory {
 public:
  virtual ~SharedMemory() = default;
  /// Whether somebody has made a mapping of that name.
  virtual bool exists(const std::string& name) const = 0;
  /// Opens the mapping, or makes one of so many bytes that everybody may open. 0 on failure.
  virtual MappingHandle createFileMapping(const std::string& name, std::int32_t bytes) = 0;
  /// The whole mapping, to read and write: as many bytes as it really has, rounded up to whole
  /// pages, or the part of it from the beginning that can be used. Empty on failure.
  virtual std::span<std::uint8_t> mapView(MappingHandle mapping) = 0;
  virtual bool unmapView(std::span<std::uint8_t> view) = 0;
  virtual bool closeHandle(MappingHandle mapping) = 0;
};

}  // namespace tessivo
