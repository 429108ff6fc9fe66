#include "screen/engines/direct_show/PlaybackGraph.h"

#include <evcode.h>
#include <vfwmsgs.h>

#include <algorithm>
#include <limits>

#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {
namespace {

constexpr LONGLONG kTicksPerMs = 10000;
constexpr long kCueMs = 1000;

std::int32_t millisecondsOf(LONGLONG ticks) {
  constexpr LONGLONG kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp<LONGLONG>(ticks / kTicksPerMs, 0, kMost));
}

bool isConnected(IBaseFilter* renderer) {
  ComPtr<IEnumPins> pins;
  ComPtr<IPin> pin;
  ComPtr<IPin> peer;
  return SUCCEEDED(renderer->EnumPins(pins.put())) && pins->Next(1, pin.put(), nullptr) == S_OK &&
         SUCCEEDED(pin->ConnectedTo(peer.put()));
}

}  // namespace

PlaybackGraph::~PlaybackGraph() {
  // The renderer's window leaves ours first: a graph that hangs while it stops must not take the
  // user interface along.
  output_.reset();
  try {
    if (control_) control_->Stop();
  } catch (...) {  // NOLINT(bugprone-empty-catch): a codec's; the graph goes all the same
  }
}

HRESULT PlaybackGraph::open(const std::wstring& source, HWND picture) {
  if (runsOnWine()) sound_.emplace();
  HRESULT hr = CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER,
                                __uuidof(IGraphBuilder), graph_.putVoid());
  if (FAILED(hr)) return hr;
  control_ = graph_.as<IMediaControl>(IID_IMediaControl);
  events_ = graph_.as<IMediaEvent>(IID_IMediaEvent);
  seeking_ = graph_.as<IMediaSeeking>();
  audio_ = graph_.as<IBasicAudio>(IID_IBasicAudio);
  if (!control_ || !events_ || !seeking_) return E_NOINTERFACE;
  ComPtr<IBaseFilter> renderer;
  output_ = addVideoOutput(graph_.get(), picture, renderer);
  hr = graph_->RenderFile(source.c_str(), nullptr);
  if (FAILED(hr)) return hr;
  // Sound alone of a film is no way to show it.
  if (hr == VFW_S_VIDEO_NOT_RENDERED) return VFW_E_CANNOT_RENDER;
  if (output_ && !isConnected(renderer.get())) {
    // An idle renderer would keep the end of the others from being reported.
    output_.reset();
    graph_->RemoveFilter(renderer.get());
  }
  if (output_) output_->attach();
  // Wine also loses the sound renderer of each graph, and with it the thread of the clock that it
  // lends to a film; one of the graph's own goes with the graph.
  if (runsOnWine()) clock_.attach(graph_.get());
  return S_OK;
}

HANDLE PlaybackGraph::newsSignal() const {
  OAEVENT signal = 0;
  events_->GetEventHandle(&signal);
  return reinterpret_cast<HANDLE>(signal);
}

PlaybackGraph::News PlaybackGraph::takeNews(HRESULT& reason) {
  long code = 0;
  LONG_PTR first = 0;
  LONG_PTR second = 0;
  News news = News::none;
  while (events_->GetEvent(&code, &first, &second, 0) == S_OK) {
    if (code == EC_COMPLETE) news = News::ended;
    if (code == EC_ERRORABORT || code == EC_STREAM_ERROR_STOPPED) {
      news = News::failed;
      reason = static_cast<HRESULT>(first);
    }
    if (code == EC_USERABORT) {
      news = News::failed;
      reason = E_ABORT;
    }
    if (code == EC_VIDEO_SIZE_CHANGED) fitPicture();
    events_->FreeEventParams(code, first, second);
  }
  return news;
}

void PlaybackGraph::cue() {
  OAFilterState state = State_Stopped;
  if (SUCCEEDED(control_->Pause())) control_->GetState(kCueMs, &state);
}

bool PlaybackGraph::hasFrame() const {
  OAFilterState state = State_Stopped;
  return control_->GetState(0, &state) == S_OK;
}

HRESULT PlaybackGraph::run() {
  if (!clock_) return control_->Run();
  cue();
  return clock_.run();
}

HRESULT PlaybackGraph::pause() {
  const HRESULT hr = control_->Pause();
  if (clock_ && SUCCEEDED(hr)) clock_.hold();
  return hr;
}

void PlaybackGraph::seek(std::int32_t ms) {
  const std::int32_t length = lengthMs();
  LONGLONG position = kTicksPerMs * (length > 0 ? std::clamp(ms, 0, length) : std::max(ms, 0));
  begin_ = position;
  seeking_->SetPositions(&position, AM_SEEKING_AbsolutePositioning, nullptr,
                         AM_SEEKING_NoPositioning);
}

std::int32_t PlaybackGraph::positionMs() const {
  if (clock_) {
    const std::int32_t reached = millisecondsOf(begin_ + clock_.played());
    const std::int32_t length = lengthMs();
    return length > 0 ? std::min(reached, length) : reached;
  }
  LONGLONG position = 0;
  if (FAILED(seeking_->GetCurrentPosition(&position))) return 0;
  return millisecondsOf(position);
}

std::int32_t PlaybackGraph::lengthMs() const {
  LONGLONG length = 0;
  if (FAILED(seeking_->GetDuration(&length))) return 0;
  return millisecondsOf(length);
}

void PlaybackGraph::setAttenuation(long attenuation) {
  if (audio_) audio_->put_Volume(attenuation);
}

void PlaybackGraph::fitPicture() {
  if (output_) output_->fit();
}

void PlaybackGraph::repaint() {
  if (output_) output_->repaint();
}

}  // namespace tessivo
