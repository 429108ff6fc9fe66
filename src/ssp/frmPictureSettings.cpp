#include "ssp/frmPictureSettings.h"

#include <utility>

#include "base/Quotes.h"
#include "base/Text.h"

namespace tessivo::ssp {
namespace {

constexpr int kSecondsPerMinute = 60;

std::string stayText(int seconds) {
  if (seconds % kSecondsPerMinute == 0)
    return std::to_string(seconds / kSecondsPerMinute) + " 分钟";
  return std::to_string(seconds) + " 秒";
}

}  // namespace

frmPictureSettings::frmPictureSettings(const PictureSettings& settings, std::string usualFolder,
                                       const Files& files, FileDialogs& dialogs,
                                       TwipsPerPixel twipsPerPixel)
    : SettingsForm("frmPictureSettings", "图片欣赏设置", twipsPerPixel),
      labFolder(this, "labFolder", "文件夹:"),
      txtFolder(this, "txtFolder", false),
      cmdBrowse(this, "cmdBrowse", "浏览(&B)..."),
      labStay(this, "labStay", "每张显示:"),
      comboStay(this, "comboStay"),
      labOrder(this, "labOrder", "顺序:"),
      comboOrder(this, "comboOrder"),
      cmdOk(this, "cmdOk", "确定(&O)"),
      cmdCancel(this, "cmdCancel", "取消(&C)"),
      usualFolder_(std::move(usualFolder)),
      files_(files),
      dialogs_(dialogs) {
  txtFolder.setCaption(settings.folder.empty() ? usualFolder_ : settings.folder);
  for (const int seconds : kStaySeconds) {
    comboStay.addItem(stayText(seconds), seconds);
    if (seconds == settings.staySeconds) {
      comboStay.setListIndex(static_cast<int>(comboStay.items().size()) - 1);
    }
  }
  comboStay.setAccessibleName("每张显示");
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
  // The shell copies paths with quotes around them.
  std::string folder(unquoted(trim(txtFolder.caption())));
  if (folder == usualFolder_) folder.clear();
  return {folder, comboStay.items().at(static_cast<std::size_t>(comboStay.listIndex())).data,
          static_cast<PictureOrder>(comboOrder.listIndex())};
}

std::string frmPictureSettings::problem() const {
  const std::string folder = settings().folder;
  if (folder.empty() || files_.filesIn(folder)) return {};
  return "文件夹不存在或无法打开。";
}

void frmPictureSettings::browse() {
  const auto folder =
      dialogs_.chooseFolder({"选择图片文件夹", txtFolder.caption(), nativeHandle()});
  if (folder) txtFolder.setCaption(*folder);
}

}  // namespace tessivo::ssp
