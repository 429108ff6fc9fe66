#include "screen/engines/control/ControlDispatch.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tessivo {
namespace {

/// A control must not throw; one that does has failed, and the other engine has its turn.
template <typename Call>
HRESULT outcomeOf(Call call) {
  try {
    return call();
  } catch (...) {
    return E_UNEXPECTED;
  }
}

}  // namespace

ControlDispatch::ControlDispatch(std::string name, IUnknown* control, Log& log)
    : failures_(std::make_shared<MemberFailures>(std::move(name), log)),
      control_(ComPtr<IUnknown>(control).as<IDispatch>()) {}

bool ControlDispatch::call(DISPID member, const std::vector<Variant>& arguments) {
  // Last first, and borrowed: they stay the caller's.
  std::vector<VARIANT> reversed;
  reversed.reserve(arguments.size());
  std::transform(arguments.rbegin(), arguments.rend(), std::back_inserter(reversed),
                 [](const Variant& argument) { return *argument; });
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  return invoke(member, DISPATCH_METHOD, parameters, nullptr);
}

Variant ControlDispatch::get(DISPID member) {
  DISPPARAMS none{};
  Variant result;
  // A library may declare a query as either.
  if (!invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, none, result.get())) return {};
  return result;
}

bool ControlDispatch::put(DISPID member, const Variant& value) {
  VARIANT borrowed = *value;
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&borrowed, &named, 1, 1};
  return invoke(member, DISPATCH_PROPERTYPUT, parameters, nullptr);
}

bool ControlDispatch::invoke(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result) {
  // Both of our own: this object may be gone when the call returns.
  const auto control = control_;
  const auto failures = failures_;
  if (!control) return false;
  const HRESULT outcome = outcomeOf([&] {
    return control->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                           nullptr, nullptr);
  });
  return failures->succeeded(outcome, "member " + std::to_string(member));
}

}  // namespace tessivo
