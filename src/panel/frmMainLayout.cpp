// Where the control panel's controls lie, and the two ways to change its height.
#include <algorithm>

#include "panel/frmMain.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

// Twips. One grid: a margin, a gap, one height for a line of controls and one for a line of text.
constexpr std::int32_t kMinWidth = 10050;
constexpr std::int32_t kLowestHeight = 4300;  // exclusive, of the whole window
constexpr std::int32_t kOnePixel = 15;
constexpr std::int32_t kMargin = 150;
constexpr std::int32_t kGap = 90;
constexpr std::int32_t kWideGap = 240;
constexpr std::int32_t kLine = 405;
constexpr std::int32_t kBox = 345;    ///< combo boxes
constexpr std::int32_t kField = 315;  ///< text boxes
constexpr std::int32_t kText = 240;
constexpr std::int32_t kStateWidth = 930;
constexpr std::int32_t kSecondsWidth = 900;
constexpr std::int32_t kTimeWidth = 840;
constexpr std::int32_t kButtonWidth = 1380;
constexpr std::int32_t kSmallButtonWidth = 1170;
constexpr std::int32_t kWideButtonWidth = 1590;
constexpr std::int32_t kVolumeWidth = 1950;
constexpr std::int32_t kRulerLabelWidth = 870;
constexpr std::int32_t kRulerWidth = 3300;
constexpr std::int32_t kTabsWidth = 2700;
constexpr std::int32_t kTabsHeight = 360;
constexpr std::int32_t kErrNoteWidth = 1800;
constexpr std::int32_t kSignWidth = 270;
constexpr std::int32_t kTickWidth = 960;
constexpr std::int32_t kCountLabelWidth = 660;
constexpr std::int32_t kCountWidth = 630;
constexpr std::int32_t kBorderHeight = 90;
constexpr std::int32_t kBelowSeparator = 30;  ///< left of the window when the playlist is hidden

std::int32_t middle(std::int32_t top, std::int32_t lineHeight, std::int32_t height) {
  return top + (lineHeight - height) / 2;
}

}  // namespace

void frmMain::layOut() {
  setMinimumSize(kMinWidth, playListHidden_ ? maximumHeight() : kLowestHeight + 1);
  const std::int32_t right = scaleWidth() - kMargin;
  layOutTransport(right);
  layOutLists(right);
}

void frmMain::layOutTransport(std::int32_t right) {
  const std::int32_t width = right - kMargin;
  std::int32_t y = kMargin;
  labPlayState1.setBounds({kMargin, middle(y, kBox, kText), kStateWidth, kText});
  labSlidMax.setBounds({right - kSecondsWidth, middle(y, kBox, kText), kSecondsWidth, kText});
  txtFileName.setBounds({kMargin + kStateWidth, middle(y, kBox, kField),
                         width - kStateWidth - kSecondsWidth, kField});
  y += kBox + kGap;
  labMoviePosi.setBounds({kMargin, middle(y, kLine, kText), kTimeWidth, kText});
  sldJinDu.setBounds({kMargin + kTimeWidth, y, width - 2 * kTimeWidth, kLine});
  labMovieLen.setBounds({right - kTimeWidth, middle(y, kLine, kText), kTimeWidth, kText});
  y += kLine + kGap;
  cmdPlay.setBounds({kMargin, y, kButtonWidth, kLine});
  cmdStop.setBounds({kMargin + kButtonWidth + kGap, y, kButtonWidth, kLine});
  const std::int32_t sound = kMargin + 2 * (kButtonWidth + kGap) + kWideGap;
  picJingFangYin.setBounds({sound, y, kLine, kLine});
  sldVolume.setBounds({sound + kLine, y, kVolumeWidth, kLine});
  cmdSetScreen.setBounds({right - kWideButtonWidth, y, kWideButtonWidth, kLine});
  y += kLine + kGap;
  labPlayRuler.setBounds({kMargin, middle(y, kLine, kText), kRulerLabelWidth, kText});
  comboPlayRuler.setBounds({kMargin + kRulerLabelWidth, middle(y, kLine, kBox), kRulerWidth, kBox});
  cmdRecyclePlayPL.setBounds(
      {kMargin + kRulerLabelWidth + kRulerWidth + kWideGap, y, kWideButtonWidth, kLine});
  cmdHideShowPL.setBounds({right - kWideButtonWidth, y, kWideButtonWidth, kLine});
  cmdMenu.setBounds(
      {right - kWideButtonWidth - kGap - kSmallButtonWidth, y, kSmallButtonWidth, kLine});
  y += kLine + kMargin;
  picSeparator.setBounds({0, y, scaleWidth(), kOnePixel});
}

