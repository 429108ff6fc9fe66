#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessivo {

/// What executables and libraries say of themselves.
class FileVersions {
 public:
  virtual ~FileVersions() = default;
  /// The version resource of a file, as it stands there: nobody has checked it. A bare file name is
  /// looked for where the system looks for libraries. Empty when there is no such file or it has
  /// none.
  virtual std::vector<std::uint8_t> resourceOf(const std::string& file) const = 0;
};

}  // namespace tessivo
