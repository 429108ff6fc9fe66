#include <gtest/gtest.h>

#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/PictureBox.h"
#include "ui/win32/FormContext.h"

namespace tessivo::ui {
namespace {

constexpr Colour kRed = 0xB00020;
constexpr COLORREF kSystems = RGB(1, 2, 3);

struct ColouredForm : Form {
  ColouredForm() : Form("frm", "", {}) {}
  PictureBox page{this, "page"};
  Label text{&page, "text", ""};
};

TEST(TextColourTest, WithoutAColourOfItsOwnTheSystemsCounts) {
  const ColouredForm form;
  EXPECT_EQ(textColourOf(form.text, kSystems, false), kSystems);
  EXPECT_EQ(textColourOf(form.text, kSystems, true), kSystems);
}

TEST(TextColourTest, InHighContrastAColourAloneGivesWayToTheSystems) {
  ColouredForm form;
  form.text.setColours(kRed, std::nullopt);
  EXPECT_EQ(textColourOf(form.text, kSystems, false), RGB(0xB0, 0x00, 0x20));
  EXPECT_EQ(textColourOf(form.text, kSystems, true), kSystems);
}

TEST(TextColourTest, OnABackgroundOfTheProgramsItStays) {
  ColouredForm form;
  form.text.setColours(kRed, std::nullopt);
  form.page.setColours(std::nullopt, 0xFFF8DC);
  EXPECT_EQ(textColourOf(form.text, kSystems, true), RGB(0xB0, 0x00, 0x20));
}

}  // namespace
}  // namespace tessivo::ui
