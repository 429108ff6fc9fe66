#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ui {

/// The user of a form: what is to be seen on it and what can be done to it. There are two worlds:
/// with the models alone, and with real windows, where everything is read from and done to the real
/// controls.
class FormWorld {
 public:
  virtual ~FormWorld() = default;
  virtual Toolkit& toolkit() = 0;

  virtual std::string text(const Control& control) = 0;
  virtual bool isVisible(const Control& control) = 0;
  virtual bool isEnabled(const Control& control) = 0;
  virtual Rect bounds(const Control& control) = 0;  ///< pixels inside the parent
  virtual bool isChecked(const CheckBox& box) = 0;
  virtual int position(const Slider& slider) = 0;
  virtual int maximum(const Slider& slider) = 0;
  virtual int entryCount(const ComboBox& box) = 0;
  virtual int chosenEntry(const ComboBox& box) = 0;
  virtual int selectedTab(const TabStrip& tabs) = 0;
  virtual int rowCount(const ListView& list) = 0;
  virtual int selectedRow(const ListView& list) = 0;
  virtual std::string cell(const ListView& list, int row, int column) = 0;
  virtual bool isTicked(const ListView& list, int row) = 0;

  virtual void click(Button& button) = 0;
  virtual void click(CheckBox& box) = 0;
  virtual void choose(ComboBox& box, int entry) = 0;
  virtual void chooseTab(TabStrip& tabs, int tab) = 0;
  virtual void type(TextBox& box, const std::string& text) = 0;
  virtual void dragTo(Slider& slider, int value) = 0;
  virtual void pressKey(Slider& slider, KeyCode key, int reached) = 0;
  virtual void clickRow(ListView& list, int row) = 0;
  virtual void tickRow(ListView& list, int row) = 0;
  virtual void mouse(Control& control, const MouseEvent& pressAt) = 0;  ///< press and release
  virtual void close(Form& form) = 0;

  virtual bool hasFocus(const Control& control) = 0;
  /// Moves the pointer to the row's middle first; -1: below the last row.
  virtual void doubleClickRow(ListView& list, int row) = 0;
  virtual void rightClickRow(ListView& list, int row) = 0;
  /// As the user's hand or another program may do.
  virtual void setColumnWidth(ListView& list, int column, std::int32_t twips) = 0;
  virtual void hold(Button& button) = 0;     ///< the left button goes down
  virtual void release(Button& button) = 0;  ///< and up, on it
  virtual void mouseDown(Control& control, const MouseEvent& at) = 0;
  virtual void mouseMove(Control& control, const MouseEvent& at) = 0;
  virtual void mouseUp(Control& control, const MouseEvent& at) = 0;
  /// A key for the control that has the keyboard.
  virtual void key(Form& form, Control& focus, KeyCode code, bool control = false) = 0;
  /// A letter together with Alt.
  virtual void mnemonic(Form& form, char letter) = 0;
  virtual void drop(Form& form, const std::vector<std::string>& paths) = 0;

  /// What the user does with the dialogs from now on; one that is left open is closed by its box.
  virtual void answerDialogs(std::function<void(Form&)> answer) = 0;
  /// The next menu of the form: the user chooses that entry; -1: none. Separators and what is
  /// hidden do not count.
  void answerMenu(Form& form, int entry) {
    menuAnswer_ = form.onPopup.connect([this, entry, &form](MenuItem& menu) {
      menuShown = captionsOf(menu);
      chooseInMenu(form, menu, entry);
    });
  }
  std::string menuShown;  ///< the captions of the last menu answered, separated by "|"

 protected:
  virtual void chooseInMenu(Form& form, MenuItem& menu, int entry) = 0;

 private:
  static std::string captionsOf(const MenuItem& menu) {
    std::string all;
    for (std::size_t i = 0; i < menu.count(); ++i) {
      if (menu.item(i).visible()) all += (all.empty() ? "" : "|") + menu.item(i).caption();
    }
    return all;
  }
  Connection menuAnswer_;
};

std::unique_ptr<FormWorld> makeFormWorld();

}  // namespace tessivo::ui
