#pragma once

#include <gtest/gtest.h>
#include <objbase.h>
#include <oleidl.h>
#include <windows.h>
// After windows.h, which it needs:
#include <wmp.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "platform/win32/WindowsText.h"
#include "screen/engines/control/ComObject.h"

namespace tessivo {

/// What was asked of the media player below, and what it is to answer. Outlives it.
struct MediaPlayerScript {
  /// A call by its name, a put with "=value".
  std::vector<std::string> calls;
  std::set<std::string> failing;  ///< the names of what fails

  double position = 0;
  double duration = 0;
  bool hasMedia = true;
  bool fullScreen = false;
  WMPPlayState playState = wmppsUndefined;

  HRESULT note(const std::string& name, const std::string& value = "") {
    calls.push_back(name + value);
    return failing.count(name) != 0 ? E_FAIL : S_OK;
  }
  HRESULT note(const std::string& name, VARIANT_BOOL value) {
    return note(name, std::string(value == VARIANT_TRUE ? "=true" : "=false"));
  }
  HRESULT note(const std::string& name, BSTR value) {
    return note(name, "=" + fromWide({value, SysStringLen(value)}));
  }
};

namespace recording {

/// An object of the media player's that is reached through its own interface alone.
template <typename... Interfaces>
class Part : public ComObject<Interfaces...> {
 public:
  explicit Part(MediaPlayerScript& script) : script_(script) {}

  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                      UINT*) override {
    return E_NOTIMPL;
  }

 protected:
  /// Hands out a new object; none when the member fails.
  template <typename Made, typename Interface>
  HRESULT hand(const std::string& name, Interface** result) {
    *result = nullptr;
    const HRESULT noted = script_.note(name);
    if (SUCCEEDED(noted)) *result = new Made(script_);
    return noted;
  }
  template <typename Value>
  HRESULT answer(const std::string& name, Value* result, Value value) {
    const HRESULT noted = script_.note(name);
    if (SUCCEEDED(noted)) *result = value;
    return noted;
  }

  MediaPlayerScript& script_;
};

class Controls final : public Part<IWMPControls> {
 public:
  using Part::Part;
  STDMETHODIMP play() override { return script_.note("controls.play"); }
  STDMETHODIMP stop() override { return script_.note("controls.stop"); }
  STDMETHODIMP pause() override { return script_.note("controls.pause"); }
  STDMETHODIMP get_currentPosition(double* seconds) override {
    return answer("controls.currentPosition", seconds, script_.position);
  }
  STDMETHODIMP put_currentPosition(double seconds) override {
    return script_.note("controls.currentPosition", "=" + std::to_string(seconds));
  }

