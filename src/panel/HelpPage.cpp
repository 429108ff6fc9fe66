#include "panel/HelpPage.h"

#include "panel/frmMsgBox.h"

namespace tessivo {

void openHelpPage(Shell& shell, ui::Toolkit& toolkit, ui::Form& owner, const std::string& page) {
  if (shell.open(owner.nativeHandle(), page, "")) return;
  showNotice(toolkit, owner, "无法打开使用说明，请用浏览器打开这个文件：\n" + page);
}

}  // namespace tessivo
