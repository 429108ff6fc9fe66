#pragma once

#include <dshow.h>
#include <evr.h>
#include <windows.h>

#include <memory>

#include "screen/engines/direct_show/VideoOutput.h"

namespace tessivo {

/// The Enhanced Video Renderer; it draws into our window and has none of its own.
class EvrVideoOutput final : public VideoOutput {
 public:
  /// Nothing when the renderer cannot be had.
  static std::unique_ptr<VideoOutput> add(IGraphBuilder* graph, HWND picture,
                                          ComPtr<IBaseFilter>& renderer);

  EvrVideoOutput(ComPtr<IMFVideoDisplayControl> display, HWND picture);

  void attach() override { fit(); }
  void fit() override;
  void repaint() override;

 private:
  ComPtr<IMFVideoDisplayControl> display_;
  HWND picture_;
};

}  // namespace tessivo
