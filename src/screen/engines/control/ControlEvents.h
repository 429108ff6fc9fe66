#pragma once

#include <oaidl.h>

#include <functional>
#include <vector>

#include "platform/Log.h"
#include "screen/engines/control/ComObject.h"
#include "screen/engines/control/Variant.h"

namespace tessivo {

/// The receiver of a control's events, connected to its event interface.
class ControlEvents final : public ComObject<IDispatch> {
 public:
  using Receive = std::function<void(DISPID event, std::vector<Variant> arguments)>;

  /// What `receive` throws ends in the log, which is used until disconnect.
  ControlEvents(const IID& events, Log& log, Receive receive)
      : events_(events), log_(log), receive_(std::move(receive)) {}

  /// Events that the control still fires are swallowed from now on.
  void disconnect() { receive_ = nullptr; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override;

 private:
  void* find(REFIID id) override {
    return id == events_ ? static_cast<IDispatch*>(this) : ComObject::find(id);
  }

  IID events_;
  Log& log_;
  Receive receive_;
};

}  // namespace tessivo
