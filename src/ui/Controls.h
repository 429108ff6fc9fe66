#pragma once

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/PictureBox.h"
#include "ui/Slider.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"

namespace tessivo::ui {

/// One operation per kind of control: how a toolkit finds out what real control to make.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void visit(Button& control) = 0;
  virtual void visit(CheckBox& control) = 0;
  virtual void visit(ComboBox& control) = 0;
  virtual void visit(Label& control) = 0;
  virtual void visit(ListView& control) = 0;
  virtual void visit(PictureBox& control) = 0;
  virtual void visit(Slider& control) = 0;
  virtual void visit(TabStrip& control) = 0;
  virtual void visit(TextBox& control) = 0;
};

}  // namespace tessivo::ui