  STDMETHODIMP get_isAvailable(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP fastForward() override { return E_NOTIMPL; }
  STDMETHODIMP fastReverse() override { return E_NOTIMPL; }
  STDMETHODIMP get_currentPositionString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP next() override { return E_NOTIMPL; }
  STDMETHODIMP previous() override { return E_NOTIMPL; }
  STDMETHODIMP currentItem(IWMPMedia**) override { return E_NOTIMPL; }
  STDMETHODIMP put_currentItem(IWMPMedia*) override { return E_NOTIMPL; }
  STDMETHODIMP get_currentMarker(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP put_currentMarker(LONG) override { return E_NOTIMPL; }
  STDMETHODIMP playItem(IWMPMedia*) override { return E_NOTIMPL; }
};

class Settings final : public Part<IWMPSettings> {
 public:
  using Part::Part;
  STDMETHODIMP put_autoStart(VARIANT_BOOL on) override {
    return script_.note("settings.autoStart", on);
  }
  STDMETHODIMP put_invokeURLs(VARIANT_BOOL on) override {
    return script_.note("settings.invokeURLs", on);
  }
  STDMETHODIMP put_mute(VARIANT_BOOL on) override { return script_.note("settings.mute", on); }
  STDMETHODIMP put_volume(LONG volume) override {
    return script_.note("settings.volume", "=" + std::to_string(volume));
  }
  STDMETHODIMP put_enableErrorDialogs(VARIANT_BOOL on) override {
    return script_.note("settings.enableErrorDialogs", on);
  }

  STDMETHODIMP get_isAvailable(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_autoStart(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_baseURL(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP put_baseURL(BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP get_defaultFrame(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP put_defaultFrame(BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP get_invokeURLs(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_mute(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_playCount(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP put_playCount(LONG) override { return E_NOTIMPL; }
  STDMETHODIMP get_rate(double*) override { return E_NOTIMPL; }
  STDMETHODIMP put_rate(double) override { return E_NOTIMPL; }
  STDMETHODIMP get_balance(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP put_balance(LONG) override { return E_NOTIMPL; }
  STDMETHODIMP get_volume(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP getMode(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP setMode(BSTR, VARIANT_BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP get_enableErrorDialogs(VARIANT_BOOL*) override { return E_NOTIMPL; }
};

class Errors final : public Part<IWMPError> {
 public:
  using Part::Part;
  STDMETHODIMP clearErrorQueue() override { return script_.note("Error.clearErrorQueue"); }

  STDMETHODIMP get_errorCount(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP get_Item(LONG, IWMPErrorItem**) override { return E_NOTIMPL; }
  STDMETHODIMP webHelp() override { return E_NOTIMPL; }
};

class Media final : public Part<IWMPMedia> {
 public:
  using Part::Part;
  STDMETHODIMP get_duration(double* seconds) override {
    return answer("currentMedia.duration", seconds, script_.duration);
  }

  STDMETHODIMP get_isIdentical(IWMPMedia*, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_sourceURL(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_name(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP put_name(BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP get_imageSourceWidth(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP get_imageSourceHeight(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP get_markerCount(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP getMarkerTime(LONG, double*) override { return E_NOTIMPL; }
  STDMETHODIMP getMarkerName(LONG, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_durationString(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_attributeCount(LONG*) override { return E_NOTIMPL; }
  STDMETHODIMP getAttributeName(LONG, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP getItemInfo(BSTR, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP setItemInfo(BSTR, BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP getItemInfoByAtom(LONG, BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP isMemberOf(IWMPPlaylist*, VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP isReadOnlyItem(BSTR, VARIANT_BOOL*) override { return E_NOTIMPL; }
};

/// The control itself: an object that can be hosted, without a window and without events.
class Player final : public Part<IOleObject, IWMPPlayer4, IWMPPlayer> {
 public:
  using Part::Part;

  // IWMPPlayer and IWMPPlayer4: what the slot uses
  STDMETHODIMP close() override { return script_.note("close"); }
  STDMETHODIMP put_URL(BSTR url) override { return script_.note("URL", url); }
  STDMETHODIMP get_playState(WMPPlayState* state) override {
    return answer("playState", state, script_.playState);
  }
  STDMETHODIMP get_controls(IWMPControls** result) override {
    return hand<Controls>("controls", result);
  }
  STDMETHODIMP get_settings(IWMPSettings** result) override {
    return hand<Settings>("settings", result);
  }
  STDMETHODIMP get_Error(IWMPError** result) override { return hand<Errors>("Error", result); }
  /// As in the real one, no media is no failure.
  STDMETHODIMP get_currentMedia(IWMPMedia** result) override {
    if (script_.hasMedia) return hand<Media>("currentMedia", result);
    *result = nullptr;
    script_.note("currentMedia");
    return S_FALSE;
  }
  STDMETHODIMP get_fullScreen(VARIANT_BOOL* full) override {
    return answer("fullScreen", full, script_.fullScreen ? VARIANT_TRUE : VARIANT_FALSE);
  }
  STDMETHODIMP put_fullScreen(VARIANT_BOOL on) override { return script_.note("fullScreen", on); }
  STDMETHODIMP put_enableContextMenu(VARIANT_BOOL on) override {
    return script_.note("enableContextMenu", on);
  }
  STDMETHODIMP put_uiMode(BSTR mode) override { return script_.note("uiMode", mode); }
  STDMETHODIMP put_stretchToFit(VARIANT_BOOL on) override {
    return script_.note("stretchToFit", on);
  }

  // IOleObject: what its host uses
  STDMETHODIMP DoVerb(LONG, MSG*, IOleClientSite*, LONG, HWND, const RECT*) override {
    return S_OK;
  }
  STDMETHODIMP SetClientSite(IOleClientSite*) override { return S_OK; }
  STDMETHODIMP Close(DWORD) override { return S_OK; }
  STDMETHODIMP SetExtent(DWORD, SIZEL*) override { return S_OK; }
  STDMETHODIMP GetMiscStatus(DWORD, DWORD*) override { return E_NOTIMPL; }

  // The rest of IWMPPlayer and IWMPPlayer4
  STDMETHODIMP get_URL(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_openState(WMPOpenState*) override { return E_NOTIMPL; }
  STDMETHODIMP put_currentMedia(IWMPMedia*) override { return E_NOTIMPL; }
  STDMETHODIMP get_mediaCollection(IWMPMediaCollection**) override { return E_NOTIMPL; }
  STDMETHODIMP get_playlistCollection(IWMPPlaylistCollection**) override { return E_NOTIMPL; }
  STDMETHODIMP get_versionInfo(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP launchURL(BSTR) override { return E_NOTIMPL; }
  STDMETHODIMP get_network(IWMPNetwork**) override { return E_NOTIMPL; }
  STDMETHODIMP get_currentPlaylist(IWMPPlaylist**) override { return E_NOTIMPL; }
  STDMETHODIMP put_currentPlaylist(IWMPPlaylist*) override { return E_NOTIMPL; }
  STDMETHODIMP get_cdromCollection(IWMPCdromCollection**) override { return E_NOTIMPL; }
  STDMETHODIMP get_closedCaption(IWMPClosedCaption**) override { return E_NOTIMPL; }
  STDMETHODIMP get_isOnline(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_status(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_dvd(IWMPDVD**) override { return E_NOTIMPL; }
  STDMETHODIMP newPlaylist(BSTR, BSTR, IWMPPlaylist**) override { return E_NOTIMPL; }
  STDMETHODIMP newMedia(BSTR, IWMPMedia**) override { return E_NOTIMPL; }
  STDMETHODIMP get_enabled(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP put_enabled(VARIANT_BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP get_enableContextMenu(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_uiMode(BSTR*) override { return E_NOTIMPL; }
  STDMETHODIMP get_stretchToFit(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_windowlessVideo(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP put_windowlessVideo(VARIANT_BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP get_isRemote(VARIANT_BOOL*) override { return E_NOTIMPL; }
  STDMETHODIMP get_playerApplication(IWMPPlayerApplication**) override { return E_NOTIMPL; }
  STDMETHODIMP openPlayer(BSTR) override { return E_NOTIMPL; }

  // The rest of IOleObject
  STDMETHODIMP GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return E_NOTIMPL; }
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
  STDMETHODIMP Update() override { return E_NOTIMPL; }
  STDMETHODIMP IsUpToDate() override { return E_NOTIMPL; }
  STDMETHODIMP GetUserClassID(CLSID*) override { return E_NOTIMPL; }
  STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
  STDMETHODIMP GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
  STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP Unadvise(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }
};

class PlayerFactory final : public ComObject<IClassFactory> {
 public:
  explicit PlayerFactory(MediaPlayerScript& script) : script_(script) {}
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    if (outer) return CLASS_E_NOAGGREGATION;
    ComPtr<IOleObject> player;
    *player.put() = new Player(script_);
    return player->QueryInterface(id, result);
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }

 private:
  MediaPlayerScript& script_;
};

}  // namespace recording

/// A control with the Windows Media Player control's interfaces that records what is asked of it:
/// made available to this process under a class of its own, as long as this object lives. Needs COM
/// initialised.
class RecordingMediaPlayer {
 public:
  static constexpr CLSID kClass{
      0x7e551700, 0x0000, 0x4000, {0x80, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x02}};

  RecordingMediaPlayer() {
    ComPtr<IClassFactory> factory;
    *factory.put() = new recording::PlayerFactory(script);
    EXPECT_EQ(CoRegisterClassObject(kClass, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                                    &offer_),
              S_OK);
  }
  ~RecordingMediaPlayer() { CoRevokeClassObject(offer_); }
  RecordingMediaPlayer(const RecordingMediaPlayer&) = delete;
  RecordingMediaPlayer& operator=(const RecordingMediaPlayer&) = delete;

  /// The calls since the last time.
  std::vector<std::string> takeCalls() { return std::exchange(script.calls, {}); }

  MediaPlayerScript script;

 private:
  DWORD offer_ = 0;
};

}  // namespace tessivo
