#pragma once

#include <windows.h>

#include "platform/Registry.h"

namespace tessivo {

/// The system's handle of a root, which nobody closes.
inline HKEY handleOf(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::classesRoot:
      return HKEY_CLASSES_ROOT;
    case RegistryRoot::currentUser:
      return HKEY_CURRENT_USER;
    case RegistryRoot::localMachine:
      return HKEY_LOCAL_MACHINE;
    case RegistryRoot::users:
      return HKEY_USERS;
    case RegistryRoot::currentConfig:
      break;
  }
  return HKEY_CURRENT_CONFIG;
}

/// A key that is closed when its owner goes.
class RegistryKey {
 public:
  RegistryKey() = default;
  ~RegistryKey() {
    if (key_) RegCloseKey(key_);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  HKEY get() const { return key_; }
  HKEY* into() { return &key_; }

 private:
  HKEY key_ = nullptr;
};

}  // namespace tessivo
