#include "screen/engines/direct_show/VideoOutput.h"

#include "screen/engines/direct_show/ClassicVideoOutput.h"
#include "screen/engines/direct_show/EvrVideoOutput.h"
#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {

std::unique_ptr<VideoOutput> addVideoOutput(IGraphBuilder* graph, HWND picture,
                                            ComPtr<IBaseFilter>& renderer) {
  std::unique_ptr<VideoOutput> output;
  if (!runsOnWine()) output = EvrVideoOutput::add(graph, picture, renderer);
  if (!output) output = ClassicVideoOutput::add(graph, picture, renderer);
  return output;
}

}  // namespace tessivo
