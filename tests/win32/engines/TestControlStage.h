#pragma once

#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "control/TestControl.h"
#include "fakes/FakeLog.h"
#include "platform/win32/ComPtr.h"
#include "screen/engines/real_player/RealPlayerControl.h"
#include "win32/WaitFor.h"

namespace tessivo {

/// The test control's library, which lies beside the test program.
struct TestControlLibrary {
  TestControlLibrary() : module(LoadLibraryW(L"TestControl.dll")) {}

  template <typename Function>
  Function function(const char* name) const {
    return reinterpret_cast<Function>(GetProcAddress(module, name));
  }

  HMODULE module;
};

/// A window for a control, and the test control in the place of the RealPlayer control: made
/// available to this process, without an entry in the registry.
class TestControlStage : public testing::Test {
 protected:
  TestControlStage() {
    // For the life of the process, as in the program.
    static const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_TRUE(SUCCEEDED(com));
    stage = CreateWindowExW(0, L"STATIC", L"stage", WS_POPUP | WS_VISIBLE, 60, 40, 400, 300,
                            nullptr, nullptr, nullptr, nullptr);
  }
  ~TestControlStage() override {
    withdrawControl();
    if (control) {
      control->reset();
      EXPECT_EQ(control->instances(), 0);
    }
    EXPECT_EQ(GetWindow(stage, GW_CHILD), nullptr);
    DestroyWindow(stage);
    serve();
  }

  void SetUp() override {
    ASSERT_NE(library().module, nullptr) << "TestControl.dll is not beside the test program";
    control = library().function<TestControlFunction>(kTestControlFunction)();
    control->reset();
    offerControl();
  }

  static const TestControlLibrary& library() {
    static const TestControlLibrary loaded;
    return loaded;
  }

  void offerControl() {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    ComPtr<IUnknown> factory;
    ASSERT_EQ(library().function<GetClassObject>("DllGetClassObject")(
                  kRealPlayerControl, __uuidof(IClassFactory), factory.putVoid()),
              S_OK);
    ASSERT_EQ(CoRegisterClassObject(kRealPlayerControl, factory.get(), CLSCTX_INPROC_SERVER,
                                    REGCLS_MULTIPLEUSE, &offer_),
              S_OK);
  }
  /// As on a machine without the control.
  void withdrawControl() {
    if (offer_ != 0) CoRevokeClassObject(offer_);
    offer_ = 0;
  }

  /// What was asked of the control since the last time.
  std::vector<std::string> takeRecord() {
    std::vector<std::string> lines;
    for (; taken_ < control->recorded(); ++taken_) lines.emplace_back(control->record(taken_));
    return lines;
  }

  HWND stage = nullptr;
  const TestControlApi* control = nullptr;
  FakeLog log;

 private:
  DWORD offer_ = 0;
  int taken_ = 0;
};

}  // namespace tessivo
