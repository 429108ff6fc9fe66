#include "screen/engines/direct_show/EvrVideoOutput.h"

#include <mfidl.h>

#include <utility>

namespace tessivo {
namespace {

/// The class identifier, absent from our headers.
constexpr CLSID kEnhancedVideoRenderer = {
    0xfa10746c, 0x9b63, 0x4b6c, {0xbc, 0x49, 0xfc, 0x30, 0x0e, 0xa5, 0xf2, 0x56}};

}  // namespace

std::unique_ptr<VideoOutput> EvrVideoOutput::add(IGraphBuilder* graph, HWND picture,
                                                 ComPtr<IBaseFilter>& renderer) {
  ComPtr<IBaseFilter> filter;
  if (FAILED(CoCreateInstance(kEnhancedVideoRenderer, nullptr, CLSCTX_INPROC_SERVER,
                              __uuidof(IBaseFilter), filter.putVoid()))) {
    return nullptr;
  }
  const auto services = filter.as<IMFGetService>();
  ComPtr<IMFVideoDisplayControl> display;
  if (!services ||
      FAILED(services->GetService(MR_VIDEO_RENDER_SERVICE, __uuidof(IMFVideoDisplayControl),
                                  display.putVoid())) ||
      FAILED(display->SetVideoWindow(picture)) ||
      FAILED(graph->AddFilter(filter.get(), L"Video"))) {
    return nullptr;
  }
  display->SetAspectRatioMode(MFVideoARMode_PreservePicture);
  display->SetBorderColor(RGB(0, 0, 0));
  renderer = filter;
  return std::make_unique<EvrVideoOutput>(std::move(display), picture);
}

EvrVideoOutput::EvrVideoOutput(ComPtr<IMFVideoDisplayControl> display, HWND picture)
    : display_(std::move(display)), picture_(picture) {}

void EvrVideoOutput::fit() {
  RECT area{};
  GetClientRect(picture_, &area);
  display_->SetVideoPosition(nullptr, &area);
}

void EvrVideoOutput::repaint() {
  display_->RepaintVideo();
}

}  // namespace tessivo
