#pragma once

#include <ocidl.h>

#include <string>
#include <utility>
#include <vector>

#include "screen/engines/control/ComObject.h"

namespace tessivo {

/// The values that a control reads when it is made.
class InitialProperties final : public ComObject<IPropertyBag> {
 public:
  explicit InitialProperties(std::vector<std::pair<std::wstring, std::wstring>> values)
      : values_(std::move(values)) {}

  STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override;
  STDMETHODIMP Write(LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }

 private:
  std::vector<std::pair<std::wstring, std::wstring>> values_;
};

}  // namespace tessivo
