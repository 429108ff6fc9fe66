#pragma once

#include <mfidl.h>
#include <windows.h>

#include <atomic>
#include <cstddef>
#include <mutex>
#include <vector>

#include "platform/win32/ComPtr.h"

namespace tessivo {

// COM objects are deleted by their own Release; the interfaces have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Video drawn by ourselves, frame by frame as the session hands it out: for Wine, whose Enhanced
/// Video Renderer shows nothing in a child window. A COM object, because the session calls it on
/// a thread of its own for each frame that is due.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): deleted by its own Release
class GrabbedPicture final : public IMFSampleGrabberSinkCallback {
 public:
  /// For the video stream; empty when the system refuses. `picture` is told to paint itself with
  /// each frame.
  static ComPtr<GrabbedPicture> create(IMFStreamDescriptor* stream, HWND picture);
  /// The sink that feeds this picture.
  ComPtr<IMFActivate> sink();

  /// Draws the present frame into the window, its aspect ratio kept, on black; false when there is
  /// none yet. User-interface thread.
  bool paint(HDC dc) const;
  /// Lets go of its frame, and takes no other. Any thread. Wine's session, broken off, never
  /// releases its callback, and a frame is some megabytes.
  void forget();

  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP OnClockStart(MFTIME, LONGLONG) override { return S_OK; }
  STDMETHODIMP OnClockStop(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockPause(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockRestart(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockSetRate(MFTIME, float) override { return S_OK; }
  STDMETHODIMP OnSetPresentationClock(IMFPresentationClock*) override { return S_OK; }
  STDMETHODIMP OnProcessSample(REFGUID majorType, DWORD flags, LONGLONG time, LONGLONG duration,
                               const BYTE* bytes, DWORD size) override;
  STDMETHODIMP OnShutdown() override { return S_OK; }

 private:
  GrabbedPicture(HWND picture, UINT32 width, UINT32 height, UINT32 aspectX, UINT32 aspectY);
  ~GrabbedPicture() = default;

  std::atomic<ULONG> references_ = 1;
  const HWND picture_;
  const LONG width_;  ///< of a frame in pixels
  const LONG height_;
  const LONG shownWidth_;  ///< with the shape of a pixel taken into account
  const LONG shownHeight_;
  mutable std::mutex mutex_;
  std::vector<BYTE> frame_;  ///< 32 bits a pixel, the top row first; empty before the first frame
  bool forgotten_ = false;
};

#pragma GCC diagnostic pop

}  // namespace tessivo
