#pragma once

#include <windows.h>

#include <set>
#include <string>

#include "platform/Log.h"
#include "screen/engines/embedded/ErrorCode.h"

namespace tessivo {

/// Absorbs what the members of an installed control fail with: each member is logged the first
/// time. An installation need not serve all of them, and some are asked every second.
class MemberFailures {
 public:
  MemberFailures(std::string control, Log& log) : control_(std::move(control)), log_(log) {}

  bool succeeded(HRESULT result, const std::string& member) {
    if (SUCCEEDED(result)) return true;
    if (known_.insert(member).second) {
      log_.error(control_ + ": " + member + " failed: " + hexOf(result) + ", said once");
    }
    return false;
  }

 private:
  std::string control_;
  Log& log_;
  std::set<std::string> known_;
};

}  // namespace tessivo
