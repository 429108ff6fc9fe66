#include "screen/engines/direct_show/ClassicVideoOutput.h"

#include <utility>

#include "screen/engines/embedded/Letterbox.h"

namespace tessivo {

std::unique_ptr<VideoOutput> ClassicVideoOutput::add(IGraphBuilder* graph, HWND picture,
                                                     ComPtr<IBaseFilter>& renderer) {
  ComPtr<IBaseFilter> filter;
  if (FAILED(CoCreateInstance(CLSID_VideoRenderer, nullptr, CLSCTX_INPROC_SERVER,
                              __uuidof(IBaseFilter), filter.putVoid()))) {
    return nullptr;
  }
  auto window = filter.as<IVideoWindow>(IID_IVideoWindow);
  auto video = filter.as<IBasicVideo>(IID_IBasicVideo);
  if (!window || !video || FAILED(graph->AddFilter(filter.get(), L"Video"))) return nullptr;
  window->put_AutoShow(OAFALSE);
  renderer = filter;
  return std::make_unique<ClassicVideoOutput>(std::move(window), std::move(video), picture);
}

ClassicVideoOutput::ClassicVideoOutput(ComPtr<IVideoWindow> window, ComPtr<IBasicVideo> video,
                                       HWND picture)
    : window_(std::move(window)), video_(std::move(video)), picture_(picture) {}

ClassicVideoOutput::~ClassicVideoOutput() {
  window_->put_Visible(OAFALSE);
  window_->put_Owner(0);
}

void ClassicVideoOutput::attach() {
  window_->put_Owner(reinterpret_cast<OAHWND>(picture_));
  window_->put_WindowStyle(WS_CHILD | WS_CLIPSIBLINGS);
  fit();
  window_->put_Visible(OATRUE);
}

void ClassicVideoOutput::fit() {
  RECT area{};
  GetClientRect(picture_, &area);
  long width = 0;
  long height = 0;
  video_->GetVideoSize(&width, &height);
  const Rect place = letterbox(area.right, area.bottom, width, height);
  window_->SetWindowPosition(place.left, place.top, place.width, place.height);
}

}  // namespace tessivo
