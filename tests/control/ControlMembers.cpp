// The dispatch half of the test control.
#include <olectl.h>

#include <algorithm>
#include <iterator>

#include "control/Control.h"

namespace tessivo::test_control {
namespace {

enum class Form { method, query, property };

struct Member {
  DISPID id;
  Form form;
  VARTYPE argument;  ///< VT_EMPTY for none
};

constexpr DISPID kSource = 102, kStop = 202, kVolume = 227, kMute = 229, kPlay = 257, kPause = 258,
                 kCanStop = 260, kLength = 261, kPosition = 269;

constexpr Member kMembers[] = {
    {kSource, Form::property, VT_BSTR},
    {kStop, Form::method, VT_EMPTY},
    {kVolume, Form::method, VT_BYREF | VT_I2},
    {kMute, Form::method, VT_BYREF | VT_BOOL},
    {kPlay, Form::method, VT_EMPTY},
    {kPause, Form::method, VT_EMPTY},
    {kCanStop, Form::query, VT_EMPTY},
    {kLength, Form::query, VT_EMPTY},
    {kPosition, Form::method, VT_I4},
    {277, Form::method, VT_BOOL},
    {353, Form::method, VT_BOOL},
    {295, Form::method, VT_BOOL},
    {338, Form::method, VT_BOOL},
    {326, Form::method, VT_BOOL},
    {307, Form::method, VT_BOOL},
    {225, Form::method, VT_BOOL},
};

bool hasForm(Form form, WORD flags, const DISPPARAMS& parameters) {
  if (form == Form::property) {
    return flags == DISPATCH_PROPERTYPUT && parameters.cNamedArgs == 1 &&
           parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
  }
  return (flags & DISPATCH_METHOD) != 0;
}

HRESULT check(DISPID member, WORD flags, const DISPPARAMS& parameters) {
  const auto* known = std::find_if(std::begin(kMembers), std::end(kMembers),
                                   [&](const Member& m) { return m.id == member; });
  if (known == std::end(kMembers) || !hasForm(known->form, flags, parameters)) {
    return DISP_E_MEMBERNOTFOUND;
  }
  const UINT count = known->argument == VT_EMPTY ? 0 : 1;
  if (parameters.cArgs != count) return DISP_E_BADPARAMCOUNT;
  if (count == 1 && parameters.rgvarg[0].vt != known->argument) return DISP_E_TYPEMISMATCH;
  return S_OK;
}

void writeBack(const Wishes& wishes, const DISPPARAMS& parameters) {
  if (!wishes.writesBack) return;
  for (UINT i = 0; i < parameters.cArgs; ++i) {
    const VARIANT& argument = parameters.rgvarg[i];
    if ((argument.vt & VT_BYREF) != 0) *argument.piVal = wishes.writtenBack;  // both have 16 bits
  }
}

}  // namespace

HRESULT Control::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT Control::Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO*, UINT*) {
  if (!parameters) return E_POINTER;
  const ComPtr<IDispatch> alive(this);  // whoever is called in between may let go of it
  memory().record.add(textOfCall(member, flags, *parameters));
  const Wishes wishes = memory().wishes;
  if (wishes.during) wishes.during(wishes.duringContext, member);
  if (FAILED(wishes.calls)) return wishes.calls;
  if (script_ && script_->failsEveryCall()) return E_FAIL;
  if (const HRESULT wrong = check(member, flags, *parameters); FAILED(wrong)) return wrong;
  writeBack(wishes, *parameters);
  carryOut(member, *parameters, result);
  return S_OK;
}

void Control::carryOut(DISPID member, const DISPPARAMS& parameters, VARIANT* result) {
  const Wishes& wishes = memory().wishes;
  if (member == kCanStop && result) {
    const bool can = script_ ? script_->isActive() : wishes.canStop != 0;
    result->vt = VT_BOOL;
    result->boolVal = can ? VARIANT_TRUE : VARIANT_FALSE;
  }
  if (member == kLength && result) {
    *result = numberArgument(script_ ? script_->lengthMs() : wishes.length);
  }
  if (!script_) return;
  if (member == kPlay) script_->play();
  if (member == kPause) script_->pause();
  if (member == kStop || member == kSource) script_->stop();
  if (member == kPosition) script_->setPosition(parameters.rgvarg[0].lVal);
}

void Control::tellPlayState(std::int32_t oldState, std::int32_t newState) {
  events_->fire(event::kPlayStateChange, {numberArgument(oldState), numberArgument(newState)});
}

void Control::tellPosition(std::int32_t position, std::int32_t length) {
  events_->fire(event::kPositionChange, {numberArgument(position), numberArgument(length)});
}

void Control::tellError() {
  const auto text = [](const wchar_t* words) {
    VARIANT argument;
    VariantInit(&argument);
    argument.vt = VT_BSTR;
    argument.bstrVal = SysAllocString(words);
    return argument;
  };
  events_->fire(event::kErrorMessage,
                {shortArgument(3), numberArgument(17), numberArgument(0), text(L"cannot be opened"),
                 text(L"http://127.0.0.1/"), text(L"test")});
}

}  // namespace tessivo::test_control
