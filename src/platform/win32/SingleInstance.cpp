#include "platform/win32/SingleInstance.h"

#include <windows.h>

#include "platform/win32/WindowsText.h"

namespace tessivo {

SingleInstance::SingleInstance(const std::string& name) {
  // Named, so that nothing is freed between the call and its error.
  const std::wstring wideName = toWide("Local\\" + name);
  mutex_ = CreateMutexW(nullptr, FALSE, wideName.c_str());
  const DWORD error = GetLastError();
  // That of an instance with more rights may not even be opened.
  isFirst_ = error != ERROR_ALREADY_EXISTS && error != ERROR_ACCESS_DENIED;
}

SingleInstance::~SingleInstance() {
  if (mutex_) CloseHandle(mutex_);
}

}  // namespace tessivo
