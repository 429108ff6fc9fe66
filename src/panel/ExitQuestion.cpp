#include "panel/ExitQuestion.h"

#include "panel/frmMsgBox.h"

namespace tessivo {

void ExitQuestion::ask(ui::Form& owner) {
  if (asked_) return asked_->activate();
  frmMsgBox box(owner.twipsPerPixel());
  box.setCaption("提示");
  box.labNote.setCaption("您真的要关闭该程序吗?      ");
  box.cmdYes.setCaption("是");
  box.cmdNo.setCaption("否");
  box.setDefaultIsYes(false);
  // Not after the box has returned: the message loop of a dialog that came later would go on.
  box.cmdYes.onClick.listen([this] { controler_.exitSys(); });
  box.onUnload.listen([this] { asked_ = nullptr; });
  asked_ = &box;
  box.ask(toolkit_, owner);
  asked_ = nullptr;
}

}  // namespace tessivo
