#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <oleidl.h>
#include <windows.h>

#include <functional>
#include <utility>

#include "screen/engines/control/ComObject.h"

namespace tessivo {

/// What a hosted control sees of its container: a place in a window, without menus, status line or
/// tool bars, that does not offer the control the keyboard.
class ControlSite final
    : public ComObject<IOleClientSite, IOleInPlaceSiteEx, IOleInPlaceFrame, IDispatch> {
 public:
  /// `place` gives the control its place again.
  ControlSite(HWND window, std::function<void()> place)
      : window_(window), place_(std::move(place)) {}

  /// The control has been let go of; what it still asks is refused.
  void detach() {
    window_ = nullptr;
    place_ = nullptr;
  }

  // IOleClientSite
  STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return S_OK; }
  STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  // IOleWindow
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceSite
  STDMETHODIMP CanInPlaceActivate() override { return window_ ? S_OK : S_FALSE; }
  STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
  STDMETHODIMP OnUIActivate() override { return S_OK; }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                RECT* position, RECT* clip,
                                OLEINPLACEFRAMEINFO* information) override;
  STDMETHODIMP Scroll(SIZE) override { return S_FALSE; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
  STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
  STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
  /// Kept in the window's whole area whatever the control asks for.
  STDMETHODIMP OnPosRectChange(const RECT*) override;

  // IOleInPlaceSiteEx
  STDMETHODIMP OnInPlaceActivateEx(BOOL* noRedraw, DWORD) override;
  STDMETHODIMP OnInPlaceDeactivateEx(BOOL) override { return S_OK; }
  STDMETHODIMP RequestUIActivate() override { return S_FALSE; }

  // IOleInPlaceUIWindow
  STDMETHODIMP GetBorder(RECT*) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(const BORDERWIDTHS*) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(const BORDERWIDTHS*) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, const OLECHAR*) override { return S_OK; }

  // IOleInPlaceFrame
  STDMETHODIMP InsertMenus(HMENU, OLEMENUGROUPWIDTHS*) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
  STDMETHODIMP SetStatusText(const OLECHAR*) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
  STDMETHODIMP TranslateAccelerator(MSG*, WORD) override { return S_FALSE; }

  // IDispatch: the ambient properties
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID property, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) override;

 private:
  void* find(REFIID id) override;

  HWND window_;
  std::function<void()> place_;
};

}  // namespace tessivo
