#pragma once

#include "ssp/ClockSettings.h"
#include "ssp/SettingsForm.h"

namespace tessivo::ssp {

/// The clock's settings.
class frmClockSettings : public SettingsForm {
 public:
  frmClockSettings(const ClockSettings& settings, TwipsPerPixel twipsPerPixel);

  ClockSettings settings() const;
  std::string settingsText() const override { return clockSettingsText(settings()); }

  ui::Label labSize;
  ui::ComboBox comboSize;
  ui::Label labColour;
  ui::ComboBox comboColour;
  ui::CheckBox chkSeconds;
  ui::CheckBox chkDate;
  ui::Button cmdOk;
  ui::Button cmdCancel;
};

}  // namespace tessivo::ssp
