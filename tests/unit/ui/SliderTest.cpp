#include "ui/Slider.h"

#include <gtest/gtest.h>

#include "fakes/Trace.h"

namespace tessivo::ui {
namespace {

class SliderTest : public testing::Test {
 protected:
  void SetUp() override {
    slider.onMouseDown.listen([this](const MouseEvent&) { trace.add("down"); });
    slider.onMouseUp.listen([this](const MouseEvent&) { trace.add("up"); });
    slider.onScroll.listen([this] { trace.add("scroll " + std::to_string(slider.value())); });
    slider.onChange.listen([this] { trace.add("change " + std::to_string(slider.value())); });
  }

  Slider slider{nullptr, "sld"};
  Trace trace;
};

TEST_F(SliderTest, ProgramIsSilent) {
  slider.setRange(0, 50);
  slider.setValue(20);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(slider.value(), 20);
}

TEST_F(SliderTest, ValueStaysInTheRange) {
  slider.setValue(500);
  EXPECT_EQ(slider.value(), 100);
  slider.setRange(0, 30);
  EXPECT_EQ(slider.value(), 30);
  slider.drag(-4);
  EXPECT_EQ(slider.value(), 0);
}

TEST_F(SliderTest, DragIsPressScrollsChangeRelease) {
  slider.press();
  slider.drag(10);
  slider.drag(10);
  slider.drag(20);
  slider.release();
  EXPECT_EQ(trace.take(), "down | scroll 10 | scroll 20 | change 20 | up");
}

TEST_F(SliderTest, ReturnToTheOldValueIsNoChange) {
  slider.press();
  slider.drag(10);
  slider.drag(0);
  slider.release();
  EXPECT_EQ(trace.take(), "down | scroll 10 | scroll 0 | up");
}

TEST_F(SliderTest, DisabledSliderCannotBeDragged) {
  slider.setEnabled(false);
  slider.drag(10);
  EXPECT_EQ(slider.value(), 0);
}

TEST_F(SliderTest, ValueSetByProgramIsNotCommittedAgain) {
  slider.setValue(40);
  slider.commit();
  EXPECT_EQ(trace.take(), "");
}

}  // namespace
}  // namespace tessivo::ui
