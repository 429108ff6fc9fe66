#include "platform/win32/Win32SharedMemory.h"

#include <windows.h>

#include "platform/win32/WindowsText.h"

namespace tessivo {

bool Win32SharedMemory::exists(const std::string& name) const {
  const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, toWide(name).c_str());
  if (mapping) CloseHandle(mapping);
  return mapping != nullptr;
}

MappingHandle Win32SharedMemory::createFileMapping(const std::string& name, std::int32_t bytes) {
  // A discretionary list that is null lets everybody in; one that is missing would be the default.
  SECURITY_DESCRIPTOR everybody{};
  InitializeSecurityDescriptor(&everybody, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&everybody, TRUE, nullptr, FALSE);
  SECURITY_ATTRIBUTES attributes{sizeof attributes, &everybody, FALSE};
  return reinterpret_cast<MappingHandle>(
      CreateFileMappingW(INVALID_HANDLE_VALUE, &attributes, PAGE_READWRITE, 0,
                         static_cast<DWORD>(bytes), toWide(name).c_str()));
}

std::span<std::uint8_t> Win32SharedMemory::mapView(MappingHandle mapping) {
  auto* const view = static_cast<std::uint8_t*>(
      MapViewOfFile(reinterpret_cast<HANDLE>(mapping), FILE_MAP_WRITE, 0, 0, 0));
  MEMORY_BASIC_INFORMATION region{};
  if (!view) return {};
  // Pages that are only reserved must not be touched.
  if (VirtualQuery(view, &region, sizeof region) == 0 || region.State != MEM_COMMIT) {
    UnmapViewOfFile(view);
    return {};
  }
  return {view, region.RegionSize};
}

bool Win32SharedMemory::unmapView(std::span<std::uint8_t> view) {
  return UnmapViewOfFile(view.data()) != 0;
}

bool Win32SharedMemory::closeHandle(MappingHandle mapping) {
  return CloseHandle(reinterpret_cast<HANDLE>(mapping)) != 0;
}

}  // namespace tessivo
