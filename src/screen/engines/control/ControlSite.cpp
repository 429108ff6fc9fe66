#include "screen/engines/control/ControlSite.h"

#include <olectl.h>

namespace tessivo {

/// The interfaces that both window interfaces derive from are reached through the site's.
void* ControlSite::find(REFIID id) {
  if (id == __uuidof(IOleWindow)) return static_cast<IOleInPlaceSiteEx*>(this);
  if (id == __uuidof(IOleInPlaceSite)) return static_cast<IOleInPlaceSiteEx*>(this);
  if (id == __uuidof(IOleInPlaceUIWindow)) return static_cast<IOleInPlaceFrame*>(this);
  return ComObject::find(id);
}

HRESULT ControlSite::GetContainer(IOleContainer** container) {
  if (!container) return E_POINTER;
  *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT ControlSite::GetWindow(HWND* window) {
  if (!window) return E_POINTER;
  *window = window_;
  return window_ ? S_OK : E_FAIL;
}

HRESULT ControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                      RECT* position, RECT* clip,
                                      OLEINPLACEFRAMEINFO* information) {
  if (!frame || !document || !position || !clip || !information) return E_POINTER;
  *document = nullptr;
  *frame = this;
  AddRef();
  GetClientRect(window_, position);
  *clip = *position;
  information->fMDIApp = FALSE;
  information->hwndFrame = GetAncestor(window_, GA_ROOT);
  information->haccel = nullptr;
  information->cAccelEntries = 0;
  return S_OK;
}

HRESULT ControlSite::OnPosRectChange(const RECT*) {
  if (place_) place_();
  return S_OK;
}

HRESULT ControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
  if (noRedraw) *noRedraw = FALSE;
  return S_OK;
}

HRESULT ControlSite::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ControlSite::Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result,
                            EXCEPINFO*, UINT*) {
  if (!result) return E_POINTER;
  const auto answer = [result](bool value) {
    result->vt = VT_BOOL;
    result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
  };
  switch (property) {
    case DISPID_AMBIENT_USERMODE:
      return answer(true);  // the control runs, it is not being designed
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
    case DISPID_AMBIENT_MESSAGEREFLECT:
      return answer(false);
    default:
      return DISP_E_MEMBERNOTFOUND;
  }
}

}  // namespace tessivo
