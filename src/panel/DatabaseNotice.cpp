#include "panel/DatabaseNotice.h"

#include <utility>

#include "base/Text.h"
#include "panel/frmMsgBox.h"

namespace tessivo {
namespace {

/// `used` is the name of the file that the program works on, `first` of the one it looks for.
std::string stateText(DatabaseState state, const std::string& used, const std::string& first) {
  switch (state) {
    case DatabaseState::replaced:
      return "数据库 " + used +
             " 已损坏，无法读取其中的播放列表和设置。原文件保留在程序文件夹中，文件名以 " + used +
             ".damaged 开头；现在使用新的空列表。";
    case DatabaseState::accessFile:
      return "数据库 " + first +
             " 是 Microsoft Access "
             "文件，在这台电脑上无法读取（没有它的驱动程序，或文件已损坏，详见 "
             "Tessivo.log）。原文件没有改动；播放列表和设置现在保存在新的数据库 " +
             used +
             " 中。要转入原有的数据，请用 32 位版运行一次 Tessivo.exe --convert（详见使用说明）。";
    case DatabaseState::accessHeld:
      return "数据库 " + first +
             " 是 Microsoft Access 文件，暂时无法使用（可能正由其他程序打开，或设有密码，详见 "
             "Tessivo.log）。文件没有改动，播放列表和设置这次可能不会保存；请关闭该程序，"
             "再重新启动泰思维。";
    case DatabaseState::converted:
      return "Microsoft Access 文件 " + first + " 中的播放列表、设置和文件类型已转入新的数据库 " +
             used + "，今后使用新数据库。原文件没有改动。";
    case DatabaseState::notWritable:
      return "无法写入程序文件夹中的数据库 " + used +
             "，播放列表和设置不会保存。请把泰思维放到您有权写入的文件夹中。";
    case DatabaseState::failed:
      return "数据库 " + used +
             " 现在无法建立或读取（磁盘可能已满，详见 "
             "Tessivo.log），播放列表和设置可能不会保存。请检查磁盘，再重新启动泰思维。";
    case DatabaseState::ready:
    case DatabaseState::created:
    case DatabaseState::accessInUse:
    case DatabaseState::leftAlone:
      break;
  }
  return "";
}

}  // namespace

std::string databaseNotice(const WorkingDatabase& database, const std::string& program) {
  const std::string first(fileNameOf(program));
  std::string text = stateText(database.state, std::string(fileNameOf(database.path)), first);
  if (!database.notConverted) return text;
  return first + " 没有转换，原因详见 Tessivo.log。" +
         (text.empty() ? "原有的文件没有改动。" : text);
}

DatabaseNotice::DatabaseNotice(ui::Toolkit& toolkit, TimerService& timers, ui::Form& owner,
                               std::string text)
    : timer_(timers, "timDatabaseNotice", 1, !text.empty()) {
  timer_.onTimer.listen([this, &toolkit, &owner, text = std::move(text)] {
    timer_.setEnabled(false);
    showNotice(toolkit, owner, text);
  });
}

}  // namespace tessivo
