#include "ui/TabOrder.h"

#include <gtest/gtest.h>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ui {
namespace {

class TabOrderTest : public testing::Test {
 protected:
  std::string after(const Control* current, bool backwards = false) const {
    const Control* next = nextInTabOrder(form, current, backwards);
    return next ? next->name() : "none";
  }

  Form form{"frm", "", {}};
  Label label{&form, "label", ""};
  Button first{&form, "first", ""};
  PictureBox page{&form, "page"};
  CheckBox inside{&page, "inside", ""};
  Slider last{&form, "last"};
};

TEST_F(TabOrderTest, StartsWithTheFirstThatTakesTheKeyboard) {
  EXPECT_EQ(after(nullptr), "first");
  EXPECT_EQ(after(nullptr, true), "last");
}

TEST_F(TabOrderTest, GoesThroughContainersAndRound) {
  EXPECT_EQ(after(&first), "inside");
  EXPECT_EQ(after(&inside), "last");
  EXPECT_EQ(after(&last), "first");
}

TEST_F(TabOrderTest, GoesBackwards) {
  EXPECT_EQ(after(&last, true), "inside");
  EXPECT_EQ(after(&first, true), "last");
}

TEST_F(TabOrderTest, LeavesOutWhatIsDisabledOrHidden) {
  inside.setEnabled(false);
  EXPECT_EQ(after(&first), "last");
  inside.setEnabled(true);
  page.setVisible(false);
  EXPECT_EQ(after(&first), "last");
}

TEST_F(TabOrderTest, GoesOnFromAControlThatHasJustBeenDisabled) {
  inside.setEnabled(false);
  EXPECT_EQ(after(&inside), "last");
}

TEST_F(TabOrderTest, ArrowsGoFromButtonToButtonInTheSameContainer) {
  const Button elsewhere{&page, "elsewhere", ""};
  Button second{&form, "second", ""};
  const Button third{&form, "third", ""};
  EXPECT_EQ(nextButton(first, false), &second);
  EXPECT_EQ(nextButton(first, true), &third);
  EXPECT_EQ(nextButton(third, false), &first);
  EXPECT_EQ(nextButton(elsewhere, false), nullptr);
  second.setVisible(false);
  EXPECT_EQ(nextButton(first, false), &third);
  second.setVisible(true);
  second.setEnabled(false);
  EXPECT_EQ(nextButton(third, true), &first);
}

TEST_F(TabOrderTest, NothingWhenNoOtherControlCanHaveIt) {
  inside.setEnabled(false);
  last.setVisible(false);
  EXPECT_EQ(after(&first), "none");
}

}  // namespace
}  // namespace tessivo::ui
