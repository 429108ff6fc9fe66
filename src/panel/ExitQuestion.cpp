#include "panel/ExitQuestion.h"

#include "panel/frmMsgBox.h"

namespace tessivo {

bool confirmsExit(ui::Toolkit& toolkit, ui::Form& owner) {
  frmMsgBox box(owner.twipsPerPixel());
  box.setCaption("提示");
  box.labNote.setCaption("您真的要关闭该程序吗?      ");
  box.cmdYes.setCaption("是");
  box.cmdNo.setCaption("否");
  box.setDefaultIsYes(false);
  box.ask(toolkit, owner);
  return box.result();
}

}  // namespace tessivo
