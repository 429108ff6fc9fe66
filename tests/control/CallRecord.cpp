#include "control/CallRecord.h"

#include <cstdio>

#include "platform/win32/WindowsText.h"

namespace tessivo::test_control {
namespace {

std::string textOfType(VARTYPE type) {
  switch (type) {
    case VT_I2:
      return "I2";
    case VT_I4:
      return "I4";
    case VT_BOOL:
      return "BOOL";
    case VT_BSTR:
      return "BSTR";
    default:
      return "VT" + std::to_string(type);
  }
}

std::string textOfValue(const VARIANT& argument) {
  VARIANT value;
  VariantInit(&value);
  VariantCopyInd(&value, const_cast<VARIANT*>(&argument));  // it only reads it
  std::string text = "?";
  if (value.vt == VT_I2) text = std::to_string(value.iVal);
  if (value.vt == VT_I4) text = std::to_string(value.lVal);
  if (value.vt == VT_BOOL) {
    text = value.boolVal == VARIANT_TRUE    ? "true"
           : value.boolVal == VARIANT_FALSE ? "false"
                                            : "neither true nor false";
  }
  if (value.vt == VT_BSTR) text = textOf(value.bstrVal, SysStringLen(value.bstrVal));
  VariantClear(&value);
  return text;
}

std::string textOfFlags(WORD flags, const DISPPARAMS& parameters) {
  if (flags == DISPATCH_METHOD && parameters.cNamedArgs == 0) return "call";
  if (flags == (DISPATCH_METHOD | DISPATCH_PROPERTYGET) && parameters.cArgs == 0) return "read";
  if (flags == DISPATCH_PROPERTYPUT && parameters.cNamedArgs == 1 &&
      parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT) {
    return "put";
  }
  return "flags " + std::to_string(flags) + " named " + std::to_string(parameters.cNamedArgs);
}

}  // namespace

void CallRecord::add(std::string line) {
  if (const wchar_t* file = _wgetenv(L"TESSIVO_TEST_CONTROL_LOG")) {
    if (std::FILE* log = _wfopen(file, L"ab")) {
      std::fprintf(log, "%s\n", line.c_str());
      std::fclose(log);
    }
  }
  lines_.push_back(std::move(line));
}

std::string textOfCall(DISPID member, WORD flags, const DISPPARAMS& parameters) {
  std::string text = std::to_string(member) + " " + textOfFlags(flags, parameters);
  for (UINT i = parameters.cArgs; i > 0; --i) {
    const VARIANT& argument = parameters.rgvarg[i - 1];
    const bool isReference = (argument.vt & VT_BYREF) != 0;
    text += " " + textOfType(argument.vt & ~VT_BYREF) + (isReference ? "& " : " ") +
            textOfValue(argument);
  }
  return text;
}

std::string textOf(const wchar_t* text, UINT length) {
  return text ? fromWide({text, length}) : std::string();
}

}  // namespace tessivo::test_control
