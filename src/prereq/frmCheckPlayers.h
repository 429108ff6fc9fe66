#pragma once

#include <functional>
#include <string>

#include "platform/Files.h"
#include "platform/OsVersion.h"
#include "platform/Shell.h"
#include "prereq/PlayerDetection.h"
#include "prereq/PlayerSources.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the player check needs of the program and the system.
struct CheckPlayersServices {
  ui::Toolkit& toolkit;
  TimerService& timers;
  const Files& files;
  Shell& shell;
  OsVersion osVersion;
  std::string programFolder;  ///< without a backslash at its end
  /// Whether the user may install programs.
  std::function<bool()> userIsAdministrator;
  /// Shows a notice over the form and returns when the user has closed it.
  std::function<void(ui::Form& owner, const std::string& title, const std::string& text)> warn;
};

/// The player check: without the players that it needs the program does not run. The dialog says
/// which are missing and offers to install each, by an installer that lies in the folder PlyPcks,
/// or else from a page of the folder DLUrls. It looks again every two seconds, and goes by itself
/// when nothing is missing any more. Either way the program ends then; the user starts it again.
class frmCheckPlayers final : public ui::Form {
 public:
  frmCheckPlayers(const CheckPlayersServices& services, PlayerDetection& detection,
                  TwipsPerPixel twipsPerPixel);
  ~frmCheckPlayers() override;

  /// Looks for the players. True when all is there: start-up goes on. Else shows the dialog, and
  /// returns false when it has been closed: the program is to end.
  bool checkPlayers();

  ui::PictureBox Picture1;
  ui::Label labNotes;
  ui::PictureBox picUpdateButtonPal;
  ui::PictureBox Picture2;
  ui::Label labMediaNotes;
  ui::Button cmdInstallMediaPlayer;
  ui::PictureBox Picture3;
  ui::Label labRealNotes;
  ui::Button cmdInstallRealPlayer;
  ui::Button cmdOk;

  ui::Timer timCheckPlayers;

 private:
  /// One player of the two: where it comes from, and the controls that speak of it.
  struct Row {
    const char* installedText;
    ui::PictureBox& picture;
    ui::Label& label;
    ui::Button& button;
    PlayerSource source{};
    std::string installer{};  ///< full path; empty: none is offered
    std::string page{};       ///< full path
    bool hasInstaller = false;
  };

  void chooseInstallers();
  void fillTexts(const PlayersFound& found);
  static void fillRow(Row& row, bool installed);
  void focusFirst();
  void checkAgain();
  void install(const Row& row);
  void layOut();
  void layOutRow(const Row& row, std::int32_t top, std::int32_t width);

  CheckPlayersServices services_;
  PlayerDetection& detection_;
  Row mediaPlayer_;
  Row realPlayer_;
};

}  // namespace tessivo
