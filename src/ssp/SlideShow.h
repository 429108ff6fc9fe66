#pragma once

#include <cstdint>
#include <string>

#include "platform/Files.h"
#include "platform/TimerService.h"
#include "ssp/PictureSettings.h"
#include "ssp/SlideOrder.h"
#include "ui/Timer.h"

namespace tessivo::ssp {

/// Where the pictures are seen.
class SlideStage {
 public:
  virtual ~SlideStage() = default;
  /// Begins to fetch the picture; the answer is `SlideShow::loaded`, which comes later.
  virtual void load(const std::string& path) = 0;
  /// Shows what was fetched last, in place of what is seen now.
  virtual void show() = 0;
  /// Shows that there are no pictures, if it does not do so already.
  virtual void showNotice() = 0;
};

/// Which picture of a folder is shown when. The next one is fetched while one is shown; one that
/// cannot be is left out. The folder is read anew for each round. When a round had no picture at
/// all, the stage says so and the folder is looked at again every 30 seconds. The picture that is
/// shown is not shown again in its own place.
class SlideShow {
 public:
  static constexpr int kRetryMs = 30'000;

  /// All that is handed in must outlive it. Shows nothing before `start`.
  SlideShow(const Files& files, TimerService& timers, SlideStage& stage,
            const PictureSettings& settings, std::uint32_t seed);

  void start();
  /// The picture asked for last has been fetched, or cannot be.
  void loaded(bool succeeded);

 private:
  enum class Next { pending, fetched, same, none };

  void beginRound();
  void findNext();
  void settle(Next next);
  void goOn();
  void beginAgain();

  const Files& files_;
  SlideStage& stage_;
  PictureSettings settings_;
  SlideOrder order_;
  ui::Timer stay_;
  ui::Timer retry_;
  std::string shown_;    ///< name of the picture that is seen; empty: none is
  std::string fetched_;  ///< name of the next one
  Next next_ = Next::pending;
  bool isDue_ = true;      ///< the next one is to be shown as soon as it is there
  bool roundHad_ = false;  ///< a picture that could be shown
};

}  // namespace tessivo::ssp
