#pragma once

#include <string>

#include "platform/FileDialogs.h"
#include "platform/Files.h"
#include "ssp/PictureSettings.h"
#include "ssp/SettingsForm.h"

namespace tessivo::ssp {

/// The settings of the picture show.
class frmPictureSettings : public SettingsForm {
 public:
  /// `usualFolder` is shown, and means, what an empty folder in the settings means. `files` and
  /// `dialogs` must outlive the form.
  frmPictureSettings(const PictureSettings& settings, std::string usualFolder, const Files& files,
                     FileDialogs& dialogs, TwipsPerPixel twipsPerPixel);

  PictureSettings settings() const;
  std::string settingsText() const override { return pictureSettingsText(settings()); }

  ui::Label labFolder;
  ui::TextBox txtFolder;
  ui::Button cmdBrowse;
  ui::Label labStay;
  ui::ComboBox comboStay;
  ui::Label labOrder;
  ui::ComboBox comboOrder;
  ui::Button cmdOk;
  ui::Button cmdCancel;

 private:
  std::string problem() const override;
  void browse();

  std::string usualFolder_;
  const Files& files_;
  FileDialogs& dialogs_;
};

}  // namespace tessivo::ssp
