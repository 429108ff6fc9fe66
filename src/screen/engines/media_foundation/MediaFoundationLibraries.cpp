// Media Foundation's functions under their own names, in place of its import libraries, with which
// the program would not start on a Windows without mfplat.dll and mf.dll.
#include "screen/engines/media_foundation/MediaFoundationLibraries.h"

#include <mfapi.h>
#include <mfidl.h>

#include "platform/win32/WindowsText.h"

namespace {

constexpr const wchar_t* kPlatform = L"mfplat.dll";
constexpr const wchar_t* kSession = L"mf.dll";

/// Once loaded a library stays for the life of the process; loading it again finds it.
HMODULE load(const wchar_t* library) {
  return LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

/// `own` only says of which type the library's function is.
template <typename... Parameters, typename... Arguments>
HRESULT call(const wchar_t* library, const char* name, HRESULT(WINAPI* /*own*/)(Parameters...),
             const Arguments&... arguments) {
  HMODULE const loaded = load(library);
  if (loaded == nullptr) return HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND);
  auto* const found = reinterpret_cast<void*>(GetProcAddress(loaded, name));
  if (found == nullptr) return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
  return reinterpret_cast<HRESULT(WINAPI*)(Parameters...)>(found)(arguments...);
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): our names, not the headers'
HRESULT WINAPI MFStartup(ULONG version, DWORD flags) {
  return call(kPlatform, "MFStartup", &MFStartup, version, flags);
}
HRESULT WINAPI MFCreateMediaType(IMFMediaType** type) {
  return call(kPlatform, "MFCreateMediaType", &MFCreateMediaType, type);
}
HRESULT WINAPI MFCreateSourceResolver(IMFSourceResolver** resolver) {
  return call(kPlatform, "MFCreateSourceResolver", &MFCreateSourceResolver, resolver);
}
HRESULT WINAPI MFCreateFile(MF_FILE_ACCESSMODE access, MF_FILE_OPENMODE open, MF_FILE_FLAGS flags,
                            LPCWSTR url, IMFByteStream** stream) {
  return call(kPlatform, "MFCreateFile", &MFCreateFile, access, open, flags, url, stream);
}
HRESULT WINAPI MFCreateTopology(IMFTopology** topology) {
  return call(kSession, "MFCreateTopology", &MFCreateTopology, topology);
}
HRESULT WINAPI MFCreateTopologyNode(MF_TOPOLOGY_TYPE type, IMFTopologyNode** node) {
  return call(kSession, "MFCreateTopologyNode", &MFCreateTopologyNode, type, node);
}
HRESULT WINAPI MFCreateMediaSession(IMFAttributes* configuration, IMFMediaSession** made) {
  return call(kSession, "MFCreateMediaSession", &MFCreateMediaSession, configuration, made);
}
HRESULT WINAPI MFCreateVideoRendererActivate(HWND window, IMFActivate** activate) {
  return call(kSession, "MFCreateVideoRendererActivate", &MFCreateVideoRendererActivate, window,
              activate);
}
HRESULT WINAPI MFCreateAudioRendererActivate(IMFActivate** activate) {
  return call(kSession, "MFCreateAudioRendererActivate", &MFCreateAudioRendererActivate, activate);
}
HRESULT WINAPI MFCreateSampleGrabberSinkActivate(IMFMediaType* type,
                                                 IMFSampleGrabberSinkCallback* callback,
                                                 IMFActivate** activate) {
  return call(kSession, "MFCreateSampleGrabberSinkActivate", &MFCreateSampleGrabberSinkActivate,
              type, callback, activate);
}
HRESULT WINAPI MFGetService(IUnknown* object, REFGUID service, REFIID interfaceId, LPVOID* result) {
  return call(kSession, "MFGetService", &MFGetService, object, service, interfaceId, result);
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace tessivo {

bool mediaFoundationIsThere(Log& log) {
  for (const wchar_t* const library : {kPlatform, kSession}) {
    if (load(library) != nullptr) continue;
    log.error("Media Foundation is not there: no " + fromWide(library));
    return false;
  }
  return true;
}

}  // namespace tessivo
