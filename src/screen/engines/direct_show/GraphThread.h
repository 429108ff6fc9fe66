#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

#include "screen/engines/direct_show/PlaybackGraph.h"
#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/SourcePath.h"

namespace tessivo {

/// An attempt to play one source by DirectShow. The filter graph lives and dies on the attempt's
/// thread; the other members are called on the user-interface thread and hand an order to it.
/// While it plays, the position is posted every kTickMs; while it does not, the thread sleeps.
class GraphThread final : public AttemptThread {
 public:
  static constexpr DWORD kTickMs = 200;

  struct Order {
    SourcePath source;
    HWND picture = nullptr;
    std::int32_t startMs = 0;
    long attenuation = 0;
  };

  GraphThread(HWND engineWindow, WPARAM serial, Order order);
  ~GraphThread() override;

  void close() override;

  void play();
  void pause();
  void seek(std::int32_t ms);
  /// Hundredths of a decibel, 0 or less.
  void setAttenuation(long attenuation);
  /// After the picture window has changed its size.
  void fitPicture();
  void repaint();

 private:
  using Command = std::function<void(PlaybackGraph&)>;

  void run() override;
  bool open(PlaybackGraph& graph);
  void serve(PlaybackGraph& graph);
  void serveWindows();
  /// False when it is to close.
  bool serveCommands(PlaybackGraph& graph);
  void serveNews(PlaybackGraph& graph);
  DWORD serveTick(PlaybackGraph& graph);
  void command(Command command);
  void runGraph(PlaybackGraph& graph);

  const Order order_;
  bool moving_ = false;                    // own thread only
  std::optional<std::int32_t> seekOnRun_;  // own thread only
  ULONGLONG nextTickAt_ = 0;               // own thread only

  HANDLE woken_;
  std::mutex mutex_;  // of the members below
  bool closing_ = false;
  std::vector<Command> commands_;
};

}  // namespace tessivo
