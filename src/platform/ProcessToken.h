#pragma once

#include <cstdint>
#include <string>

namespace tessivo {

/// One privilege to be changed, as the system takes it.
struct TokenPrivilege {
  std::uint32_t count = 1;
  std::uint64_t identifier = 0;  ///< locally unique
  std::uint32_t attributes = 0;
};

/// The process's own access token. Every operation returns 0, or the system's error.
class ProcessToken {
 public:
  virtual ~ProcessToken() = default;
  /// Opened once, for everything that follows; it stays open as long as the process runs.
  virtual std::uint32_t open(std::uint32_t access) = 0;
  virtual std::uint32_t lookUp(const std::string& privilege, std::uint64_t& identifier) const = 0;
  /// Changes the privilege, or with `disableAll` takes all from the token whatever the record says.
  /// A privilege that the token does not have is no error.
  virtual std::uint32_t adjust(bool disableAll, const TokenPrivilege& privilege) = 0;
};

}  // namespace tessivo
