#pragma once

#include <ocidl.h>

#include <cstdint>
#include <map>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "screen/engines/control/ComObject.h"

namespace tessivo::test_control {

/// The identifiers of the events, as in TestControl.idl.
namespace event {
inline constexpr DISPID kPreSeek = 1;
inline constexpr DISPID kBuffering = 2;
inline constexpr DISPID kPlayStateChange = 3;
inline constexpr DISPID kErrorMessage = 4;
inline constexpr DISPID kPositionChange = 5;
inline constexpr DISPID kMouseMove = 6;
inline constexpr DISPID kLButtonDown = 7;
inline constexpr DISPID kStationChange = 8;  ///< this and the next: of kMoreEvents alone
inline constexpr DISPID kScroll = 9;
}  // namespace event

inline constexpr IID kEventInterface{
    0x6E0F0A52, 0x3C27, 0x4B0E, {0x9B, 0x1C, 0x6B, 0x1D, 0x64, 0xA1, 0xC0, 0xE1}};

inline constexpr IID kMoreEvents{
    0x6E0F0A53, 0x3C27, 0x4B0E, {0x9B, 0x1C, 0x6B, 0x1D, 0x64, 0xA1, 0xC0, 0xE1}};
/// The class that is described with kMoreEvents.
inline constexpr CLSID kWithMoreEvents{
    0x6E0F0A54, 0x3C27, 0x4B0E, {0x9B, 0x1C, 0x6B, 0x1D, 0x64, 0xA1, 0xC0, 0xE1}};
/// Of the two the one that is wished.
const IID& eventInterface();

VARIANT numberArgument(std::int32_t number);
VARIANT shortArgument(std::int16_t number);

/// The control's connection point: who wants its events.
class EventSource final : public ComObject<IConnectionPoint> {
 public:
  explicit EventSource(IConnectionPointContainer* owner) : owner_(owner) {}
  /// The control is gone.
  void detach() { owner_ = nullptr; }

  /// The arguments in the order of declaration; texts in them are released here.
  void fire(DISPID event, std::vector<VARIANT> arguments);

  STDMETHODIMP GetConnectionInterface(IID* id) override;
  STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
  STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

 private:
  IConnectionPointContainer* owner_;
  std::map<DWORD, ComPtr<IDispatch>> sinks_;
  DWORD lastCookie_ = 0;
};

}  // namespace tessivo::test_control
