#pragma once

#include "platform/SharedMemory.h"

namespace tessivo {

class Win32SharedMemory : public SharedMemory {
 public:
  bool exists(const std::string& name) const override;
  MappingHandle createFileMapping(const std::string& name, std::int32_t bytes) override;
  std::span<std::uint8_t> mapView(MappingHandle mapping) override;
  bool unmapView(std::span<std::uint8_t> view) override;
  bool closeHandle(MappingHandle mapping) override;
};

}  // namespace tessivo
