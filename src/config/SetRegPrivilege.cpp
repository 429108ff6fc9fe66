#include "config/SetRegPrivilege.h"

namespace tessivo {
namespace {

constexpr std::uint32_t kAllAccess = 0xF00FF;
constexpr std::uint32_t kEnabled = 2;
/// Counted from 1: names that no system knows.
constexpr std::size_t kSystemEnvironment = 24;
constexpr std::size_t kUnsolicitedInput = 30;

}  // namespace

const std::array<const char*, SetRegPrivilege::kNames>& SetRegPrivilege::names() {
  static constexpr std::array<const char*, kNames> kAll{
      "SeAssignPrimaryTokenPrivilege",
      "SeAuditPrivilege",
      "SeBackupPrivilege",
      "SeChangeNotifyPrivilege",
      "SeCreateGlobalPrivilege",
      "SeCreatePagefilePrivilege",
      "SeCreatePermanentPrivilege",
      "SeCreateTokenPrivilege",
      "SeDebugPrivilege",
      "SeEnableDelegationPrivilege",
      "SeImpersonatePrivilege",
      "SeIncreaseBasePriorityPrivilege",
      "SeIncreaseQuotaPrivilege",
      "SeLoadDriverPrivilege",
      "SeLockMemoryPrivilege",
      "SeMachineAccountPrivilege",
      "SeManageVolumePrivilege",
      "SeProfileSingleProcessPrivilege",
      "SeRemoteShutdownPrivilege",
      "SeRestorePrivilege",
      "SeSecurityPrivilege",
      "SeShutdownPrivilege",
      "SeSyncAgentPrivilege",
      "SeSystemEnvironment",
      "SeSystemProfilePrivilege",
      "SeSystemtimePrivilege",
      "SeTakeOwnershipPrivilege",
      "SeTcbPrivilege",
      "SeUndockPrivilege",
      "SeUnsolicitedInputPrivilege",
  };
  return kAll;
}

SetRegPrivilege::SetRegPrivilege(ProcessToken& token) : token_(token) {
  const std::uint32_t error = token_.open(kAllAccess);
  if (error != 0) openError_ = "OpenProcessToken:" + std::to_string(error);
}

bool SetRegPrivilege::boolEnablePrivilege(std::string& errorText) {
  if (!openError_.empty()) {
    errorText = openError_;
    return false;
  }
  for (std::size_t i = 1; i <= kNames; ++i) {
    if (i == kSystemEnvironment || i == kUnsolicitedInput) continue;
    const std::string name = names()[i - 1];
    if (const std::uint32_t error = token_.lookUp(name, privilege_.identifier)) {
      errorText = "LookupPrivilegeValue(" + name + "):" + std::to_string(error);
      continue;
    }
    privilege_.attributes = kEnabled;
    if (const std::uint32_t error = token_.adjust(false, privilege_)) {
      errorText = "AdjustTokenPrivileges--(" + name + "):" + std::to_string(error);
    }
  }
  return true;
}

bool SetRegPrivilege::boolUnEnablePrivilege(std::string& errorText) {
  const std::uint32_t error = token_.adjust(true, privilege_);
  if (error == 0) return true;
  errorText = "AdjustTokenPrivileges: " + std::to_string(error);
  return false;
}

}  // namespace tessivo
