#include "ui/Mnemonics.h"

#include "ui/Button.h"
#include "ui/CheckBox.h"

namespace tessivo::ui {
namespace {

char32_t toUpperLetter(char32_t letter) {
  return letter >= U'a' && letter <= U'z' ? letter - U'a' + U'A' : letter;
}

/// The marked letter in upper case, 0 when there is none. Marks are ASCII letters.
char32_t markedLetter(const std::string& caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') {
      return toUpperLetter(static_cast<unsigned char>(caption[i + 1]));
    }
    ++i;
  }
  return 0;
}

bool answersMnemonics(const Control& control) {
  return dynamic_cast<const Button*>(&control) || dynamic_cast<const CheckBox*>(&control);
}

}  // namespace

Control* controlOfMnemonic(const Container& form, char32_t letter) {
  for (Control* child : form.children()) {
    if (!child->visible() || !child->enabled()) continue;
    if (const auto* inner = dynamic_cast<const Container*>(child)) {
      if (Control* found = controlOfMnemonic(*inner, letter)) return found;
    } else if (answersMnemonics(*child)) {
      const char32_t marked = markedLetter(static_cast<const Captioned*>(child)->caption());
      if (marked != 0 && marked == toUpperLetter(letter)) return child;
    }
  }
  return nullptr;
}

}  // namespace tessivo::ui
