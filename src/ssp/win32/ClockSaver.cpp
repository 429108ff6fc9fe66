#include "ssp/win32/ClockSaver.h"

#include "ssp/win32/SaverFont.h"
#include "ui/win32/FormContext.h"

namespace tessivo::ssp {
namespace {

/// A start somewhere on the way, so that many short absences do not burn in its beginning.
constexpr int kStarts = 4096;

RECT within(const Rect& block, const Rect& part) {
  const LONG left = block.left + part.left;
  const LONG top = block.top + part.top;
  return {left, top, left + part.width, top + part.height};
}

}  // namespace

ClockSaver::ClockSaver(SaverWindow& window, const ClockSettings& settings, const Clock& clock,
                       TimerService& timers)
    : window_(window),
      settings_(settings),
      clock_(clock),
      path_(window.size(), {1, 1}),
      timer_(timers, "timSecond", msToNextSecond(clock.now())) {
  const LocalTime now = clock_.now();
  layOut(clockDateText(now));
  for (int i = now.msOfDay % kStarts; i > 0; --i) path_.advance();
  draw(now);
  timer_.onTimer.listen([this] { tick(); });
  timer_.setEnabled(true);
}

void ClockSaver::tick() {
  const LocalTime now = clock_.now();
  timer_.setInterval(msToNextSecond(now));
  const Rect before = place();
  window_.blacken(before);
  window_.refresh(before);
  if (const std::string date = clockDateText(now); date != date_) layOut(date);
  path_.advance();
  draw(now);
}

void ClockSaver::layOut(const std::string& date) {
  date_ = date;
  block_ = layOutClock(settings_, settings_.date ? date : "", window_.size(),
                       [this](const std::string& text, std::int32_t fontHeight) {
                         return measureSaverText(window_.canvas(), text, fontHeight);
                       });
  timeFont_ = makeSaverFont(block_.timeFont);
  dateFont_ = makeSaverFont(block_.dateFont);
  path_.setBlock(block_.size);
}

Rect ClockSaver::place() const {
  const Point corner = path_.position();
  return {corner.x, corner.y, block_.size.width, block_.size.height};
}

void ClockSaver::draw(const LocalTime& now) {
  const Rect at = place();
  const COLORREF colour = ui::toColorRef(kClockColours.at(settings_.colour).colour);
  const HDC canvas = window_.canvas();
  drawSaverText(canvas, clockTimeText(now, settings_.seconds), timeFont_.get(), colour,
                within(at, block_.time));
  if (settings_.date) {
    drawSaverText(canvas, date_, dateFont_.get(), colour, within(at, block_.date));
  }
  window_.refresh(at);
}

}  // namespace tessivo::ssp
