#pragma once

#include <dshow.h>
#include <windows.h>

#include <memory>

#include "platform/win32/ComPtr.h"

namespace tessivo {

/// The video renderer of a filter graph, drawing into a picture window with the aspect ratio kept
/// on black. Used on the graph's thread only; released before the graph is.
class VideoOutput {
 public:
  virtual ~VideoOutput() = default;
  /// Once the graph is connected: takes the picture into the window.
  virtual void attach() = 0;
  /// The picture window has changed its size, or the video its own.
  virtual void fit() = 0;
  /// Draws the present frame again.
  virtual void repaint() = 0;
};

/// Adds the best video renderer of this system to the graph: the Enhanced Video Renderer, or the
/// classic Video Renderer where that is missing or (on Wine) shows nothing in a filter graph.
/// Nothing when there is none. `renderer` gets the filter.
std::unique_ptr<VideoOutput> addVideoOutput(IGraphBuilder* graph, HWND picture,
                                            ComPtr<IBaseFilter>& renderer);

}  // namespace tessivo