void frmMain::layOutLists(std::int32_t right) {
  const std::int32_t top = picSeparator.bounds().top + kMargin;
  const std::int32_t note = right - kErrNoteWidth;
  // What stands right of the tabs lies on the strip.
  tsLists.setBounds({kMargin, top, right - kMargin, kTabsHeight});
  labWork.setBounds({kMargin + kTabsWidth + kGap, middle(top, kTabsHeight, kText),
                     note - kGap - (kMargin + kTabsWidth + kGap), kText});
  picPlayErrNote.setBounds({note, middle(top, kTabsHeight, kSignWidth), kErrNoteWidth, kSignWidth});
  picPlayErrSign.setBounds({0, 0, kSignWidth, kSignWidth});
  labPlayErrNote.setBounds({kSignWidth + kGap / 2, (kSignWidth - kText) / 2,
                            kErrNoteWidth - kSignWidth - kGap / 2, kText});
  const std::int32_t pageTop = top + kTabsHeight;
  const Rect page{kMargin, pageTop, right - kMargin,
                  std::max(0, scaleHeight() - kMargin - pageTop)};
  picPlayListBackGround.setBounds(page);
  picPlayErrLLBackGround.setBounds(page);
  layOutPages(page.width, page.height);
  picBottomBorder.setBounds({0, scaleHeight() - kBorderHeight, scaleWidth(), kBorderHeight});
}

void frmMain::layOutPages(std::int32_t width, std::int32_t height) {
  const std::int32_t y = std::max(0, height - kLine);
  const Rect list{0, 0, width, std::max(0, y - kGap)};
  const std::int32_t textY = middle(y, kLine, kText);
  const std::int32_t count = width - kCountWidth;
  lvPlayList.setBounds(list);
  chkToDeleteAll.setBounds({0, y, kTickWidth, kLine});
  std::int32_t x = kTickWidth + kGap;
  for (ui::Button* button : {&cmdPLAdd, &cmdPLDelete, &cmdPLUp, &cmdPLDown}) {
    button->setBounds({x, y, kSmallButtonWidth, kLine});
    x += kSmallButtonWidth + kGap;
  }
  labFileCount.setBounds({count + kGap / 2, textY, kCountWidth - kGap / 2, kText});
  labFiles.setBounds({count - kCountLabelWidth, textY, kCountLabelWidth, kText});
  labDeleteNote.setBounds({x, textY, std::max(0, count - kCountLabelWidth - kGap - x), kText});
  lvPlayErrLogList.setBounds(list);
  cmdClearPlayErrLL.setBounds({0, y, kSmallButtonWidth, kLine});
  labPlayErrLogCount.setBounds({count + kGap / 2, textY, kCountWidth - kGap / 2, kText});
  labErrors.setBounds({count - kCountLabelWidth, textY, kCountLabelWidth, kText});
}

void frmMain::hideOrShowPL() {
  if (windowState() == ui::WindowState::maximised) setWindowState(ui::WindowState::normal);
  playListHidden_ = !playListHidden_;
  const bool shown = !playListHidden_;
  tsLists.setVisible(shown);
  labWork.setVisible(shown && !labWork.caption().empty());
  picBottomBorder.setVisible(shown);
  showPage(shown ? tsLists.selected() : 0);
  showListState();
  if (shown) {
    setMaximumHeight(0);
    setHeight(shownHeight_);
  } else {
    shownHeight_ = height();
    const std::int32_t low = height() + picSeparator.bounds().top - scaleHeight() + kBelowSeparator;
    setMinimumSize(kMinWidth, 0);
    setHeight(low);
    setMaximumHeight(height());
    setMinimumSize(kMinWidth, height());
  }
  timDelaySetFrm.setEnabled(true);
}

void frmMain::showListState() {
  cmdHideShowPL.setCaption(playListHidden_ ? "显示列表(&L)" : "隐藏列表(&L)");
  cmdHideShowPL.setIcon(playListHidden_ ? icon::kShowList : icon::kHideList);
}

void frmMain::dragBottomBorder(std::int32_t y) {
  if (!draggingBorder_ || windowState() != ui::WindowState::normal) return;
  const std::int32_t wanted = height() - scaleHeight() + picBottomBorder.bounds().top + y;
  if (wanted > kLowestHeight) setHeight(wanted);
}

}  // namespace tessivo
