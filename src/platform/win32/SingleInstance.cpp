#include "platform/win32/SingleInstance.h"

#include <windows.h>

#include "platform/win32/WindowsText.h"

namespace tessivo {

SingleInstance::SingleInstance(const std::string& name) {
  mutex_ = CreateMutexW(nullptr, FALSE, toWide("Local\\" + name).c_str());
  const DWORD error = GetLastError();
  // That of an instance with more rights may not even be opened.
  isFirst_ = error != ERROR_ALREADY_EXISTS && error != ERROR_ACCESS_DENIED;
}

SingleInstance::~SingleInstance() {
  if (mutex_) CloseHandle(mutex_);
}

}  // namespace tessivo
