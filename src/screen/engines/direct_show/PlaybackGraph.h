#pragma once

#include <dshow.h>
#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/win32/ComPtr.h"
#include "screen/engines/direct_show/GraphClock.h"
#include "screen/engines/direct_show/SoundDevice.h"
#include "screen/engines/direct_show/VideoOutput.h"

namespace tessivo {

/// A DirectShow filter graph that plays one source, by whatever filters are installed. Everything
/// happens on the thread that opened it, which has to serve its windows' messages.
class PlaybackGraph {
 public:
  /// What has happened in the graph since it was asked last.
  enum class News { none, ended, failed };

  PlaybackGraph() = default;
  ~PlaybackGraph();
  PlaybackGraph(const PlaybackGraph&) = delete;
  PlaybackGraph& operator=(const PlaybackGraph&) = delete;

  /// Opens the source and connects it. May take long.
  HRESULT open(const std::wstring& source, HWND picture);
  /// Signalled while there is news. Valid once open.
  HANDLE newsSignal() const;
  /// `reason` is set for `failed`.
  News takeNews(HRESULT& reason);

  /// Pauses at the first frame, and waits until it is there, a second at most.
  void cue();
  /// The first frame since the start has come to the renderer.
  bool hasFrame() const;
  HRESULT run();
  HRESULT pause();
  void seek(std::int32_t ms);
  std::int32_t positionMs() const;
  std::int32_t lengthMs() const;  ///< 0 when unknown
  /// Hundredths of a decibel, 0 or less.
  void setAttenuation(long attenuation);
  void fitPicture();
  void repaint();

 private:
  std::optional<SoundDevice> sound_;  // goes last
  ComPtr<IGraphBuilder> graph_;
  ComPtr<IMediaControl> control_;
  ComPtr<IMediaEvent> events_;
  ComPtr<IMediaSeeking> seeking_;
  ComPtr<IBasicAudio> audio_;
  std::unique_ptr<VideoOutput> output_;
  GraphClock clock_;
  LONGLONG begin_ = 0;  ///< the place it was sent to, in units of 100 ns
};

}  // namespace tessivo
