#include "screen/engines/control/ControlHost.h"

#include "platform/win32/Guarded.h"
#include "screen/engines/control/ControlEvents.h"
#include "screen/engines/control/ControlSite.h"
#include "screen/engines/control/InitialProperties.h"
#include "screen/engines/embedded/ErrorCode.h"

namespace tessivo {
namespace {

constexpr int kHimetricPerInch = 2540;

/// Takes what a new COM object hands its maker: the one reference it was made with.
template <typename T, typename... Arguments>
ComPtr<T> make(Arguments&&... arguments) {
  ComPtr<T> made;
  *made.put() = new T(std::forward<Arguments>(arguments)...);
  return made;
}

/// The class description of the control, from itself or from the library that describes it.
ComPtr<ITypeInfo> classInfo(const ComPtr<IOleObject>& object, const CLSID& control) {
  ComPtr<ITypeInfo> info;
  if (const auto provider = object.as<IProvideClassInfo>()) {
    if (SUCCEEDED(provider->GetClassInfo(info.put())) && info) return info;
  }
  const auto dispatch = object.as<IDispatch>();
  ComPtr<ITypeInfo> own;
  ComPtr<ITypeLib> library;
  UINT index = 0;
  if (dispatch && SUCCEEDED(dispatch->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.put())) && own &&
      SUCCEEDED(own->GetContainingTypeLib(library.put(), &index))) {
    library->GetTypeInfoOfGuid(control, info.put());
  }
  return info;
}

int implementedTypes(ITypeInfo& info) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(info.GetTypeAttr(&attributes))) return 0;
  const int count = attributes->cImplTypes;
  info.ReleaseTypeAttr(attributes);
  return count;
}

/// Nothing when the description has no identifier.
IID identifierOf(const ComPtr<ITypeInfo>& info) {
  TYPEATTR* attributes = nullptr;
  if (!info || FAILED(info->GetTypeAttr(&attributes))) return GUID_NULL;
  const IID id = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  return id;
}

}  // namespace

ControlHost::Call::Call(ControlHost& host) : state_(host.calls_), serial_(state_->serial) {
  ++state_->depth;
}

ControlHost::Call::~Call() {
  if (--state_->depth == 0 && state_->host) state_->host->handOnSoon();
}

ControlHost::ControlHost(HWND parent, Setup setup, Log& log)
    : setup_(std::move(setup)),
      log_(log),
      window_(*this, log),
      calls_(std::make_shared<CallState>(CallState{this})) {
  window_.open(parent);
  const Call call(*this);
  const HRESULT result = create();
  if (SUCCEEDED(result)) return;
  if (result == REGDB_E_CLASSNOTREG) {
    log_.info(setup_.name + " is not installed");
  } else {
    log_.error(setup_.name + " cannot be made: " + hexOf(result));
  }
  close();
}

ControlHost::~ControlHost() {
  calls_->host = nullptr;
  close();
}

HRESULT ControlHost::create() {
  HRESULT result = CoCreateInstance(setup_.control, nullptr, CLSCTX_INPROC_SERVER,
                                    __uuidof(IOleObject), object_.putVoid());
  if (FAILED(result)) return result;
  site_ = make<ControlSite>(window_.handle(), [this] { guarded(log_, [this] { onResized(); }); });
  if (FAILED(result = initialise())) return result;
  connect();
  return activate();
}

/// Some controls want their site before they are initialised, the others after.
HRESULT ControlHost::initialise() {
  DWORD status = 0;
  object_->GetMiscStatus(DVASPECT_CONTENT, &status);
  const bool siteFirst = (status & OLEMISC_SETCLIENTSITEFIRST) != 0;
  HRESULT result = siteFirst ? object_->SetClientSite(site_.get()) : S_OK;
  if (FAILED(result)) return result;
  if (const auto bag = object_.as<IPersistPropertyBag>(); bag && !setup_.properties.empty()) {
    result = bag->Load(make<InitialProperties>(setup_.properties).get(), nullptr);
  } else if (const auto stream = object_.as<IPersistStreamInit>()) {
    result = stream->InitNew();
  }
  if (FAILED(result) && result != E_NOTIMPL) return result;
  return siteFirst ? S_OK : object_->SetClientSite(site_.get());
}

