#include "screen/engines/direct_show/GraphClock.h"

namespace tessivo {

bool GraphClock::attach(IGraphBuilder* graph) {
  ComPtr<IReferenceClock> clock;
  if (FAILED(graph->QueryInterface(IID_IMediaFilter, graph_.putVoid())) ||
      FAILED(CoCreateInstance(CLSID_SystemClock, nullptr, CLSCTX_INPROC_SERVER, IID_IReferenceClock,
                              clock.putVoid())) ||
      FAILED(graph_->SetSyncSource(clock.get()))) {
    return false;
  }
  clock_ = std::move(clock);
  return true;
}

HRESULT GraphClock::run() {
  const LONGLONG start = now() - played_;
  const HRESULT hr = graph_->Run(start);
  if (SUCCEEDED(hr)) startedAt_ = start;
  return hr;
}

void GraphClock::hold() {
  played_ = played();
  startedAt_.reset();
}

LONGLONG GraphClock::played() const {
  return startedAt_ ? now() - *startedAt_ : played_;
}

LONGLONG GraphClock::now() const {
  LONGLONG time = 0;
  clock_->GetTime(&time);
  return time;
}

}  // namespace tessivo
