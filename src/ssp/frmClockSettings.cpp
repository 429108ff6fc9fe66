#include "ssp/frmClockSettings.h"

namespace tessivo::ssp {

frmClockSettings::frmClockSettings(const ClockSettings& settings, TwipsPerPixel twipsPerPixel)
    : SettingsForm("frmClockSettings", "时钟设置", twipsPerPixel),
      labSize(this, "labSize", "大小:"),
      comboSize(this, "comboSize"),
      labColour(this, "labColour", "颜色:"),
      comboColour(this, "comboColour"),
      chkSeconds(this, "chkSeconds", "显示秒(&S)"),
      chkDate(this, "chkDate", "显示日期(&D)"),
      cmdOk(this, "cmdOk", "确定(&O)"),
      cmdCancel(this, "cmdCancel", "取消(&C)") {
  std::int32_t number = 0;
  for (const char* size : {"小", "中", "大"}) comboSize.addItem(size, number++);
  number = 0;
  for (const ClockColour& colour : kClockColours) comboColour.addItem(colour.name, number++);
  comboSize.setListIndex(static_cast<int>(settings.size));
  comboColour.setListIndex(static_cast<int>(settings.colour));
  comboSize.setAccessibleName("大小");
  comboColour.setAccessibleName("颜色");
  chkSeconds.setChecked(settings.seconds);
  chkDate.setChecked(settings.date);
  addRow(&labSize, comboSize);
  addRow(&labColour, comboColour);
  addRow(nullptr, chkSeconds);
  addRow(nullptr, chkDate);
  setButtons(cmdOk, cmdCancel);
}

ClockSettings frmClockSettings::settings() const {
  return {static_cast<ClockSize>(comboSize.listIndex()),
          static_cast<std::size_t>(comboColour.listIndex()), chkSeconds.checked(),
          chkDate.checked()};
}

}  // namespace tessivo::ssp
