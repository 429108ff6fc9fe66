#pragma once

#include <string>
#include <vector>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ssp {

/// The dialog with a screen saver's settings: rows of a caption and a control, below them the
/// buttons that accept and cancel. Enter accepts wherever it is not another button's; Esc and the
/// close box cancel. Unloads itself then.
class SettingsForm : public ui::Form {
 public:
  ~SettingsForm() override;

  /// Gives the open form its size; it keeps it.
  void fit();
  /// After it was unloaded: whether the settings are to be saved.
  bool accepted() const { return accepted_; }
  /// What the controls say, as the text of the settings' file.
  virtual std::string settingsText() const = 0;

 protected:
  SettingsForm(std::string name, std::string caption, TwipsPerPixel twipsPerPixel);

  /// The next row. `label` may be null, `button`, at the row's end, too.
  void addRow(ui::Label* label, ui::Control& control, ui::Control* button = nullptr);
  /// Once, when all rows are there.
  void setButtons(ui::Button& ok, ui::Button& cancel);

 private:
  struct Row {
    ui::Label* label;
    ui::Control* control;
    ui::Control* button;
  };
  void confirm();
  void handleKey(ui::KeyPress& press);
  void layOut();

  std::vector<Row> rows_;
  ui::Button* ok_ = nullptr;
  ui::Button* cancel_ = nullptr;
  bool accepted_ = false;
};

}  // namespace tessivo::ssp
