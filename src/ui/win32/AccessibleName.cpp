#include "ui/win32/AccessibleName.h"

// after windows.h
#include <initguid.h>
#include <oleacc.h>

#include "platform/win32/ComPtr.h"
#include "platform/win32/WindowsText.h"

namespace tessivo::ui {

void nameWindow(HWND window, const std::string& name, const std::string& spoken) {
  SetPropW(window, toWide(name).c_str(), window);
  if (spoken.empty()) return;
  const std::wstring text = toWide(spoken);
  SetWindowTextW(window, text.c_str());
  // Some of the system's controls are asked for their text by nobody, so it is said twice. Where
  // the service is missing the window's text has to do.
  ComPtr<IAccPropServices> services;
  if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IAccPropServices, services.putVoid()))) {
    services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                             PROPID_ACC_NAME, text.c_str());
  }
}

}  // namespace tessivo::ui
