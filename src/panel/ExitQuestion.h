#pragma once

#include "app/Controler.h"
#include "ui/Form.h"

namespace tessivo {

class frmMsgBox;

/// Asks the user whether to leave the program, and leaves it on a yes. The tray form and the
/// control panel share one, so that there is never more than one question.
class ExitQuestion {
 public:
  ExitQuestion(ui::Toolkit& toolkit, Controler& controler)
      : toolkit_(toolkit), controler_(controler) {}
  ExitQuestion(const ExitQuestion&) = delete;
  ExitQuestion& operator=(const ExitQuestion&) = delete;

  /// Asks over the owner, and returns when the user has answered; a question that is up comes to
  /// the front instead. Enter, Esc and the close box mean no. A yes leaves at once, whatever else
  /// has come up over the question.
  void ask(ui::Form& owner);

 private:
  ui::Toolkit& toolkit_;
  Controler& controler_;
  frmMsgBox* asked_ = nullptr;  ///< the question that is up
};

}  // namespace tessivo
