#include "panel/DatabaseNotice.h"

#include "panel/frmMsgBox.h"

namespace tessivo {

std::string databaseNotice(DatabaseState state) {
  switch (state) {
    case DatabaseState::replaced:
      return "数据库 SysConfig 已损坏，无法读取其中的播放列表和设置。原文件保留在程序文件夹中，"
             "文件名以 SysConfig.damaged 开头；现在使用新的空列表。";
    case DatabaseState::accessFile:
      return "数据库 SysConfig 是 Microsoft Access 文件，在这台电脑上无法读取（没有它的驱动程序，"
             "或文件已损坏，详见 Tessivo.log）。原文件没有改动；播放列表和设置现在保存在新的数据库 "
             "SysConfig.db 中。";
    case DatabaseState::converted:
      return "Microsoft Access 文件 SysConfig 中的播放列表、设置和文件类型已转入新的数据库 "
             "SysConfig.db，今后使用新数据库。原文件没有改动。";
    case DatabaseState::notConverted:
      return "没有转换：SysConfig 不是 Microsoft Access 文件，或在这台电脑上无法读取，详见 "
             "Tessivo.log。原文件没有改动。";
    case DatabaseState::notWritable:
      return "无法写入程序文件夹中的数据库 SysConfig，播放列表和设置不会保存。"
             "请把泰思维放到您有权写入的文件夹中。";
    case DatabaseState::ready:
    case DatabaseState::created:
    case DatabaseState::accessInUse:
    case DatabaseState::leftAlone:
      break;
  }
  return "";
}

DatabaseNotice::DatabaseNotice(ui::Toolkit& toolkit, TimerService& timers, ui::Form& owner,
                               DatabaseState state)
    : timer_(timers, "timDatabaseNotice", 1, !databaseNotice(state).empty()) {
  timer_.onTimer.listen([this, &toolkit, &owner, state] {
    timer_.setEnabled(false);
    showNotice(toolkit, owner, databaseNotice(state));
  });
}

}  // namespace tessivo
