#pragma once

#include <oleauto.h>
#include <windows.h>

#include <cstdint>
#include <string>

namespace tessivo {

/// Owns one VARIANT.
class Variant {
 public:
  Variant() = default;
  explicit Variant(std::int32_t number) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
  }
  explicit Variant(bool flag) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
  }
  explicit Variant(const std::wstring& text) : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  }
  /// A copy; what is behind a reference is copied out.
  explicit Variant(const VARIANT& other) : Variant() { VariantCopyInd(&value_, writable(other)); }
  /// The caller's variable, which the callee may change. It must outlive this.
  static Variant numberByReference(std::int16_t& number) {
    Variant variant;
    variant.value_.vt = VT_BYREF | VT_I2;
    variant.value_.piVal = &number;
    return variant;
  }
  static Variant flagByReference(VARIANT_BOOL& flag) {
    Variant variant;
    variant.value_.vt = VT_BYREF | VT_BOOL;
    variant.value_.pboolVal = &flag;
    return variant;
  }
  Variant(const Variant& other) : Variant() { VariantCopy(&value_, writable(other.value_)); }
  Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
  Variant& operator=(Variant other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  VARIANT* get() { return &value_; }
  const VARIANT& operator*() const { return value_; }
  /// The text; null when it is none.
  BSTR bstr() const { return value_.vt == VT_BSTR ? value_.bstrVal : nullptr; }
  VARTYPE type() const { return value_.vt; }

  /// The value as a number, however it was sent; 0 when it is none.
  std::int32_t number() const {
    VARIANT converted;
    VariantInit(&converted);
    if (FAILED(VariantChangeType(&converted, writable(value_), 0, VT_I4))) return 0;
    return converted.lVal;
  }

 private:
  /// Some declarations of the system's functions lack the const of what they only read.
  static VARIANT* writable(const VARIANT& value) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): read only
    return const_cast<VARIANT*>(&value);
  }

  VARIANT value_{};  ///< VT_EMPTY
};

}  // namespace tessivo
