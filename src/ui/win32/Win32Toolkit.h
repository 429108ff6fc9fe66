#pragma once

#include <windows.h>

#include <memory>

#include "base/Twips.h"
#include "platform/Log.h"
#include "ui/Form.h"
#include "ui/win32/UiFonts.h"

namespace tessivo::ui {

/// Opens forms as real windows with the system's own controls. One for the program, made before
/// the first form is opened and kept until the last is unloaded.
class Win32Toolkit final : public Toolkit {
 public:
  /// `twips` as all forms have it; unexpected errors in events go to the log.
  Win32Toolkit(TwipsPerPixel twips, Log& log);

  /// A form that is open already stays as it is.
  void open(Form& form) override;
  void showModal(Form& dialog) override;

  /// The keyboard inside a form: the form's own keys, Tab through its controls, a letter with Alt,
  /// Enter on the button that has the keyboard. For the message loop, before it dispatches; true
  /// when the message is dealt with.
  static bool translate(const MSG& message);

 private:
  Log& log_;
  TwipsPerPixel twips_;
  std::shared_ptr<const UiFonts> fonts_;
};

}  // namespace tessivo::ui
