#pragma once

#include <memory>
#include <string>
#include <vector>

#include "config/FileAsocaList.h"
#include "data/RunParameter.h"
#include "data/SysConfig.h"
#include "platform/Accounts.h"
#include "platform/Log.h"
#include "platform/Shell.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the settings dialog asks of the program.
class SysConfigHost {
 public:
  virtual ~SysConfigHost() = default;
  virtual const SysConfig& config() const = 0;
  /// The screen-saver programs that are there now.
  virtual std::vector<std::string> screenSaverNames() = 0;
  virtual void saveRunPram(const RunParameter& parameter) = 0;
  virtual void previewAScrSavProcByName(const std::string& name) = 0;
  /// Shows the program's own settings at the place, in twips, and returns when they are closed.
  virtual void showScreenSaverSettings(ui::Form& owner, const std::string& name, std::int32_t left,
                                       std::int32_t top) = 0;
};

/// What the settings dialog needs of the system.
struct SysConfigServices {
  ui::Toolkit& toolkit;
  TimerService& timers;
  Shell& shell;
  Registry& registry;
  const Accounts& accounts;
  Log& log;
  std::string databasePath;
  std::string programFolder;  ///< without a backslash at its end
};

/// The settings dialog: what happens at an error, the screen saver, and on a second tab the file
/// associations, which are read when that tab is first shown and written when the dialog is saved,
/// each a second later, so that a wait note is to be seen meanwhile. Only administrators change
/// associations. What the user does not touch stays as it is, an extension without an owner too: it
/// is registered when it is ticked, and left alone when its tick is as it was read. What was saved
/// is carried out also when the dialog has to go during the wait note.
class frmSysConfig final : public ui::Form {
 public:
  frmSysConfig(const SysConfigServices& services, TwipsPerPixel twipsPerPixel, SysConfigHost& host);
  ~frmSysConfig() override;

  /// Shows the dialog over its owner and returns when it has been closed.
  void showOver(ui::Toolkit& toolkit, ui::Form& owner);
  /// Fills the controls of the first tab from the settings.
  void setFaceItemByData();
  /// Fills the list of the second tab from the associations as they were read.
  void getAssociaInfoFromReg();

  ui::TabStrip sstTab;
  // The first page.
  ui::PictureBox Picture1;
  ui::Label Frame1;
  ui::CheckBox chkOnPlayErrContinuePlay;
  ui::CheckBox chkOnPlayErrShowMainFace;
  ui::Label Frame2;
  ui::CheckBox chkSavePlayList;
  ui::Label Frame3;
  ui::CheckBox chkOpenScrSav;
  ui::Label Label1;
  ui::ComboBox cmbScrSavProcName;
  ui::Label Label2;
  ui::ComboBox cmbRunScrSavDelayMinute;
  ui::Button cmdPramSet;
  ui::Button cmdPreviewSS;
  // The second page.
  ui::PictureBox Picture2;
  ui::ListView lvFileAssociationList;
  ui::Button cmdAssociaAll;
  ui::Button cmdNoAssociaAll;
  ui::Button cmdAssociaDefault;
  ui::Label labFigureNote;
  // Both.
  ui::PictureBox picNote1;
  ui::Label labNote1;
  ui::Button cmdHelp;
  ui::Button cmdSave;
  ui::Button cmdCancel;

  ui::Timer timGetAssociaInfoFromReg;
  ui::Timer timSaveAssociaInfoToRegAndDb;

 private:
  void load();
  void listen();
  void takeKey(ui::KeyPress& press);
  void changeTab();
  void layOut();
  void layOutFirstPage(std::int32_t width);
  void layOutSecondPage(std::int32_t width, std::int32_t height);
  void showPage();
  void showTab();
  void enableScreenSaver();
  void enableAssociationButtons(bool enabled);
  void showWaitNote(bool shown);
  std::string chosenScreenSaver() const;
  RunParameter parameter() const;
  void configureScreenSaver();
  void previewScreenSaver();
  void openHelp();
  void save();
  void readAssociations();
  void saveAssociations();
  void applyTicks();
  bool applyTick(FileAsoca& type, bool ticked);
  void logRefused(const FileAsoca& type, bool ticked) const;
  void enablePages(bool enabled);
  void keepTick(int row);

  SysConfigServices services_;
  SysConfigHost& host_;
  bool firstLayout_ = true;
  bool associationsLoaded_ = false;
  bool userIsAdministrator_ = false;
  int firstScreenSaver_ = -1;  ///< the entry that the stored name was shown as
  FileAsocaList associations_;
};

}  // namespace tessivo
