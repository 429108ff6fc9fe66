#pragma once

#include "platform/FileVersions.h"

namespace tessivo {

/// Version resources by the system's own reader. Nothing of a file is carried out.
class Win32FileVersions final : public FileVersions {
 public:
  std::vector<std::uint8_t> resourceOf(const std::string& file) const override;
};

}  // namespace tessivo