HRESULT ControlHost::activate() {
  RECT area{};
  GetClientRect(window_.handle(), &area);
  return object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.get(), 0, window_.handle(),
                         &area);
}

/// A control without events is of use still.
void ControlHost::connect() {
  const auto container = object_.as<IConnectionPointContainer>();
  IID events = identifierOf(eventInfo());
  if (const auto provider = object_.as<IProvideClassInfo2>(); provider && events == GUID_NULL) {
    provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events);
  }
  if (!container || FAILED(container->FindConnectionPoint(events, connection_.put()))) {
    log_.error(setup_.name + " offers no events");
    return;
  }
  events_ = make<ControlEvents>(events, log_, [this](DISPID event, std::vector<Variant> arguments) {
    announce(event, std::move(arguments));
  });
  if (FAILED(connection_->Advise(events_.get(), &cookie_))) {
    log_.error(setup_.name + " tells nothing of its events");
  }
}

void ControlHost::close() {
  waiting_.clear();
  if (events_) events_->disconnect();
  if (connection_ && cookie_ != 0) connection_->Unadvise(cookie_);
  connection_.reset();
  cookie_ = 0;
  if (object_) {
    if (const auto place = object_.as<IOleInPlaceObject>()) place->InPlaceDeactivate();
    object_->Close(OLECLOSE_NOSAVE);
    object_->SetClientSite(nullptr);
  }
  if (site_) site_->detach();
  object_.reset();
}

ComPtr<ITypeInfo> ControlHost::eventInfo() const {
  ComPtr<ITypeInfo> found;
  const auto info = object_ ? classInfo(object_, setup_.control) : nullptr;
  if (!info) return found;
  constexpr int kDefaultEvents = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  for (int i = 0; i < implementedTypes(*info.get()); ++i) {
    int flags = 0;
    HREFTYPE type = 0;
    const auto index = static_cast<UINT>(i);
    if (SUCCEEDED(info->GetImplTypeFlags(index, &flags)) &&
        (flags & kDefaultEvents) == kDefaultEvents &&
        SUCCEEDED(info->GetRefTypeOfImplType(index, &type))) {
      info->GetRefTypeInfo(type, found.put());
      break;
    }
  }
  return found;
}

void ControlHost::announce(DISPID event, std::vector<Variant> arguments) {
  waiting_.push_back({event, std::move(arguments)});
  if (waiting_.size() == 1) handOnSoon();
}

void ControlHost::dropWaitingEvents(const std::function<bool(DISPID)>& which) {
  ++calls_->serial;
  std::erase_if(waiting_, [&](const Event& event) { return which(event.id); });
}

void ControlHost::handOnSoon() {
  if (!waiting_.empty()) postEngineEvent(window_.handle(), EngineEvent::notify, 0, 0);
}

/// One event a message, so that the loop's other work has its turn.
void ControlHost::onEngineEvent(EngineEvent, WPARAM, std::int32_t) {
  if (waiting_.empty() || calls_->depth > 0) return;
  const Event event = std::move(waiting_.front());
  waiting_.pop_front();
  handOnSoon();
  // The receiver may destroy this object.
  const OnEvent onEvent = setup_.onEvent;
  onEvent(event.id, event.arguments);
}

void ControlHost::onResized() {
  if (!object_) return;
  const Call call(*this);
  const auto object = object_;
  RECT area{};
  GetClientRect(window_.handle(), &area);
  // Controls turn it back into pixels by the system's resolution, not by the monitor's.
  const auto perInch = static_cast<int>(GetDpiForSystem());
  SIZEL extent{MulDiv(area.right, kHimetricPerInch, perInch),
               MulDiv(area.bottom, kHimetricPerInch, perInch)};
  object->SetExtent(DVASPECT_CONTENT, &extent);
  if (const auto place = object.as<IOleInPlaceObject>()) place->SetObjectRects(&area, &area);
}

}  // namespace tessivo
