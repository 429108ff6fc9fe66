#include "prereq/frmCheckPlayers.h"

#include "prereq/CheckOSVersion.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

constexpr int kCheckMs = 2000;
constexpr const char* kNotes =
    "本播放器需要 Windows Media Player 和 Real Player 播放器的支持，"
    "当前这两个播放器的配置状态为：";
constexpr const char* kMissing = " 尚未安装，需要安装 -->";
constexpr const char* kInstall = "立即安装该播放器";
constexpr const char* kDownload = "从网上下载该播放器";
constexpr const char* kNoRightsTitle = "用户权限太低";
constexpr const char* kNoRights =
    "您当前登录到操作系统的用户身份不属于管理员组，要进行安装操作，您必须具有管理员组身份，"
    "请重新以具有管理员组身份的用户登录到操作系统，然后再进行该安装操作。";
constexpr ui::KeyCode kEscape = 27;

// Twips.
constexpr std::int32_t kMargin = 240;
constexpr std::int32_t kPadding = 150;
constexpr std::int32_t kGap = 120;
constexpr std::int32_t kPicture = 510;
constexpr std::int32_t kNotesHeight = 510;
constexpr std::int32_t kState = 270;
constexpr std::int32_t kText = 240;
constexpr std::int32_t kTextWidth = 5400;
constexpr std::int32_t kInstallWidth = 2160;
constexpr std::int32_t kButtonWidth = 1260;
constexpr std::int32_t kButtonHeight = 405;
constexpr std::int32_t kRow = kButtonHeight + kPadding;
constexpr std::int32_t kCardHeight = 2 * kRow + kPadding;
constexpr std::int32_t kInnerWidth =
    kMargin + kPadding + kState + kGap + kTextWidth + kGap + kInstallWidth + kPadding + kMargin;
constexpr std::int32_t kInnerHeight =
    kMargin + kNotesHeight + kMargin + kCardHeight + kMargin + kButtonHeight + kMargin;

}  // namespace

frmCheckPlayers::frmCheckPlayers(const CheckPlayersServices& services, PlayerDetection& detection,
                                 TwipsPerPixel twipsPerPixel)
    : Form("frmCheckPlayers", "播放器检查", twipsPerPixel),
      Picture1(this, "Picture1"),
      labNotes(this, "labNotes", kNotes),
      picUpdateButtonPal(this, "picUpdateButtonPal"),
      Picture2(&picUpdateButtonPal, "Picture2"),
      labMediaNotes(&picUpdateButtonPal, "labMediaNotes", ""),
      cmdInstallMediaPlayer(&picUpdateButtonPal, "cmdInstallMediaPlayer", ""),
      Picture3(&picUpdateButtonPal, "Picture3"),
      labRealNotes(&picUpdateButtonPal, "labRealNotes", ""),
      cmdInstallRealPlayer(&picUpdateButtonPal, "cmdInstallRealPlayer", ""),
      cmdOk(this, "cmdOk", "确定"),
      timCheckPlayers(services.timers, "timCheckPlayers", kCheckMs),
      services_(services),
      detection_(detection),
      mediaPlayer_{"Windows Media Player 已经安装。", Picture2, labMediaNotes,
                   cmdInstallMediaPlayer},
      realPlayer_{"Real Player 已经安装。", Picture3, labRealNotes, cmdInstallRealPlayer} {
  setBoxes(true, false, false);
  setFrameStyle(frameStyle() & ~ui::frame::kSizingFrame);
  setFollowsResolution(true);
  setBounds({0, 0, kInnerWidth, kInnerHeight});
  Picture1.setIcon(icon::kProgram);
  picUpdateButtonPal.setBorder(true);
  Picture2.setToolTip("Windows Media Player");
  Picture3.setToolTip("Real Player");
  cmdOk.setToolTip("关闭窗口并结束程序");
  cmdInstallMediaPlayer.onClick.listen([this] { install(mediaPlayer_); });
  cmdInstallRealPlayer.onClick.listen([this] { install(realPlayer_); });
  cmdOk.onClick.listen([this] { unload(); });
  timCheckPlayers.onTimer.listen([this] { checkAgain(); });
  onClose.listen([this] { unload(); });
  onEndSession.listen([this] { unload(); });
  onUnload.listen([this] { timCheckPlayers.setEnabled(false); });
  onResize.listen([this] { layOut(); });
  onKey.listen([this](ui::KeyPress& press) {
    press.handled = press.code == kEscape;
    if (press.handled) close();
  });
}

frmCheckPlayers::~frmCheckPlayers() {
  unload();
}

