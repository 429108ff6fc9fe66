#pragma once

#include <oaidl.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/Log.h"
#include "platform/win32/ComPtr.h"
#include "screen/engines/control/MemberFailures.h"
#include "screen/engines/control/Variant.h"

namespace tessivo {

/// Reaches the members of one control by their dispatch identifiers. A member that fails, is not
/// there or has no control to answer it says so by its return value and never throws; the first
/// failure of each member is logged. It may be destroyed inside a call.
class ControlDispatch {
 public:
  /// `name` is for the log. `control` may be null: then every member fails, without a line, because
  /// whoever could not make it has said so.
  ControlDispatch(std::string name, IUnknown* control, Log& log);

  /// Calls a method; the arguments are in the order of declaration. False when it failed.
  bool call(DISPID member, const std::vector<Variant>& arguments = {});
  /// The value of a property or of a method without arguments; empty when it failed.
  Variant get(DISPID member);
  /// Sets a property. False when it failed.
  bool put(DISPID member, const Variant& value);

 private:
  bool invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result);

  std::shared_ptr<MemberFailures> failures_;
  ComPtr<IDispatch> control_;
};

}  // namespace tessivo
