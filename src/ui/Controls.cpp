#include "ui/Controls.h"

namespace tessivo::ui {

void Button::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void CheckBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void ComboBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void Label::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void ListView::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void PictureBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void Slider::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void TabStrip::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}
void TextBox::accept(ControlVisitor& visitor) {
  visitor.visit(*this);
}

}  // namespace tessivo::ui
