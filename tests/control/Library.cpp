// What the library exports: its class, its registration and the table for the tests.
#include "control/Library.h"

#include <olectl.h>
#include <windows.h>

#include "control/Control.h"
#include "control/TestControl.h"

namespace tessivo::test_control {
namespace {

constexpr wchar_t kClassKey[] = L"CLSID\\{CFCDAA03-8BE4-11CF-B84B-0020AFBBCCFA}";

HMODULE thisLibrary() {
  // Pinned: its windows' classes and its record outlive the controls.
  HMODULE library = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<const wchar_t*>(&thisLibrary), &library);
  return library;
}

class Factory final : public ComObject<IClassFactory> {
 public:
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    if (!result) return E_POINTER;
    *result = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    if (FAILED(memory().wishes.creation)) return memory().wishes.creation;
    thisLibrary();
    auto* control = new Control;
    const HRESULT found = control->QueryInterface(id, result);
    static_cast<IDispatch*>(control)->Release();
    return found;
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

LSTATUS setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(),
                         static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
}

Control* current() {
  return memory().controls.empty() ? nullptr : memory().controls.back();
}

template <typename Act>
void onCurrent(Act act) {
  if (Control* control = current()) act(*control);
}

void answer(DISPID query, std::int32_t value) {
  if (query == 260) memory().wishes.canStop = value;
  if (query == 261) memory().wishes.length = value;
}

void sendNumbers(DISPID event, std::vector<VARIANT> numbers) {
  onCurrent([&](Control& control) { control.events().fire(event, std::move(numbers)); });
}

void sendMouse(DISPID event, std::int32_t x, std::int32_t y) {
  sendNumbers(event, {numberArgument(MK_LBUTTON), numberArgument(x), numberArgument(y)});
}

constexpr TestControlApi kApi{
    .reset =
        [] {
          memory().record.clear();
          memory().wishes = {};
        },
    .instances = [] { return static_cast<int>(memory().controls.size()); },
    .recorded = [] { return static_cast<int>(memory().record.lines().size()); },
    .record =
        [](int index) {
          return memory().record.lines().at(static_cast<std::size_t>(index)).c_str();
        },
    .refuseCreation = [](HRESULT result) { memory().wishes.creation = result; },
    .refuseActivation = [](HRESULT result) { memory().wishes.activation = result; },
    .hideTypeInformation = [](bool hidden) { memory().wishes.hideTypeInformation = hidden; },
    .describeMoreEvents = [](bool more) { memory().wishes.describeMoreEvents = more; },
    .startWithoutPicture = [](bool without) { memory().wishes.startWithoutPicture = without; },
    .failCalls = [](HRESULT result) { memory().wishes.calls = result; },
    .answer = &answer,
    .writeBack =
        [](std::int16_t value) {
          memory().wishes.writesBack = true;
          memory().wishes.writtenBack = value;
        },
    .during =
        [](void (*act)(void*, DISPID), void* context) {
          memory().wishes.during = act;
          memory().wishes.duringContext = context;
        },
    .duringActivation =
        [](void (*act)(void*), void* context) {
          memory().wishes.duringActivation = act;
          memory().wishes.duringActivationContext = context;
        },
    .sendPlayState =
        [](std::int32_t oldState, std::int32_t newState) {
          onCurrent([&](Control& control) { control.tellPlayState(oldState, newState); });
        },
    .sendError = [] { onCurrent([](Control& control) { control.tellError(); }); },
    .sendPosition =
        [](std::int32_t position, std::int32_t length) {
          onCurrent([&](Control& control) { control.tellPosition(position, length); });
        },
    .sendMouseMove = [](std::int32_t x, std::int32_t y) { sendMouse(event::kMouseMove, x, y); },
    .sendButtonDown = [](std::int32_t x, std::int32_t y) { sendMouse(event::kLButtonDown, x, y); },
    .sendPreSeek =
        [](std::int32_t oldTime, std::int32_t newTime) {
          sendNumbers(event::kPreSeek, {numberArgument(oldTime), numberArgument(newTime)});
        },
    .sendBuffering =
        [](std::int32_t flags, std::int16_t percent) {
          sendNumbers(event::kBuffering, {numberArgument(flags), shortArgument(percent)});
        },
    .sendStationChange =
        [](std::int32_t oldState, std::int32_t newState) {
          sendNumbers(event::kStationChange, {numberArgument(oldState), numberArgument(newState)});
        },
    .sendScroll =
        [](std::int32_t position, std::int32_t length) {
          sendNumbers(event::kScroll, {numberArgument(position), numberArgument(length)});
        },
    .window = [] { return current() ? current()->window().handle() : nullptr; },
    .picture = [] { return current() ? current()->window().picture() : nullptr; },
    .makePicture = [] { onCurrent([](Control& control) { control.window().makePicture(); }); },
    .destroyPicture =
        [] { onCurrent([](Control& control) { control.window().destroyPicture(); }); },
};

}  // namespace

std::wstring libraryPath() {
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(thisLibrary(), path, MAX_PATH);
  return path;
}

}  // namespace tessivo::test_control

using namespace tessivo::test_control;

extern "C" {

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, LPVOID* result) {
  if (!result) return E_POINTER;
  *result = nullptr;
  if (id != kControlClass) return CLASS_E_CLASSNOTAVAILABLE;
  IClassFactory* factory = new Factory;
  const HRESULT found = factory->QueryInterface(interfaceId, result);
  factory->Release();
  return found;
}

STDAPI DllCanUnloadNow() {
  return S_FALSE;
}

STDAPI DllRegisterServer() {
  const std::wstring server = std::wstring(kClassKey) + L"\\InprocServer32";
  const bool written = setValue(kClassKey, nullptr, L"Tessivo's test control") == ERROR_SUCCESS &&
                       setValue(server, nullptr, libraryPath()) == ERROR_SUCCESS &&
                       setValue(server, L"ThreadingModel", L"Apartment") == ERROR_SUCCESS;
  return written ? S_OK : SELFREG_E_CLASS;
}

STDAPI DllUnregisterServer() {
  const LSTATUS result = RegDeleteTreeW(HKEY_CLASSES_ROOT, kClassKey);
  return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND ? S_OK : SELFREG_E_CLASS;
}

const tessivo::TestControlApi* testControl() {
  return &kApi;
}
}
