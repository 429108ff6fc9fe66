#pragma once

#include <evr.h>
#include <mfidl.h>
#include <windows.h>

#include <atomic>
#include <mutex>
#include <optional>

#include "platform/win32/ComPtr.h"
#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/SourcePath.h"
#include "screen/engines/media_foundation/GrabbedPicture.h"

namespace tessivo {

/// An attempt to play one source by Media Foundation. It opens and starts on its own thread, which
/// afterwards waits for the session's events; the other members are called on the user-interface
/// thread and only hand an order to the session.
class MediaPresentation final : public AttemptThread {
 public:
  struct Order {
    SourcePath source;
    HWND picture = nullptr;
    double startSeconds = 0;
    float amplitude = 1;
    bool waits = false;  ///< it is opened, and starts with go()
  };

  MediaPresentation(HWND engineWindow, WPARAM serial, Order order);
  ~MediaPresentation() override;
  MediaPresentation(const MediaPresentation&) = delete;
  MediaPresentation& operator=(const MediaPresentation&) = delete;

  void close() override;

  /// Starts one that waits, as soon as it is open.
  void go();
  void pause();
  /// Goes on from a pause, or seeks when seconds are given. Not on Wine, whose session is stuck
  /// for good when it is started a second time.
  void start(std::optional<double> seconds);
  /// 0..1; also before anything is open.
  void setAmplitude(float amplitude);
  /// Seconds; the start position before it plays.
  double position() const;
  /// After the picture window has changed its size.
  void fitPicture();
  /// Draws the present frame into the picture window; false when there is none.
  bool paint(HDC dc) const;

 private:
  void run() override;
  void letGo() override;
  HRESULT openSource();
  HRESULT openSession();
  HRESULT setTopology(bool withSound);
  void followSession();
  void handleEvent(IMFMediaEvent* event, MediaEventType type, HRESULT status);
  void sessionIsReady();
  void takeServices();
  /// On either thread.
  void begin();
  /// What is to be started; empty when the attempt is to close instead, or has.
  ComPtr<IMFMediaSession> sessionToStart();
  /// Own thread only; as noStart, when the start has come to its end.
  void startIsOver();
  /// Closes the session when that was ordered during the start. Never waits.
  void noStart();
  void fail(HRESULT reason);
  template <typename T>
  ComPtr<T> held(const ComPtr<T>& member) const;

  const Order order_;
  ComPtr<IMFMediaSource> source_;                   // own thread only
  ComPtr<IMFPresentationDescriptor> presentation_;  // own thread only
  UINT64 duration_ = 0;                             // written before `ready_`; 100 ns, 0 unknown
  bool withSound_ = true;                           // own thread only
  bool hasPicture_ = false;                         // own thread only
  std::atomic<float> amplitude_;
  std::atomic<bool> failed_ = false;

  mutable std::mutex mutex_;  // of the members below; never held during a call of theirs
  bool closing_ = false;
  bool waits_;
  bool ready_ = false;
  /// Wine's source, closed while it starts, frees everything twice: the start comes to its end
  /// first.
  bool starting_ = false;
  ComPtr<IMFMediaSession> session_;
  ComPtr<IMFPresentationClock> clock_;
  ComPtr<IMFAudioStreamVolume> volume_;
  ComPtr<IMFVideoDisplayControl> display_;
  ComPtr<GrabbedPicture> grabbed_;  // instead of the display, on Wine; can be painted for good
};

}  // namespace tessivo