bool frmCheckPlayers::checkPlayers() {
  const PlayersFound found = detection_.detect();
  if (found.both()) return true;
  chooseInstallers();
  fillTexts(found);
  timCheckPlayers.setEnabled(true);
  services_.toolkit.open(*this);
  setInnerSize(kInnerWidth, kInnerHeight);
  focusFirst();
  services_.toolkit.showModal(*this);
  return false;
}

void frmCheckPlayers::chooseInstallers() {
  CheckOSVersion check(services_.osVersion);
  std::string name;
  std::int32_t flag = 0;
  check.getOSVersion(name, flag);
  const PlayerSources& sources = playerSources(flag);
  mediaPlayer_.source = sources.mediaPlayer;
  realPlayer_.source = sources.realPlayer;
  for (Row* const row : {&mediaPlayer_, &realPlayer_}) {
    const std::string file = row->source.installer;
    row->installer = file.empty() ? "" : services_.programFolder + "\\PlyPcks\\" + file;
    row->page = services_.programFolder + "\\DLUrls\\" + row->source.page;
    row->hasInstaller = services_.files.fileExists(row->installer);
    row->button.setCaption(row->hasInstaller ? kInstall : kDownload);
  }
  // The two buttons say the same.
  cmdInstallMediaPlayer.setAccessibleName("Windows Media Player: " +
                                          cmdInstallMediaPlayer.caption());
  cmdInstallRealPlayer.setAccessibleName("Real Player: " + cmdInstallRealPlayer.caption());
}

void frmCheckPlayers::fillTexts(const PlayersFound& found) {
  fillRow(mediaPlayer_, found.mediaPlayer);
  fillRow(realPlayer_, found.realPlayer);
}

void frmCheckPlayers::fillRow(Row& row, bool installed) {
  row.picture.setIcon(installed ? icon::kInstalled : icon::kError);
  row.label.setCaption(installed ? row.installedText : row.source.product + std::string(kMissing));
  row.button.setVisible(!installed);
}

/// The first thing that the user can do.
void frmCheckPlayers::focusFirst() {
  for (ui::Button* const button : {&cmdInstallMediaPlayer, &cmdInstallRealPlayer, &cmdOk}) {
    if (button->visible()) return button->setFocus();
  }
}

void frmCheckPlayers::checkAgain() {
  timCheckPlayers.setEnabled(false);
  const PlayersFound found = detection_.detect();
  if (!visible()) return;  // closed while a control took its time
  if (found.both()) return unload();
  const bool focusGoes = (found.mediaPlayer && cmdInstallMediaPlayer.hasFocus()) ||
                         (found.realPlayer && cmdInstallRealPlayer.hasFocus());
  fillTexts(found);
  // A hidden button that keeps the keyboard swallows every key.
  if (focusGoes) focusFirst();
  timCheckPlayers.setEnabled(true);
}

void frmCheckPlayers::install(const Row& row) {
  if (!row.hasInstaller) {
    services_.shell.open(nativeHandle(), row.page, "");
    return;
  }
  if (!services_.userIsAdministrator()) return services_.warn(*this, kNoRightsTitle, kNoRights);
  // By the shell, which asks the user where installing needs his consent; a path is never split
  // at a blank.
  services_.shell.open(nativeHandle(), row.installer, "");
}

void frmCheckPlayers::layOut() {
  const std::int32_t width = scaleWidth() - 2 * kMargin;
  const std::int32_t notes = kMargin + kPicture + kMargin;
  Picture1.setBounds({kMargin, kMargin, kPicture, kPicture});
  labNotes.setBounds({notes, kMargin, scaleWidth() - notes - kMargin, kNotesHeight});
  picUpdateButtonPal.setBounds({kMargin, kMargin + kNotesHeight + kMargin, width, kCardHeight});
  layOutRow(mediaPlayer_, kPadding, width);
  layOutRow(realPlayer_, kPadding + kRow, width);
  cmdOk.setBounds({scaleWidth() - kMargin - kButtonWidth, scaleHeight() - kMargin - kButtonHeight,
                   kButtonWidth, kButtonHeight});
}

void frmCheckPlayers::layOutRow(const Row& row, std::int32_t top, std::int32_t width) {
  const std::int32_t label = kPadding + kState + kGap;
  const std::int32_t button = width - kPadding - kInstallWidth;
  row.picture.setBounds({kPadding, top + (kButtonHeight - kState) / 2, kState, kState});
  row.label.setBounds({label, top + (kButtonHeight - kText) / 2, button - kGap - label, kText});
  row.button.setBounds({button, top, kInstallWidth, kButtonHeight});
}

}  // namespace tessivo
