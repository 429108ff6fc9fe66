#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo {

/// The program's own notice and question. The caller sets the form's caption, the text, the buttons
/// and which of them is the default one, shows it, and reads whether the user said yes. Enter
/// presses the button that has the keyboard; Esc and the close box say no.
class frmMsgBox : public ui::Form {
 public:
  explicit frmMsgBox(TwipsPerPixel twipsPerPixel);
  ~frmMsgBox() override;

  /// Whether `cmdYes` has the keyboard at first, else `cmdNo`.
  void setDefaultIsYes(bool yes) { defaultIsYes_ = yes; }
  /// Shows the box over its owner and returns when the user has answered.
  void ask(ui::Toolkit& toolkit, ui::Form& owner);
  /// After that: whether it was `cmdYes` that closed the box.
  bool result() const { return result_; }

  ui::PictureBox Picture1;
  ui::Label labNote;
  ui::Button cmdYes;
  ui::Button cmdNo;

 private:
  void layOut();

  bool defaultIsYes_ = true;
  bool result_ = false;
};

/// A notice: the title, the text, and one button "确定".
void showNotice(ui::Toolkit& toolkit, ui::Form& owner, const std::string& text,
                const std::string& title = "提示");

}  // namespace tessivo
