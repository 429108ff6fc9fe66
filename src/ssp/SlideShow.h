#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/TimerService.h"
#include "ssp/PictureSettings.h"
#include "ssp/SlideOrder.h"
#include "ui/Timer.h"

namespace tessivo::ssp {

/// Where the pictures come from and are seen. Answers come from the message loop, however late: a
/// folder of a machine that is switched off takes its time.
class SlideStage {
 public:
  virtual ~SlideStage() = default;
  /// Begins to list the folder's files; the answer is `SlideShow::listed`, which comes later.
  virtual void list(const std::string& folder) = 0;
  /// Begins to fetch the picture; the answer is `SlideShow::loaded`, which comes later.
  virtual void load(const std::string& path) = 0;
  /// Shows what was fetched last, in place of what is seen now.
  virtual void show() = 0;
  /// Shows that there are no pictures, if it does not do so already.
  virtual void showNotice() = 0;
};

/// Which picture of a folder is shown when. The next one is fetched while one is shown; one that
/// cannot be is left out, then and in later rounds. The folder is read anew for each round. When a
/// round had no picture at all, the stage says so and the folder is looked at again every 30
/// seconds. The picture that is shown is not shown again in its own place.
///
/// Files that cannot be shown are not tried without a pause: after 20 in a row, and when all that
/// are there have failed before, one a second. As long as nothing is seen the stage says so.
///
/// Asks for one thing at a time. While an answer is missing it asks for nothing else, and an answer
/// that it does not wait for changes nothing.
class SlideShow {
 public:
  static constexpr int kRetryMs = 30'000;
  static constexpr int kPauseMs = 1000;
  static constexpr int kTriesWithoutPause = 20;
  static constexpr std::size_t kMostFailedNames = 10'000;  ///< more are not remembered

  /// All that is handed in must outlive it. Shows nothing before `start`.
  SlideShow(TimerService& timers, SlideStage& stage, const PictureSettings& settings,
            std::uint32_t seed);

  void start();
  /// The names of the folder's files; nothing when it cannot be opened.
  void listed(std::optional<std::vector<std::string>> names);
  /// The picture asked for last has been fetched, or cannot be.
  void loaded(bool succeeded);

 private:
  enum class Awaited { nothing, list, picture };
  enum class Next { pending, fetched, same, none };

  void askForList();
  void findNext();
  void fetch(const std::string& name);
  void load();
  void noteFailure();
  void settle(Next next);
  void goOn();

  SlideStage& stage_;
  PictureSettings settings_;
  SlideOrder order_;
  ui::Timer stay_;
  ui::Timer retry_;
  ui::Timer pause_;               ///< before the next try
  std::string shown_;             ///< name of the picture that is seen; empty: none is
  std::string fetched_;           ///< name of the next one
  std::set<std::string> failed_;  ///< names of files that cannot be shown
  int failures_ = 0;              ///< in a row
  Awaited awaited_ = Awaited::nothing;
  Next next_ = Next::pending;
  bool isDue_ = true;      ///< the next one is to be shown as soon as it is there
  bool roundHad_ = false;  ///< a picture that could be shown
};

}  // namespace tessivo::ssp
