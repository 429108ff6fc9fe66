#pragma once

#include <cstdint>
#include <optional>

#include "platform/Clock.h"
#include "platform/win32/Gdi.h"
#include "ssp/SlideShow.h"
#include "ssp/WanderPath.h"
#include "ssp/win32/PictureWorker.h"
#include "ssp/win32/SaverProgram.h"
#include "ui/Timer.h"

namespace tessivo::ssp {

/// The picture show on a saver's window: fades from one picture into the next, draws nothing in
/// between. Without pictures a notice wanders over the window.
class PictureSaver final : public Saver, private SlideStage {
 public:
  /// Waits for nothing: folder and pictures are read behind its back. All that is handed in must
  /// outlive it.
  PictureSaver(SaverWindow& window, const PictureSettings& settings, const Clock& clock,
               TimerService& timers);

 private:
  void list(const std::string& folder) override;
  void load(const std::string& path) override;
  void show() override;
  void showNotice() override;

  void takeAnswer();
  void fade();
  void copy(HBITMAP picture);
  void wander();
  void drawNotice();
  void refreshAll();

  SaverWindow& window_;
  const Clock& clock_;
  PictureWorker worker_;
  UniqueGdi<HBITMAP> fetched_;  ///< read, not shown yet
  UniqueGdi<HBITMAP> before_;   ///< what was seen when the fade began
  UniqueGdi<HBITMAP> picture_;  ///< what will be seen when it is over
  std::uint64_t fadeStart_ = 0;
  ui::Timer fading_;
  UniqueGdi<HFONT> noticeFont_;
  Size noticeSize_;
  std::optional<WanderPath> noticePath_;  ///< while the notice is seen
  ui::Timer wandering_;
  SlideShow slides_;
};

}  // namespace tessivo::ssp
