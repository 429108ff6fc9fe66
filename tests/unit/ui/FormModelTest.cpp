#include <gtest/gtest.h>

#include "fakes/Trace.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ui {
namespace {

TEST(FormModelTest, FrameFollowsTheDesignedBoxes) {
  Form form("frm", "x", {});
  form.setBoxes(true, false, false);
  EXPECT_EQ(form.frameStyle(), frame::kCaption | frame::kSizingFrame | frame::kSystemMenu);
  form.setBoxes(true, true, true);
  EXPECT_EQ(form.frameStyle(), frame::kAll);
}

TEST(FormModelTest, EdgesAreSetOneAtATime) {
  Form form("frm", "x", {});
  form.setTop(150);
  form.setLeft(-28800);
  form.setWidth(28800);
  form.setHeight(16200);
  EXPECT_EQ(form.bounds(), (Rect{-28800, 150, 28800, 16200}));
  EXPECT_EQ(form.windowRect(), (Rect{-1920, 10, 1920, 1080}));
}

TEST(FormModelTest, EachChangeOfSizeRaisesResize) {
  Form form("frm", "x", {});
  Trace trace;
  form.onResize.listen([&] { trace.add(std::to_string(form.width())); });
  form.setWidth(1500);
  form.setLeft(30);
  form.setWidth(1500);
  form.setWindowPos({0, 0, 200, 100});
  EXPECT_EQ(trace.take(), "1500 | 3000");
}

TEST(FormModelTest, InnerSizeLosesTheFrameOnlyWhenThereIsOne) {
  Form form("frm", "x", {});
  form.setBounds({0, 0, 3000, 3000});
  EXPECT_LT(form.scaleHeight(), 3000);
  form.setFrameStyle(0);
  EXPECT_EQ(form.scaleWidth(), 3000);
  EXPECT_EQ(form.scaleHeight(), 3000);
}

TEST(FormModelTest, UnloadHidesTheForm) {
  Form form("frm", "x", {});
  form.show();
  form.unload();
  EXPECT_FALSE(form.visible());
}

TEST(FormModelTest, DestroyedControlLeavesItsParent) {
  Form form("frm", "x", {});
  Button keep(&form, "keep", "");
  { Button gone(&form, "gone", ""); }
  ASSERT_EQ(form.children().size(), 1U);
  EXPECT_EQ(form.children().front(), &keep);
}

TEST(FormModelTest, ChosenEntryOfAComboBoxIsReportedAlsoWhenItIsTheSame) {
  ComboBox box(nullptr, "combo");
  box.addItem("a", 2);
  int clicks = 0;
  box.onClick.listen([&] { ++clicks; });
  box.choose(0);
  box.choose(0);
  box.choose(1);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(box.listIndex(), 0);
}

TEST(FormModelTest, ReadOnlyTextCannotBeTyped) {
  TextBox box(nullptr, "txt", true);
  box.type("x");
  EXPECT_EQ(box.caption(), "");
}

}  // namespace
}  // namespace tessivo::ui
