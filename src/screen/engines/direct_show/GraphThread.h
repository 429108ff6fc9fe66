#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
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
    bool waits = false;  ///< it is opened, and starts with play()
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
  using Command = std::function<void()>;

  void run() override;
  void letGo() override { graph_.reset(); }
  /// A graph that stands ready at a position; empty when that failed, which has been posted then.
  std::unique_ptr<PlaybackGraph> open(std::int32_t startMs);
  void serve();
  void serveWindows();
  /// False when it is to close.
  bool serveCommands();
  void serveSeek();
  void serveNews();
  DWORD serveTick();
  /// How long until it looks again for the first frame.
  DWORD serveFirstFrame();
  void command(Command command);
  void runGraph();

  const Order order_;
  // The thread's own:
  std::unique_ptr<PlaybackGraph> graph_;
  long attenuation_;
  bool moving_ = false;
  bool frameAwaited_ = true;
  std::optional<std::int32_t> seekTo_;  ///< wanted, and not done yet
  ULONGLONG nextTickAt_ = 0;

  HANDLE woken_;
  std::mutex mutex_;  // of the members below
  bool closing_ = false;
  std::vector<Command> commands_;
};

}  // namespace tessivo
