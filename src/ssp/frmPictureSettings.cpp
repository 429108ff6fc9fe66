#include "ssp/frmPictureSettings.h"

#include <utility>

#include "base/Text.h"

namespace tessivo::ssp {

frmPictureSettings::frmPictureSettings(const PictureSettings& settings, std::string usualFolder,
                                       FileDialogs& dialogs, TwipsPerPixel twipsPerPixel)
    : SettingsForm("frmPictureSettings", "图片欣赏 设置", twipsPerPixel),
      labFolder(this, "labFolder", "文件夹:"),
      txtFolder(this, "txtFolder", false),
      cmdBrowse(this, "cmdBrowse", "浏览(&B)..."),
      labStay(this, "labStay", "每张停留:"),
      comboStay(this, "comboStay"),
      labOrder(this, "labOrder", "顺序:"),
      comboOrder(this, "comboOrder"),
      cmdOk(this, "cmdOk", "确定(&O)"),
      cmdCancel(this, "cmdCancel", "取消(&C)"),
      usualFolder_(std::move(usualFolder)),
      dialogs_(dialogs) {
  txtFolder.setCaption(settings.folder.empty() ? usualFolder_ : settings.folder);
  for (const int seconds : kStaySeconds) {
    comboStay.addItem(std::to_string(seconds) + " 秒", seconds);
    if (seconds == settings.staySeconds) {
      comboStay.setListIndex(static_cast<int>(comboStay.items().size()) - 1);
    }
  }
  comboStay.setAccessibleName("每张停留");
  comboOrder.addItem("按名称", 0);
  comboOrder.addItem("随机", 1);
  comboOrder.setListIndex(static_cast<int>(settings.order));
  comboOrder.setAccessibleName("顺序");
  cmdBrowse.onClick.listen([this] { browse(); });
  addRow(&labFolder, txtFolder, &cmdBrowse);
  addRow(&labStay, comboStay);
  addRow(&labOrder, comboOrder);
  setButtons(cmdOk, cmdCancel);
}

PictureSettings frmPictureSettings::settings() const {
  std::string folder(trim(txtFolder.caption()));
  if (folder == usualFolder_) folder.clear();
  return {folder, comboStay.items().at(static_cast<std::size_t>(comboStay.listIndex())).data,
          static_cast<PictureOrder>(comboOrder.listIndex())};
}

void frmPictureSettings::browse() {
  const auto folder =
      dialogs_.chooseFolder({"选择图片文件夹", txtFolder.caption(), nativeHandle()});
  if (folder) txtFolder.setCaption(*folder);
}

}  // namespace tessivo::ssp
