#include "platform/win32/Win32Registry.h"

#include <vector>

#include "platform/RegistryValue.h"
#include "platform/win32/RegistryRoots.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

static_assert(registryKind::kText == REG_SZ && registryKind::kTextWithVariables == REG_EXPAND_SZ &&
              registryKind::kNumber == REG_DWORD);

std::uint32_t code(LSTATUS status) {
  return static_cast<std::uint32_t>(status);
}

}  // namespace

std::uint32_t Win32Registry::read(RegistryRoot root, const std::string& key,
                                  const std::string& name, std::string& value) const {
  RegistryKey opened;
  LSTATUS status =
      RegOpenKeyExW(handleOf(root), toWide(key).c_str(), 0, KEY_QUERY_VALUE, opened.into());
  if (status != ERROR_SUCCESS) return code(status);
  const std::wstring valueName = toWide(name);
  DWORD type = 0;
  DWORD size = 0;
  std::vector<BYTE> bytes;
  // Until it fits: another program may write a longer value in between.
  do {
    bytes.resize(size);
    status = RegQueryValueExW(opened.get(), valueName.c_str(), nullptr, &type,
                              bytes.empty() ? nullptr : bytes.data(), &size);
  } while (status == ERROR_MORE_DATA || (status == ERROR_SUCCESS && size > bytes.size()));
  if (status != ERROR_SUCCESS) return code(status);
  bytes.resize(size);
  const auto text = registryValueText(type, bytes);
  if (!text) return ERROR_INVALID_DATATYPE;
  value = *text;
  return 0;
}

std::uint32_t Win32Registry::write(RegistryRoot root, const std::string& key,
                                   const std::string& name, const std::string& value) {
  RegistryKey opened;
  LSTATUS status =
      RegCreateKeyExW(handleOf(root), toWide(key).c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_SET_VALUE, nullptr, opened.into(), nullptr);
  if (status != ERROR_SUCCESS) return code(status);
  const std::wstring text = toWide(value);
  status = RegSetValueExW(opened.get(), toWide(name).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  return code(status);
}

std::uint32_t Win32Registry::deleteValue(RegistryRoot root, const std::string& key,
                                         const std::string& name) {
  RegistryKey opened;
  const LSTATUS status =
      RegOpenKeyExW(handleOf(root), toWide(key).c_str(), 0, KEY_SET_VALUE, opened.into());
  if (status != ERROR_SUCCESS) return code(status);
  return code(RegDeleteValueW(opened.get(), toWide(name).c_str()));
}

std::uint32_t Win32Registry::deleteKey(RegistryRoot root, const std::string& key) {
  return code(RegDeleteKeyW(handleOf(root), toWide(key).c_str()));
}

}  // namespace tessivo
