#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ssp {

/// The dialog with a screen saver's settings: rows of a caption and a control, below them the
/// buttons that accept and cancel. Enter accepts wherever it is not another button's; Esc and the
/// close box cancel. Unloads itself then; but what cannot be accepted or saved stays, and a line in
/// red says why.
class SettingsForm : public ui::Form {
 public:
  ~SettingsForm() override;

  /// Gives the open form its size; it keeps it.
  void fit();
  /// Saves the settings' text when the user accepts; false when that cannot be done.
  using Save = std::function<bool(const std::string& text)>;
  void setSave(Save save) { save_ = std::move(save); }

  /// After it was unloaded: whether the settings were accepted, and saved.
  bool accepted() const { return accepted_; }
  /// What the controls say, as the text of the settings' file.
  virtual std::string settingsText() const = 0;

  ui::Label labProblem;  ///< empty while there is none

 protected:
  SettingsForm(std::string name, std::string caption, TwipsPerPixel twipsPerPixel);

  /// The next row. `label` may be null, `button`, at the row's end, too.
  void addRow(ui::Label* label, ui::Control& control, ui::Control* button = nullptr);
  /// Once, when all rows are there.
  void setButtons(ui::Button& ok, ui::Button& cancel);

  /// Why what the controls say cannot be accepted; empty when it can.
  virtual std::string problem() const { return {}; }

 private:
  struct Row {
    ui::Label* label;
    ui::Control* control;
    ui::Control* button;
  };
  void confirm();
  /// Saves what can be saved; what hinders it otherwise.
  std::string save();
  void handleKey(ui::KeyPress& press);
  void layOut();

  std::vector<Row> rows_;
  ui::Button* ok_ = nullptr;
  ui::Button* cancel_ = nullptr;
  Save save_;
  bool accepted_ = false;
};

}  // namespace tessivo::ssp
