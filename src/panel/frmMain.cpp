#include "panel/frmMain.h"

#include <algorithm>

#include "base/Twips.h"
#include "screen/PlayRule.h"

namespace tessivo {
namespace {

// Twips. One grid for the whole panel: a margin, a gap, and one height for a line of controls.
constexpr std::int32_t kWidth = 9000;
constexpr std::int32_t kHeight = 7500;
constexpr std::int32_t kMinWidth = 7800;
constexpr std::int32_t kMinHeight = 4800;
constexpr std::int32_t kMargin = 150;
constexpr std::int32_t kGap = 105;
constexpr std::int32_t kLine = 375;
constexpr std::int32_t kText = 240;
constexpr std::int32_t kTimeWidth = 1200;
constexpr std::int32_t kStateWidth = 1050;
constexpr std::int32_t kButtonWidth = 1050;
constexpr std::int32_t kVolumeLabelWidth = 480;
constexpr std::int32_t kVolumeWidth = 1350;
constexpr std::int32_t kTickColumn = 375;
constexpr std::int32_t kNameColumn = 3500;
constexpr std::int32_t kPathColumn = 10000;
constexpr ui::Colour kErrorColour = 0xB00020;

}  // namespace

frmMain::frmMain(ui::Toolkit& toolkit, TwipsPerPixel twipsPerPixel, Controler& controler)
    : Form("frmMain", "Tessivo 泰思维", twipsPerPixel),
      labPlayState1(this, "labPlayState1", "停止: "),
      txtFileName(this, "txtFileName", true),
      sldJinDu(this, "sldJinDu"),
      labMoviePosi(this, "labMoviePosi", "00:00:00"),
      labSlidMax(this, "labSlidMax", ""),
      labMovieLen(this, "labMovieLen", "00:00:00"),
      cmdPlay(this, "cmdPlay", "播放"),
      cmdStop(this, "cmdStop", "停止"),
      labVolume(this, "labVolume", "音量"),
      sldVolume(this, "sldVolume"),
      comboPlayRuler(this, "comboPlayRuler"),
      cmdRecyclePlayPL(this, "cmdRecyclePlayPL", "顺序播放"),
      lvPlayList(this, "lvPlayList"),
      labFileCount(this, "labFileCount", "0"),
      labPlayErrNote(this, "labPlayErrNote", ""),
      toolkit_(toolkit),
      controler_(controler) {
  setMinimumSize(kMinWidth, kMinHeight);
  setAcceptsFiles(true);
  lvPlayList.addColumn("", kTickColumn);
  lvPlayList.addColumn("名称", kNameColumn);
  lvPlayList.addColumn("路径", kPathColumn);
  lvPlayList.setHasCheckBoxes(true);
  labMovieLen.setAlignment(ui::Alignment::right);
  labSlidMax.setAlignment(ui::Alignment::centre);
  labPlayErrNote.setColours(kErrorColour, std::nullopt);
  labFileCount.setAlignment(ui::Alignment::right);
  cmdPlay.setTag("2");
  fillRules();
  listenToTransport();
  listenToSliders();
  listenToList();
  onResize.listen([this] { layOut(); });
  onClose.listen([this] { controler_.exitSys(); });
  onEndSession.listen([this] { controler_.exitSys(); });
  onFilesDropped.listen([this](const ui::DroppedFiles& files) { dropFiles(files); });
}

frmMain::~frmMain() = default;

void frmMain::load(const Rect& workArea) {
  const auto twips = twipsPerPixel();
  setBounds({toTwips(workArea.left + workArea.width / 2, twips.x) - kWidth / 2,
             toTwips(workArea.top + workArea.height / 2, twips.y) - kHeight / 2, kWidth, kHeight});
  toolkit_.open(*this);
  layOut();
}

void frmMain::fillRules() {
  comboPlayRuler.addItem("仅使用RealPlayer播放引擎", playRule::kRealOnly);
  comboPlayRuler.addItem("仅使用MediaPlayer播放引擎", playRule::kMediaOnly);
  comboPlayRuler.addItem("优先使用RealPlayer播放引擎", playRule::kPreferReal);
  comboPlayRuler.addItem("优先使用MediaPlayer播放引擎", playRule::kPreferMedia);
  comboPlayRuler.setListIndex(0);
}

void frmMain::layOut() {
  const std::int32_t right = scaleWidth() - kMargin;
  const std::int32_t width = right - kMargin;
  std::int32_t y = kMargin;
  labPlayState1.setBounds({kMargin, y + (kLine - kText) / 2, kStateWidth, kText});
  txtFileName.setBounds({kMargin + kStateWidth, y, width - kStateWidth, kLine});
  y += kLine + kGap;
  sldJinDu.setBounds({kMargin, y, width, kLine});
  y += kLine;
  labMoviePosi.setBounds({kMargin, y, kTimeWidth, kText});
  labSlidMax.setBounds({kMargin + (width - kTimeWidth) / 2, y, kTimeWidth, kText});
  labMovieLen.setBounds({right - kTimeWidth, y, kTimeWidth, kText});
  y += kText + kGap;
  std::int32_t x = kMargin;
  const auto place = [&x, y](ui::Control& control, std::int32_t w, std::int32_t h = kLine) {
    control.setBounds({x, y + (kLine - h) / 2, w, h});
    x += w + kGap;
  };
  place(cmdPlay, kButtonWidth);
  place(cmdStop, kButtonWidth);
  place(labVolume, kVolumeLabelWidth, kText);
  place(sldVolume, kVolumeWidth);
  place(comboPlayRuler, std::max(kButtonWidth, right - x - kGap - kButtonWidth));
  place(cmdRecyclePlayPL, kButtonWidth);
  y += kLine + kGap;
  const std::int32_t footer = scaleHeight() - kMargin - kText;
  lvPlayList.setBounds({kMargin, y, width, std::max(0, footer - kGap - y)});
  labPlayErrNote.setBounds({kMargin, footer, width - kTimeWidth, kText});
  labFileCount.setBounds({right - kTimeWidth, footer, kTimeWidth, kText});
}

void frmMain::moveFace(Point upperLeft) {
  const auto twips = twipsPerPixel();
  setBounds({toTwips(upperLeft.x, twips.x), toTwips(upperLeft.y, twips.y), width(), height()});
}

void frmMain::restoreFace() {
  if (windowState() == ui::WindowState::minimised) setWindowState(ui::WindowState::normal);
}

void frmMain::bringFaceToFront() {
  show();
  activate();
}

void frmMain::hideAndUnloadFace() {
  hide();
  unload();
}

}  // namespace tessivo
