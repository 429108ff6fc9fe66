#pragma once

#include <array>
#include <string>

#include "platform/ProcessToken.h"

namespace tessivo {

/// Switches on the privileges that work with the registry needs, as far as the user has them, and
/// drops all at the end. The controller has the only one.
class SetRegPrivilege {
 public:
  static constexpr std::size_t kNames = 30;

  explicit SetRegPrivilege(ProcessToken& token);

  /// The table of the privileges, counted from 1.
  static const std::array<const char*, kNames>& names();

  /// False only when the process's token could not be opened. A single privilege that is refused
  /// is none: the text then is about the last of them.
  bool boolEnablePrivilege(std::string& errorText);
  /// Drops every privilege of the process, also those that others switched on.
  bool boolUnEnablePrivilege(std::string& errorText);

 private:
  ProcessToken& token_;
  TokenPrivilege privilege_;
  std::string openError_;  ///< empty when the token is open
};

}  // namespace tessivo
