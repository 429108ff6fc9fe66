#pragma once

#include <dshow.h>
#include <windows.h>

#include <optional>

#include "platform/win32/ComPtr.h"

namespace tessivo {

/// Runs a filter graph by a clock of its own. For Wine: its IMediaControl::Run lets each graph
/// begin 200 ms late; a graph that is told its start time begins at once, but forgets how far it
/// has come, which is known here instead. All times in units of 100 ns. On the graph's thread.
class GraphClock {
 public:
  /// The graph takes a system clock. False when there is none: the graph runs by itself then.
  bool attach(IGraphBuilder* graph);
  explicit operator bool() const { return static_cast<bool>(clock_); }

  /// Starts or resumes a graph that has been cued. A failure changes nothing.
  HRESULT run();
  void hold();
  /// How long it has run since it was at the place where it began.
  LONGLONG played() const;

 private:
  LONGLONG now() const;

  ComPtr<IMediaFilter> graph_;
  ComPtr<IReferenceClock> clock_;
  std::optional<LONGLONG> startedAt_;  ///< while it runs: when it would have begun without pauses
  LONGLONG played_ = 0;                ///< while it does not
};

}  // namespace tessivo
