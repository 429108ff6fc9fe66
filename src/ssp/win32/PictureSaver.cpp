#include "ssp/win32/PictureSaver.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>

#include "ssp/win32/DibPicture.h"
#include "ssp/win32/SaverFont.h"

namespace tessivo::ssp {
namespace {

constexpr int kFadeMs = 1000;
constexpr int kFrameMs = 50;
constexpr int kWanderMs = 1000;
constexpr int kOpaque = 255;
constexpr COLORREF kNoticeColour = RGB(0x82, 0x82, 0x82);
constexpr const char* kNotice = "没有可显示的图片";
constexpr std::int32_t kNoticePart = 24;  ///< the font is that part of the shorter side

/// A bitmap that can be drawn from, for as long as this lives.
class Source {
 public:
  explicit Source(HBITMAP bitmap)
      : dc_(CreateCompatibleDC(nullptr)), before_(SelectObject(dc_, bitmap)) {}
  ~Source() {
    SelectObject(dc_, before_);
    DeleteDC(dc_);
  }
  Source(const Source&) = delete;
  Source& operator=(const Source&) = delete;
  HDC dc() const { return dc_; }

 private:
  HDC dc_;
  HGDIOBJ before_;
};

}  // namespace

PictureSaver::PictureSaver(SaverWindow& window, const PictureSettings& settings, const Clock& clock,
                           TimerService& timers)
    : window_(window),
      clock_(clock),
      worker_(window.size(), window.window(), SaverWindow::kPosted),
      fading_(timers, "timFade", kFrameMs),
      wandering_(timers, "timWander", kWanderMs),
      slides_(timers, *this, settings, static_cast<std::uint32_t>(clock.ticksMs())) {
  window_.setPosted([this] { takeAnswer(); });
  fading_.onTimer.listen([this] { fade(); });
  wandering_.onTimer.listen([this] { wander(); });
  slides_.start();
}

void PictureSaver::list(const std::string& folder) {
  worker_.requestList(folder);
}

void PictureSaver::load(const std::string& path) {
  worker_.requestPicture(path);
}

void PictureSaver::takeAnswer() {
  auto answer = worker_.takeAnswer();
  if (!answer) return;
  if (auto* const names = std::get_if<FileNames>(&*answer)) {
    return slides_.listed(std::move(*names));
  }
  fetched_ = std::get<UniqueGdi<HBITMAP>>(std::move(*answer));
  slides_.loaded(fetched_ != nullptr);
}

/// Whatever is seen now, a picture, half a fade or the notice, goes over into the picture.
void PictureSaver::show() {
  noticePath_.reset();
  wandering_.setEnabled(false);
  picture_ = std::move(fetched_);
  before_ = makeDib(window_.size(), nullptr);
  if (!before_) {
    fading_.setEnabled(false);
    copy(picture_.get());
    return picture_.reset();
  }
  const Source before(before_.get());
  BitBlt(before.dc(), 0, 0, window_.size().width, window_.size().height, window_.canvas(), 0, 0,
         SRCCOPY);
  fadeStart_ = clock_.ticksMs();
  fading_.setEnabled(true);
}

void PictureSaver::fade() {
  const auto elapsed =
      static_cast<int>(std::min<std::uint64_t>(clock_.ticksMs() - fadeStart_, kFadeMs));
  if (elapsed == kFadeMs) {
    fading_.setEnabled(false);
    before_.reset();
    copy(picture_.get());
    picture_.reset();
    return;
  }
  const Size size = window_.size();
  const Source before(before_.get());
  const Source after(picture_.get());
  BitBlt(window_.canvas(), 0, 0, size.width, size.height, before.dc(), 0, 0, SRCCOPY);
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, static_cast<BYTE>(elapsed * kOpaque / kFadeMs), 0};
  AlphaBlend(window_.canvas(), 0, 0, size.width, size.height, after.dc(), 0, 0, size.width,
             size.height, blend);
  refreshAll();
}

void PictureSaver::copy(HBITMAP picture) {
  const Source source(picture);
  BitBlt(window_.canvas(), 0, 0, window_.size().width, window_.size().height, source.dc(), 0, 0,
         SRCCOPY);
  refreshAll();
}

void PictureSaver::showNotice() {
  if (noticePath_) return;
  fading_.setEnabled(false);
  before_.reset();
  picture_.reset();
  const Size size = window_.size();
  window_.blacken({0, 0, size.width, size.height});
  std::int32_t font = std::max(1, std::min(size.width, size.height) / kNoticePart);
  noticeSize_ = measureSaverText(window_.canvas(), kNotice, font);
  if (noticeSize_.width > size.width) {
    font =
        std::max(1, static_cast<std::int32_t>(std::int64_t{font} * size.width / noticeSize_.width));
    noticeSize_ = measureSaverText(window_.canvas(), kNotice, font);
  }
  noticeFont_ = makeSaverFont(font);
  noticePath_.emplace(size, noticeSize_);
  drawNotice();
  refreshAll();
  wandering_.setEnabled(true);
}

void PictureSaver::wander() {
  const Point from = noticePath_->position();
  const Rect before{from.x, from.y, noticeSize_.width, noticeSize_.height};
  window_.blacken(before);
  window_.refresh(before);
  noticePath_->advance();
  drawNotice();
}

void PictureSaver::drawNotice() {
  const Point at = noticePath_->position();
  const RECT edges{at.x, at.y, at.x + noticeSize_.width, at.y + noticeSize_.height};
  drawSaverText(window_.canvas(), kNotice, noticeFont_.get(), kNoticeColour, edges);
  window_.refresh({at.x, at.y, noticeSize_.width, noticeSize_.height});
}

void PictureSaver::refreshAll() {
  window_.refresh({0, 0, window_.size().width, window_.size().height});
}

}  // namespace tessivo::ssp
