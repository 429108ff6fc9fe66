// The OLE half: the control as an object in its container. What it does when it is called is in
// ControlMembers.cpp.
#include "control/Control.h"

#include <olectl.h>

#include <algorithm>

#include "control/Library.h"

namespace tessivo::test_control {
namespace {

/// The names a RealPlayer control reads among others; SRC is never given.
constexpr const wchar_t* kPropertyNames[] = {L"AUTOSTART", L"CONTROLS", L"NOLOGO", L"SRC"};

}  // namespace

Memory& memory() {
  static Memory shared;
  return shared;
}

Control::Control() : window_(*this), script_(Script::fromEnvironment(*this)) {
  *events_.put() = new EventSource(this);
  memory().controls.push_back(this);
}

Control::~Control() {
  events_->detach();
  std::erase(memory().controls, this);
}

/// The interfaces that two of ours derive from.
void* Control::find(REFIID id) {
  if (id == __uuidof(IOleWindow)) return static_cast<IOleInPlaceObject*>(this);
  if (id == __uuidof(IPersist)) return static_cast<IPersistStreamInit*>(this);
  if (id == __uuidof(IProvideClassInfo)) return static_cast<IProvideClassInfo2*>(this);
  return ComObject::find(id);
}

HRESULT Control::SetClientSite(IOleClientSite* site) {
  memory().record.add(site ? "site" : "no site");
  site_ = ComPtr<IOleClientSite>(site);
  return S_OK;
}

HRESULT Control::GetClientSite(IOleClientSite** site) {
  if (!site) return E_POINTER;
  *site = ComPtr<IOleClientSite>(site_.get()).get();
  if (site_) site_->AddRef();
  return S_OK;
}

HRESULT Control::DoVerb(LONG verb, MSG*, IOleClientSite*, LONG, HWND parent, const RECT* area) {
  if (verb != OLEIVERB_INPLACEACTIVATE && verb != OLEIVERB_SHOW && verb != OLEIVERB_PRIMARY) {
    return E_NOTIMPL;
  }
  if (window_.handle()) return S_OK;
  if (!site_ || !parent || !area) return E_INVALIDARG;
  return activate(parent, *area);
}

HRESULT Control::activate(HWND parent, const RECT& area) {
  const Wishes wishes = memory().wishes;
  if (wishes.duringActivation) wishes.duringActivation(wishes.duringActivationContext);
  if (FAILED(wishes.activation)) return wishes.activation;
  const auto place = site_.as<IOleInPlaceSite>();
  if (!place || place->CanInPlaceActivate() != S_OK) return E_FAIL;
  HWND window = nullptr;
  if (FAILED(place->GetWindow(&window)) || window != parent) return E_FAIL;
  place->OnInPlaceActivate();
  ComPtr<IOleInPlaceFrame> frame;
  ComPtr<IOleInPlaceUIWindow> document;
  RECT position{};
  RECT clip{};
  OLEINPLACEFRAMEINFO information{};
  information.cb = sizeof(information);
  const HRESULT context =
      place->GetWindowContext(frame.put(), document.put(), &position, &clip, &information);
  if (FAILED(context)) return context;
  if (!window_.open(window, area)) return E_FAIL;
  memory().record.add("activate");
  const bool pictureLater = script_ && !script_->hasPictureFromTheStart();
  if (!memory().wishes.startWithoutPicture && !pictureLater) window_.makePicture();
  if (script_) window_.tickEvery(Script::kTickMs);
  return S_OK;
}

HRESULT Control::Close(DWORD) {
  memory().record.add("close");
  if (script_ && script_->neverCloses()) Sleep(INFINITE);
  deactivate();
  return S_OK;
}

HRESULT Control::InPlaceDeactivate() {
  memory().record.add("deactivate");
  deactivate();
  return S_OK;
}

void Control::deactivate() {
  if (!window_.handle()) return;
  window_.close();
  if (const auto place = site_.as<IOleInPlaceSite>()) place->OnInPlaceDeactivate();
}

HRESULT Control::SetExtent(DWORD, SIZEL* size) {
  if (!size) return E_POINTER;
  extent_ = *size;
  return S_OK;
}

HRESULT Control::GetExtent(DWORD, SIZEL* size) {
  if (!size) return E_POINTER;
  *size = extent_;
  return S_OK;
}

HRESULT Control::GetMiscStatus(DWORD, DWORD* status) {
  if (!status) return E_POINTER;
  *status = OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_CANTLINKINSIDE |
            OLEMISC_RECOMPOSEONRESIZE | OLEMISC_SETCLIENTSITEFIRST;
  return S_OK;
}

HRESULT Control::GetWindow(HWND* window) {
  if (!window) return E_POINTER;
  *window = window_.handle();
  return *window ? S_OK : E_FAIL;
}

HRESULT Control::SetObjectRects(const RECT* area, const RECT*) {
  if (!area) return E_POINTER;
  if (!window_.handle()) return E_UNEXPECTED;
  window_.move(*area);
  return S_OK;
}

HRESULT Control::GetClassID(CLSID* id) {
  if (!id) return E_POINTER;
  *id = kControlClass;
  return S_OK;
}

HRESULT Control::Load(IPropertyBag* bag, IErrorLog* errors) {
  if (!bag) return E_POINTER;
  for (const wchar_t* name : kPropertyNames) {
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    value.bstrVal = nullptr;
    if (FAILED(bag->Read(name, &value, errors))) continue;
    const std::wstring wide = name;
    memory().record.add("property " + textOf(name, static_cast<UINT>(wide.size())) + "=" +
                        textOf(value.bstrVal, SysStringLen(value.bstrVal)));
    VariantClear(&value);
  }
  return S_OK;
}

HRESULT Control::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (memory().wishes.hideTypeInformation) return E_FAIL;
  ComPtr<ITypeLib> library;
  const HRESULT loaded = LoadTypeLibEx(libraryPath().c_str(), REGKIND_NONE, library.put());
  if (FAILED(loaded)) return loaded;
  const bool more = memory().wishes.describeMoreEvents;
  return library->GetTypeInfoOfGuid(more ? kWithMoreEvents : kControlClass, info);
}

HRESULT Control::GetGUID(DWORD kind, GUID* id) {
  if (!id) return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *id = eventInterface();
  return S_OK;
}

HRESULT Control::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (id != eventInterface()) return CONNECT_E_NOCONNECTION;
  events_->AddRef();
  *point = events_.get();
  return S_OK;
}

void Control::onMouseMove(int x, int y) {
  events_->fire(event::kMouseMove, {numberArgument(0), numberArgument(x), numberArgument(y)});
}

void Control::onButtonDown(int x, int y) {
  events_->fire(event::kLButtonDown,
                {numberArgument(MK_LBUTTON), numberArgument(x), numberArgument(y)});
}

void Control::showPicture(bool shown) {
  shown ? window_.makePicture() : window_.destroyPicture();
}

}  // namespace tessivo::test_control
