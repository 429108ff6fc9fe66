#pragma once

#include <memory>
#include <string>

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
};

std::unique_ptr<FormWorld> makeFormWorld();

}  // namespace tessivo::ui
