#include "screen/engines/control/InitialProperties.h"

#include <cwchar>

#include "screen/engines/control/Variant.h"

namespace tessivo {

HRESULT InitialProperties::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
  if (!name || !value) return E_POINTER;
  for (const auto& [known, text] : values_) {
    if (_wcsicmp(known.c_str(), name) != 0) continue;
    const VARTYPE wanted = value->vt;
    VariantInit(value);
    return VariantChangeType(value, Variant(text).get(), 0,
                             wanted == VT_EMPTY ? VARTYPE{VT_BSTR} : wanted);
  }
  return E_INVALIDARG;
}

}  // namespace tessivo
