#pragma once

#include <dshow.h>
#include <windows.h>

#include <memory>

#include "screen/engines/direct_show/VideoOutput.h"

namespace tessivo {

/// The classic Video Renderer. It has a window of its own, which becomes a child of the picture
/// window; the black around the picture is the picture window's.
class ClassicVideoOutput final : public VideoOutput {
 public:
  /// Nothing when the renderer cannot be had.
  static std::unique_ptr<VideoOutput> add(IGraphBuilder* graph, HWND picture,
                                          ComPtr<IBaseFilter>& renderer);

  ClassicVideoOutput(ComPtr<IVideoWindow> window, ComPtr<IBasicVideo> video, HWND picture);
  ~ClassicVideoOutput() override;

  void attach() override;
  void fit() override;
  void repaint() override {}  // the renderer's window does it by itself

 private:
  ComPtr<IVideoWindow> window_;
  ComPtr<IBasicVideo> video_;
  HWND picture_;
};

}  // namespace tessivo
