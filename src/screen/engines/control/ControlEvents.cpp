#include "screen/engines/control/ControlEvents.h"

#include "platform/win32/Guarded.h"

namespace tessivo {

HRESULT ControlEvents::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

/// The arguments come last first, and are the control's own: they are copied.
HRESULT ControlEvents::Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                              EXCEPINFO*, UINT*) {
  if (!receive_) return S_OK;
  guarded(log_, [&] {
    std::vector<Variant> arguments;
    if (parameters && parameters->rgvarg) {
      for (UINT i = parameters->cArgs; i > 0; --i) {
        arguments.emplace_back(parameters->rgvarg[i - 1]);
      }
    }
    receive_(event, std::move(arguments));
  });
  return S_OK;
}

}  // namespace tessivo
