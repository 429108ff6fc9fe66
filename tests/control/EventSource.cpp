#include "control/EventSource.h"

#include <olectl.h>

#include <algorithm>

#include "control/Control.h"

namespace tessivo::test_control {

const IID& eventInterface() {
  return memory().wishes.describeMoreEvents ? kMoreEvents : kEventInterface;
}

VARIANT numberArgument(std::int32_t number) {
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_I4;
  argument.lVal = number;
  return argument;
}

VARIANT shortArgument(std::int16_t number) {
  VARIANT argument;
  VariantInit(&argument);
  argument.vt = VT_I2;
  argument.iVal = number;
  return argument;
}

void EventSource::fire(DISPID event, std::vector<VARIANT> arguments) {
  std::reverse(arguments.begin(), arguments.end());
  DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  const auto sinks = sinks_;  // one may unadvise itself
  for (const auto& [cookie, sink] : sinks) {
    sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                 nullptr, nullptr);
  }
  for (VARIANT& argument : arguments) VariantClear(&argument);
}

HRESULT EventSource::GetConnectionInterface(IID* id) {
  if (!id) return E_POINTER;
  *id = eventInterface();
  return S_OK;
}

HRESULT EventSource::GetConnectionPointContainer(IConnectionPointContainer** container) {
  if (!container) return E_POINTER;
  *container = owner_;
  if (!owner_) return E_FAIL;
  owner_->AddRef();
  return S_OK;
}

HRESULT EventSource::Advise(IUnknown* sink, DWORD* cookie) {
  if (!sink || !cookie) return E_POINTER;
  const auto dispatch = ComPtr<IUnknown>(sink).as<IDispatch>(eventInterface());
  if (!dispatch) return CONNECT_E_CANNOTCONNECT;
  memory().record.add("advise");
  *cookie = ++lastCookie_;
  sinks_[*cookie] = dispatch;
  return S_OK;
}

HRESULT EventSource::Unadvise(DWORD cookie) {
  memory().record.add("unadvise");
  return sinks_.erase(cookie) == 1 ? S_OK : CONNECT_E_NOCONNECTION;
}

}  // namespace tessivo::test_control
