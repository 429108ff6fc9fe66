#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>

#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/TimerService.h"
#include "ui/Timer.h"

namespace tessivo {

/// Long work on the user-interface thread, done in slices, so that the windows are never blocked
/// for long. The work is a step that is called again and again; between two slices the message loop
/// turns. It knows nothing of what is done. User-interface thread only.
class SlicedWork {
 public:
  /// How long a slice lasts; its last step may take longer.
  static constexpr std::uint64_t kSliceMs = 24;

  /// Does one small piece and tells whether there is more. A step may call anything here and may
  /// destroy this object. One that calls `finish`, or lets a message loop run that does, is called
  /// from inside itself: it notes what it has taken on before it begins with it.
  using Step = std::function<bool()>;

  SlicedWork(const Clock& clock, TimerService& timers);
  ~SlicedWork() { *alive_ = false; }
  SlicedWork(const SlicedWork&) = delete;
  SlicedWork& operator=(const SlicedWork&) = delete;

  /// Queues the work. When nothing else is under way its first slice runs at once.
  void run(Step step);
  bool isRunning() const { return !waiting_.empty(); }
  /// Does all the rest now.
  void finish();
  /// Drops the rest. A step under way is not called again.
  void cancel();

  /// A slice is over, or `finish` or `cancel` has ended the work.
  Signal<> progressed;

 private:
  void onTimer();
  void proceed(std::uint64_t endMs);

  const Clock& clock_;
  ui::Timer timNextSlice_;
  std::deque<std::shared_ptr<const Step>> waiting_;  ///< the first is under way
  bool inStep_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tessivo
