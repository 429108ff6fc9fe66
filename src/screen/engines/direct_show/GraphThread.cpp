#include "screen/engines/direct_show/GraphThread.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "screen/engines/embedded/PictureWindow.h"
#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {
namespace {

/// A seek over less than this is not worth a new graph.
constexpr std::int32_t kNearMs = 300;
constexpr DWORD kFrameCheckMs = 10;

/// Wine's file reader leaves a thread behind when it cannot open its file.
HRESULT whetherReadable(const SourcePath& source) {
  if (source.isUrl) return S_OK;
  constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const HANDLE file = CreateFileW(source.text.c_str(), GENERIC_READ, kShareAll, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return HRESULT_FROM_WIN32(GetLastError());
  CloseHandle(file);
  return S_OK;
}

}  // namespace

GraphThread::GraphThread(HWND engineWindow, WPARAM serial, Order order)
    : AttemptThread(engineWindow, serial),
      order_(std::move(order)),
      attenuation_(order_.attenuation),
      woken_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}

GraphThread::~GraphThread() {
  CloseHandle(woken_);
}

void GraphThread::close() {
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
  }
  SetEvent(woken_);
}

void GraphThread::command(Command command) {
  {
    const std::lock_guard lock(mutex_);
    commands_.push_back(std::move(command));
  }
  SetEvent(woken_);
}

void GraphThread::play() {
  command([this] { runGraph(); });
}

void GraphThread::pause() {
  command([this] {
    if (FAILED(graph_->pause())) return;
    moving_ = false;
    post(EngineEvent::paused);
  });
}

void GraphThread::seek(std::int32_t ms) {
  command([this, ms] { seekTo_ = ms; });
}

void GraphThread::setAttenuation(long attenuation) {
  command([this, attenuation] {
    attenuation_ = attenuation;
    graph_->setAttenuation(attenuation);
  });
}

void GraphThread::fitPicture() {
  command([this] { graph_->fitPicture(); });
}

void GraphThread::repaint() {
  command([this] { graph_->repaint(); });
}

void GraphThread::run() {
  graph_ = open(order_.startMs);
  if (!graph_) return;
  post(EngineEvent::opened, graph_->lengthMs());
  {
    const std::lock_guard lock(mutex_);
    if (closing_) return;
  }
  order_.waits ? graph_->cue() : runGraph();
  serve();
}

std::unique_ptr<PlaybackGraph> GraphThread::open(std::int32_t startMs) {
  auto graph = std::make_unique<PlaybackGraph>();
  HRESULT hr = whetherReadable(order_.source);
  if (SUCCEEDED(hr)) hr = graph->open(order_.source.text, order_.picture);
  if (FAILED(hr)) {
    post(EngineEvent::failed, hr);
    return nullptr;
  }
  graph->setAttenuation(attenuation_);
  if (startMs > 0) graph->seek(startMs);
  return graph;
}

void GraphThread::runGraph() {
  if (const HRESULT hr = graph_->run(); FAILED(hr)) return post(EngineEvent::failed, hr);
  moving_ = true;
  nextTickAt_ = GetTickCount64();
  post(EngineEvent::playing);
}

void GraphThread::serve() {
  while (serveCommands()) {
    serveSeek();
    serveNews();
    const DWORD sleep = std::min(serveTick(), serveFirstFrame());
    const std::array<HANDLE, 2> signals = {woken_, graph_->newsSignal()};
    MsgWaitForMultipleObjects(static_cast<DWORD>(signals.size()), signals.data(), FALSE, sleep,
                              QS_ALLINPUT);
    serveWindows();
  }
}

void GraphThread::serveWindows() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

bool GraphThread::serveCommands() {
  std::vector<Command> commands;
  {
    const std::lock_guard lock(mutex_);
    if (closing_) return false;
    commands.swap(commands_);
  }
  for (const Command& each : commands) each();
  return true;
}

/// Of several seeks that came together, the last one counts.
void GraphThread::serveSeek() {
  if (!seekTo_) return;
  if (!runsOnWine()) return graph_->seek(*std::exchange(seekTo_, std::nullopt));
  // A graph of Wine that was sought after it had started can hardly ever be stopped any more: take
  // a new one, when it plays and when it is worth it.
  if (!moving_) return;
  const std::int32_t target = *std::exchange(seekTo_, std::nullopt);
  if (std::abs(target - graph_->positionMs()) < kNearMs) return;
  auto next = open(target);
  if (!next) return;
  graph_ = std::move(next);
  runGraph();
}

void GraphThread::serveNews() {
  HRESULT reason = S_OK;
  switch (graph_->takeNews(reason)) {
    case PlaybackGraph::News::none:
      return;
    case PlaybackGraph::News::ended:
      post(EngineEvent::ended);
      break;
    case PlaybackGraph::News::failed:
      post(EngineEvent::failed, reason);
      break;
  }
  moving_ = false;
}

DWORD GraphThread::serveFirstFrame() {
  if (!moving_ || !frameAwaited_) return INFINITE;
  if (!graph_->hasFrame()) return kFrameCheckMs;
  frameAwaited_ = false;
  PictureWindow::noteFrame(order_.picture);
  return INFINITE;
}

DWORD GraphThread::serveTick() {
  if (!moving_) return INFINITE;
  const ULONGLONG now = GetTickCount64();
  if (now >= nextTickAt_) {
    nextTickAt_ = now + kTickMs;
    post(EngineEvent::position, graph_->positionMs());
  }
  return static_cast<DWORD>(nextTickAt_ - now);
}

}  // namespace tessivo
