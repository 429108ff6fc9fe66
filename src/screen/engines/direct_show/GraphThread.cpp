#include "screen/engines/direct_show/GraphThread.h"

#include <array>
#include <utility>

#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {

GraphThread::GraphThread(HWND engineWindow, WPARAM serial, Order order)
    : AttemptThread(engineWindow, serial),
      order_(std::move(order)),
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
  command([this](PlaybackGraph& graph) { runGraph(graph); });
}

void GraphThread::pause() {
  command([this](PlaybackGraph& graph) {
    if (FAILED(graph.pause())) return;
    moving_ = false;
    post(EngineEvent::paused);
  });
}

void GraphThread::seek(std::int32_t ms) {
  command([this, ms](PlaybackGraph& graph) {
    // A graph of Wine that is sought while it is paused can never be stopped any more.
    if (!moving_ && runsOnWine()) {
      seekOnRun_ = ms;
    } else {
      graph.seek(ms);
    }
  });
}

void GraphThread::setAttenuation(long attenuation) {
  command([attenuation](PlaybackGraph& graph) { graph.setAttenuation(attenuation); });
}

void GraphThread::fitPicture() {
  command([](PlaybackGraph& graph) { graph.fitPicture(); });
}

void GraphThread::repaint() {
  command([](PlaybackGraph& graph) { graph.repaint(); });
}

void GraphThread::run() {
  PlaybackGraph graph;
  if (open(graph)) serve(graph);
}

bool GraphThread::open(PlaybackGraph& graph) {
  const HRESULT hr = graph.open(order_.source.text, order_.picture);
  if (FAILED(hr)) {
    post(EngineEvent::failed, hr);
    return false;
  }
  graph.setAttenuation(order_.attenuation);
  if (order_.startMs > 0) graph.seek(order_.startMs);
  post(EngineEvent::opened, graph.lengthMs());
  {
    const std::lock_guard lock(mutex_);
    if (closing_) return false;
  }
  runGraph(graph);
  return true;
}

void GraphThread::runGraph(PlaybackGraph& graph) {
  if (const HRESULT hr = graph.run(); FAILED(hr)) return post(EngineEvent::failed, hr);
  moving_ = true;
  if (seekOnRun_) graph.seek(*std::exchange(seekOnRun_, std::nullopt));
  nextTickAt_ = GetTickCount64();
  post(EngineEvent::playing);
}

void GraphThread::serve(PlaybackGraph& graph) {
  const std::array<HANDLE, 2> signals = {woken_, graph.newsSignal()};
  while (serveCommands(graph)) {
    serveNews(graph);
    const DWORD sleep = serveTick(graph);
    MsgWaitForMultipleObjects(static_cast<DWORD>(signals.size()), signals.data(), FALSE, sleep,
                              QS_ALLINPUT);
    serveWindows();
  }
}

void GraphThread::serveWindows() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

bool GraphThread::serveCommands(PlaybackGraph& graph) {
  std::vector<Command> commands;
  {
    const std::lock_guard lock(mutex_);
    if (closing_) return false;
    commands.swap(commands_);
  }
  for (const Command& each : commands) each(graph);
  return true;
}

void GraphThread::serveNews(PlaybackGraph& graph) {
  HRESULT reason = S_OK;
  switch (graph.takeNews(reason)) {
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

DWORD GraphThread::serveTick(PlaybackGraph& graph) {
  if (!moving_) return INFINITE;
  const ULONGLONG now = GetTickCount64();
  if (now >= nextTickAt_) {
    nextTickAt_ = now + kTickMs;
    post(EngineEvent::position, graph.positionMs());
  }
  return static_cast<DWORD>(nextTickAt_ - now);
}

}  // namespace tessivo
