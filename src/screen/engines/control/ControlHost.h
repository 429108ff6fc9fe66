#pragma once

#include <ocidl.h>
#include <windows.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Geometry.h"
#include "platform/Log.h"
#include "platform/win32/ComPtr.h"
#include "screen/engines/control/Variant.h"
#include "screen/engines/embedded/EngineWindow.h"

namespace tessivo {

class ControlEvents;
class ControlHost;
class ControlSite;

/// The calls of members that are under way; outlives the host when it is destroyed in one.
struct CallState {
  ControlHost* host = nullptr;
  int depth = 0;
  unsigned serial = 0;  ///< of what is meant; moves on when something is given up
};

/// Hosts one installed control (an in-place active OLE object) in a child window of its own, and
/// hands its events on from the message loop: also those that the control fires inside a call of
/// one of its members, where a control may run a message loop of its own (a dialog, say). Such a
/// loop also lets the program go on: what it does to the slot then is done inside the call.
/// User-interface thread only, OLE initialised.
class ControlHost : private EngineWindow::Owner {
 public:
  /// An event's dispatch identifier and its arguments in the order of declaration. May destroy the
  /// host.
  using OnEvent = std::function<void(DISPID event, const std::vector<Variant>& arguments)>;
  /// Names and values that the control reads when it is made (`IPersistPropertyBag`).
  using Properties = std::vector<std::pair<std::wstring, std::wstring>>;

  struct Setup {
    std::string name;  ///< for the log
    CLSID control{};
    Properties properties;
    OnEvent onEvent;
  };

  /// `log` gets a line when the control cannot be made.
  /// Stands on the stack around each call of a member. While one does, events wait.
  class Call {
   public:
    explicit Call(ControlHost& host);
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    /// The host has not been destroyed meanwhile.
    bool hostIsThere() const { return state_->host != nullptr; }
    /// Nor has anything been given up: the outcome of the call still matters.
    bool isStillMeant() const { return hostIsThere() && state_->serial == serial_; }

   private:
    std::shared_ptr<CallState> state_;
    unsigned serial_;
  };

  ControlHost(HWND parent, Setup setup, Log& log);
  ~ControlHost() override;
  ControlHost(const ControlHost&) = delete;
  ControlHost& operator=(const ControlHost&) = delete;

  /// Whether the control was made and activated.
  bool created() const { return static_cast<bool>(object_); }
  /// Null when it was not made.
  IUnknown* control() const { return object_.get(); }

  /// The child window that holds the control; made also when the control is not there.
  HWND handle() const { return window_.handle(); }
  bool visible() const { return window_.visible(); }
  void setVisible(bool visible) { window_.setVisible(visible); }
  void move(const Rect& pixels) { window_.move(pixels); }

  /// Hands on as if the control had fired it: from the message loop, behind what waits already.
  void announce(DISPID event, std::vector<Variant> arguments = {});
  /// Drops those of the events that wait to be handed on: they speak of what has been given up.
  void dropWaitingEvents(const std::function<bool(DISPID)>& which);

  /// The description of the control's default events; empty when the control gives none.
  ComPtr<ITypeInfo> eventInfo() const;

 private:
  struct Event {
    DISPID id;
    std::vector<Variant> arguments;
  };

  void handOnSoon();
  HRESULT create();
  HRESULT initialise();
  HRESULT activate();
  void connect();
  void close();

  void onMouse(EngineWindow::Gesture, MouseButton, bool) override {}
  void onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) override;
  void onResized() override;
  void onTimer(EngineWindow::Timer) override {}

  Setup setup_;
  Log& log_;
  EngineWindow window_;
  std::deque<Event> waiting_;
  std::shared_ptr<CallState> calls_;
  ComPtr<ControlSite> site_;
  ComPtr<ControlEvents> events_;
  ComPtr<IOleObject> object_;
  ComPtr<IConnectionPoint> connection_;
  DWORD cookie_ = 0;
};

}  // namespace tessivo
