#pragma once

#include "platform/Shell.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo {

/// The About box: the product's name and icon, and two texts that act as links, the maker's address
/// for questions and the maker's home page. Tab leads to the links, too; Enter follows one.
class frmAbout : public ui::Form {
 public:
  frmAbout(Shell& shell, TwipsPerPixel twipsPerPixel);
  ~frmAbout() override;

  /// Shows the box over its owner and returns when it has been closed.
  void showOver(ui::Toolkit& toolkit, ui::Form& owner);

  ui::PictureBox picIco;
  ui::Label Label1;
  ui::Label Label2;
  ui::Label Label3;
  ui::Label Label4;
  ui::TextBox txtHomePage;
  ui::Label Label6;
  ui::TextBox txtEmail;
  ui::Button cmdOk;

 private:
  void layOut();
  void openHomePage();
  void writeMail();

  Shell& shell_;
};

}  // namespace tessivo
