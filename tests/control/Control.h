#pragma once

#include <ocidl.h>
#include <oleidl.h>

#include <memory>
#include <string>
#include <vector>

#include "control/CallRecord.h"
#include "control/ControlWindow.h"
#include "control/EventSource.h"
#include "control/Script.h"
#include "platform/win32/ComPtr.h"
#include "screen/engines/control/ComObject.h"

namespace tessivo::test_control {

inline constexpr CLSID kControlClass{
    0xCFCDAA03, 0x8BE4, 0x11CF, {0xB8, 0x4B, 0x00, 0x20, 0xAF, 0xBB, 0xCC, 0xFA}};

/// What the tests wish, see TestControlApi.
struct Wishes {
  HRESULT creation = S_OK;
  HRESULT activation = S_OK;
  bool hideTypeInformation = false;
  bool describeMoreEvents = false;
  bool startWithoutPicture = false;
  HRESULT calls = S_OK;
  std::int32_t canStop = 0;
  std::int32_t length = 0;
  bool writesBack = false;
  std::int16_t writtenBack = 0;
  void (*during)(void* context, DISPID member) = nullptr;
  void* duringContext = nullptr;
  void (*duringActivation)(void* context) = nullptr;
  void* duringActivationContext = nullptr;
};

/// The library's memory: what was asked, what is wished, which controls there are.
struct Memory {
  CallRecord record;
  Wishes wishes;
  std::vector<class Control*> controls;
};
Memory& memory();

/// The test control: an in-place active OLE object with the RealPlayer control's class and dispatch
/// identifiers. It takes each member only in the form it has (method or property, number and types
/// of the arguments) and refuses it otherwise, as a real library's dispatch does.
class Control final : public ComObject<IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject,
                                       IPersistStreamInit, IPersistPropertyBag, IProvideClassInfo2,
                                       IConnectionPointContainer, IDispatch>,
                      private ControlWindow::Owner,
                      private Script::Stage {
 public:
  Control();
  ~Control() override;

  ControlWindow& window() { return window_; }
  EventSource& events() { return *events_.get(); }

  // IOleObject
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP Close(DWORD) override;
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  STDMETHODIMP DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent,
                      const RECT* area) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
  STDMETHODIMP Update() override { return S_OK; }
  STDMETHODIMP IsUpToDate() override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID* id) override { return GetClassID(id); }
  STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
  STDMETHODIMP SetExtent(DWORD, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP Unadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return OLE_E_ADVISENOTSUPPORTED; }
  STDMETHODIMP GetMiscStatus(DWORD, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

  // IOleWindow, for the place and for the active object
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

  // IOleInPlaceObject
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override { return S_OK; }
  STDMETHODIMP SetObjectRects(const RECT* area, const RECT*) override;
  STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }

  // IOleInPlaceActiveObject
  STDMETHODIMP TranslateAccelerator(MSG*) override { return S_FALSE; }
  STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP ResizeBorder(const RECT*, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

  // IPersist, IPersistStreamInit and IPersistPropertyBag
  STDMETHODIMP GetClassID(CLSID* id) override;
  STDMETHODIMP IsDirty() override { return S_FALSE; }
  STDMETHODIMP Load(IStream*) override { return E_NOTIMPL; }
  STDMETHODIMP Save(IStream*, BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
  STDMETHODIMP InitNew() override { return S_OK; }
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog*) override;
  STDMETHODIMP Save(IPropertyBag*, BOOL, BOOL) override { return E_NOTIMPL; }

  // IProvideClassInfo2
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;

  // IConnectionPointContainer
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO*, UINT*) override;

  void tellPlayState(std::int32_t oldState, std::int32_t newState) override;
  void tellPosition(std::int32_t position, std::int32_t length) override;
  void tellError() override;

 private:
  void* find(REFIID id) override;

  void onMouseMove(int x, int y) override;
  void onButtonDown(int x, int y) override;
  void onTick() override { script_->tick(); }
  void showPicture(bool shown) override;

  HRESULT activate(HWND parent, const RECT& area);
  void deactivate();
  void carryOut(DISPID member, const DISPPARAMS& parameters, VARIANT* result);

  ControlWindow window_;
  ComPtr<EventSource> events_;
  ComPtr<IOleClientSite> site_;
  SIZEL extent_{};
  std::unique_ptr<Script> script_;  ///< null when a test in this process says what to do
};

}  // namespace tessivo::test_control
