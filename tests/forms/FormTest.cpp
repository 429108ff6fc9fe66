#include <gtest/gtest.h>

#include <memory>

#include "forms/FormWorld.h"
#include "forms/TestForm.h"

namespace tessivo::ui {
namespace {

class FormTest : public ::testing::Test {
 protected:
  void SetUp() override { world->toolkit().open(form); }

  void addRows(int count) {
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      form.lvRows.append({"key" + number, "0", {"片" + number + ".avi", "C:\\" + number}});
    }
  }

  std::unique_ptr<FormWorld> world = makeFormWorld();
  TestForm form;
};

TEST_F(FormTest, CaptionsOfAllKindsAreShown) {
  form.setCaption("控制面板");
  form.labText.setCaption("正在播放: & 100 %");
  form.cmdOk.setCaption("暂停");
  form.chkAll.setCaption("全部");
  form.txtName.setCaption("片名.rmvb");
  EXPECT_EQ(world->text(form), "控制面板");
  EXPECT_EQ(world->text(form.labText), "正在播放: & 100 %");
  EXPECT_EQ(world->text(form.cmdOk), "暂停");
  EXPECT_EQ(world->text(form.chkAll), "全部");
  EXPECT_EQ(world->text(form.txtName), "片名.rmvb");
}

TEST_F(FormTest, DesignedCaptionsAreShownFromTheStart) {
  EXPECT_EQ(world->text(form), "泰思维 测试");
  EXPECT_EQ(world->text(form.labText), "停止: ");
  EXPECT_EQ(world->text(form.cmdOk), "确定");
}

TEST_F(FormTest, FormIsHiddenUntilShown) {
  EXPECT_FALSE(world->isVisible(form));
  form.show();
  EXPECT_TRUE(world->isVisible(form));
  form.hide();
  EXPECT_FALSE(world->isVisible(form));
}

TEST_F(FormTest, ControlsAreHiddenAndDisabledByProgram) {
  form.cmdOk.setVisible(false);
  form.cmdNo.setEnabled(false);
  EXPECT_FALSE(world->isVisible(form.cmdOk));
  EXPECT_FALSE(world->isEnabled(form.cmdNo));
  form.cmdOk.setVisible(true);
  form.cmdNo.setEnabled(true);
  EXPECT_TRUE(world->isVisible(form.cmdOk));
  EXPECT_TRUE(world->isEnabled(form.cmdNo));
}

TEST_F(FormTest, BoundsInTwipsBecomePixelsInsideTheParent) {
  form.lvRows.setBounds({30, 60, 1500, 1200});
  EXPECT_EQ(world->bounds(form.lvRows), (Rect{2, 4, 100, 80}));
}

TEST_F(FormTest, CheckBoxFollowsTheProgramSilently) {
  form.watch(form.chkAll);
  form.chkAll.setChecked(true);
  EXPECT_TRUE(world->isChecked(form.chkAll));
  EXPECT_EQ(form.trace(), "");
}

TEST_F(FormTest, ClickFlipsTheCheckBoxAndRaisesClick) {
  form.chkAll.onClick.listen(
      [this] { form.steps.push_back(form.chkAll.checked() ? "ticked" : "cleared"); });
  world->click(form.chkAll);
  EXPECT_TRUE(world->isChecked(form.chkAll));
  world->click(form.chkAll);
  EXPECT_FALSE(world->isChecked(form.chkAll));
  EXPECT_EQ(form.trace(), "ticked | cleared");
}

TEST_F(FormTest, ButtonRaisesClickOnce) {
  form.cmdOk.onClick.listen([this] { form.steps.push_back("click"); });
  world->click(form.cmdOk);
  EXPECT_EQ(form.trace(), "click");
}

TEST_F(FormTest, DisabledButtonCannotBeClicked) {
  form.cmdOk.onClick.listen([this] { form.steps.push_back("click"); });
  form.cmdOk.setEnabled(false);
  world->click(form.cmdOk);
  EXPECT_EQ(form.trace(), "");
}

TEST_F(FormTest, SliderShowsRangeAndValue) {
  form.sldJinDu.setRange(0, 100000);
  form.sldJinDu.setValue(70000);
  EXPECT_EQ(world->maximum(form.sldJinDu), 100000);
  EXPECT_EQ(world->position(form.sldJinDu), 70000);
  form.sldJinDu.setRange(0, 50);
  EXPECT_EQ(world->position(form.sldJinDu), 50);
}

TEST_F(FormTest, DraggingTheSliderRaisesPressScrollChangeRelease) {
  auto& slider = form.sldJinDu;
  slider.setRange(0, 10);
  slider.onMouseDown.listen([this](const MouseEvent&) { form.steps.push_back("down"); });
  slider.onScroll.listen([&] { form.steps.push_back("scroll " + std::to_string(slider.value())); });
  slider.onChange.listen([&] { form.steps.push_back("change " + std::to_string(slider.value())); });
  slider.onMouseUp.listen([this](const MouseEvent&) { form.steps.push_back("up"); });
  world->dragTo(slider, 7);
  EXPECT_EQ(form.trace(), "down | scroll 7 | change 7 | up");
  EXPECT_EQ(world->position(slider), 7);
}

TEST_F(FormTest, MovingTheSliderWithAKeyRaisesKeyScrollChangeKeyUp) {
  auto& slider = form.sldJinDu;
  slider.setRange(0, 10);
  slider.setValue(5);
  form.watch(slider);
  slider.onScroll.listen([&] { form.steps.push_back("scroll " + std::to_string(slider.value())); });
  slider.onChange.listen([&] { form.steps.push_back("change " + std::to_string(slider.value())); });
  world->pressKey(slider, 39, 6);
  EXPECT_EQ(form.trace(), "key 39 | scroll 6 | change 6 | key up 39");
}

TEST_F(FormTest, ComboBoxShowsEntriesAndTheChosenOne) {
  form.comboRule.addItem("优先使用MediaPlayer播放引擎", 1);
  form.comboRule.setListIndex(3);
  EXPECT_EQ(world->entryCount(form.comboRule), 4);
  EXPECT_EQ(world->chosenEntry(form.comboRule), 3);
  form.comboRule.setListIndex(-1);
  EXPECT_EQ(world->chosenEntry(form.comboRule), -1);
}

TEST_F(FormTest, AClearedComboBoxIsFilledAnew) {
  form.comboRule.setListIndex(1);
  form.comboRule.clear();
  EXPECT_EQ(world->entryCount(form.comboRule), 0);
  EXPECT_EQ(world->chosenEntry(form.comboRule), -1);
  form.comboRule.addItem("one", 1);
  form.comboRule.setListIndex(0);
  EXPECT_EQ(world->entryCount(form.comboRule), 1);
  EXPECT_EQ(world->chosenEntry(form.comboRule), 0);
}

TEST_F(FormTest, ChoosingAnEntryRaisesClick) {
  form.comboRule.onClick.listen(
      [this] { form.steps.push_back(std::to_string(form.comboRule.listIndex())); });
  world->choose(form.comboRule, 1);
  world->choose(form.comboRule, 2);
  EXPECT_EQ(form.trace(), "1 | 2");
}

TEST_F(FormTest, TabStripFollowsTheProgramSilently) {
  form.watch(form.tsLists);
  form.tsLists.setSelected(2);
  EXPECT_EQ(world->selectedTab(form.tsLists), 2);
  EXPECT_EQ(form.trace(), "");
}

TEST_F(FormTest, EachClickOnATabIsReportedOnceAlsoOnTheSelectedOne) {
  form.tsLists.onClick.listen(
      [this] { form.steps.push_back("tab " + std::to_string(form.tsLists.selected())); });
  world->chooseTab(form.tsLists, 2);
  world->chooseTab(form.tsLists, 2);
  world->chooseTab(form.tsLists, 1);
  EXPECT_EQ(form.trace(), "tab 2 | tab 2 | tab 1");
}

TEST_F(FormTest, TypedTextReachesTheModel) {
  form.txtName.onChange.listen([this] { form.steps.push_back(form.txtName.caption()); });
  world->type(form.txtName, "第一集");
  EXPECT_EQ(form.trace(), "第一集");
  EXPECT_EQ(world->text(form.txtName), "第一集");
}

TEST_F(FormTest, TextSetByProgramRaisesNoChange) {
  form.txtName.onChange.listen([this] { form.steps.push_back("change"); });
  form.txtName.setCaption("x");
  EXPECT_EQ(form.trace(), "");
}

TEST_F(FormTest, RowsAreShownWithTheirCells) {
  addRows(3);
  EXPECT_EQ(world->rowCount(form.lvRows), 3);
  EXPECT_EQ(world->cell(form.lvRows, 1, 0), "");
  EXPECT_EQ(world->cell(form.lvRows, 1, 1), "片1.avi");
  EXPECT_EQ(world->cell(form.lvRows, 1, 2), "C:\\1");
}

TEST_F(FormTest, ATitleIsTheTextOfTheFirstColumn) {
  form.lvRows.append({"k", "", {"second"}, false, false, ".mp3"});
  EXPECT_EQ(world->cell(form.lvRows, 0, 0), ".mp3");
  EXPECT_EQ(world->cell(form.lvRows, 0, 1), "second");
}

TEST_F(FormTest, RemovedRowsGo) {
  addRows(3);
  form.lvRows.remove(0);
  EXPECT_EQ(world->rowCount(form.lvRows), 2);
  EXPECT_EQ(world->cell(form.lvRows, 0, 1), "片1.avi");
  form.lvRows.clear();
  EXPECT_EQ(world->rowCount(form.lvRows), 0);
}

TEST_F(FormTest, SelectionFollowsItsRow) {
  addRows(4);
  form.lvRows.select(2);
  EXPECT_EQ(world->selectedRow(form.lvRows), 2);
  form.lvRows.remove(0);
  EXPECT_EQ(world->selectedRow(form.lvRows), 1);
  form.lvRows.swapWithNext(1);
  EXPECT_EQ(world->selectedRow(form.lvRows), 2);
  form.lvRows.remove(2);
  EXPECT_EQ(world->selectedRow(form.lvRows), -1);
}

TEST_F(FormTest, ClickingARowSelectsItAndRaisesItemClickOnce) {
  addRows(3);
  form.lvRows.onItemClick.listen([this](int row) { form.steps.push_back(std::to_string(row)); });
  world->clickRow(form.lvRows, 1);
  EXPECT_EQ(form.lvRows.selected(), 1);
  EXPECT_EQ(world->selectedRow(form.lvRows), 1);
  world->clickRow(form.lvRows, 1);
  EXPECT_EQ(form.trace(), "1 | 1");
}

TEST_F(FormTest, SelectingByProgramRaisesNothing) {
  addRows(3);
  form.lvRows.onItemClick.listen([this](int row) { form.steps.push_back(std::to_string(row)); });
  form.lvRows.select(2);
  EXPECT_EQ(form.trace(), "");
}

TEST_F(FormTest, ClickOnTheBoxTicksTheRow) {
  addRows(3);
  form.lvRows.onItemCheck.listen([this](int row) {
    form.steps.push_back(std::to_string(row) + (form.lvRows.row(row).checked ? " on" : " off"));
  });
  world->tickRow(form.lvRows, 2);
  EXPECT_TRUE(world->isTicked(form.lvRows, 2));
  EXPECT_FALSE(world->isTicked(form.lvRows, 1));
  world->tickRow(form.lvRows, 2);
  EXPECT_FALSE(world->isTicked(form.lvRows, 2));
  EXPECT_EQ(form.trace(), "2 on | 2 off");
}

TEST_F(FormTest, AllRowsAreTickedByProgram) {
  addRows(3);
  form.lvRows.setAllChecked(true);
  EXPECT_TRUE(world->isTicked(form.lvRows, 0));
  EXPECT_TRUE(world->isTicked(form.lvRows, 2));
}

TEST_F(FormTest, MouseEventsCarryTwipsOfTheControl) {
  form.watch(form.labText);
  world->mouse(form.labText, {MouseButton::right, 150, 75});
  EXPECT_EQ(form.trace(), "down 2 at 150,75 | up 2 at 150,75");
}

TEST_F(FormTest, PressAndReleaseOnAPictureIsAClick) {
  form.watch(form.picPage);
  world->mouse(form.picPage, {MouseButton::left, 30, 30});
  EXPECT_EQ(form.trace(), "down 1 at 30,30 | up 1 at 30,30 | click");
}

TEST_F(FormTest, ClosingOnlyAsks) {
  form.onClose.listen([this] { form.steps.push_back("close"); });
  form.show();
  world->close(form);
  EXPECT_EQ(form.trace(), "close");
  EXPECT_TRUE(world->isVisible(form));
}

TEST_F(FormTest, PlacementByProgramRaisesResizeOnceWhenTheSizeDiffers) {
  form.onResize.listen([this] { form.steps.push_back("resize"); });
  form.setBounds({3000, 2250, 9000, 7500});
  EXPECT_EQ(form.trace(), "");
  form.setWidth(10500);
  EXPECT_EQ(form.trace(), "resize");
  EXPECT_EQ(form.windowRect(), (Rect{200, 150, 700, 500}));
}

TEST_F(FormTest, PlacementInPixelsReachesTheModel) {
  form.setWindowPos({100, 80, 500, 400});
  EXPECT_EQ(form.bounds(), (Rect{1500, 1200, 7500, 6000}));
  EXPECT_EQ(form.windowRect(), (Rect{100, 80, 500, 400}));
}

TEST_F(FormTest, OpeningRaisesResize) {
  TestForm other;
  int resized = 0;
  other.onResize.listen([&] { ++resized; });
  world->toolkit().open(other);
  EXPECT_EQ(resized, 1);
}

TEST_F(FormTest, WithoutAFrameTheInsideIsAsLargeAsTheOutside) {
  form.setFrameStyle(0);
  form.setWindowPos({150, 150, 600, 400});
  EXPECT_EQ(form.scaleWidth(), 9000);
  EXPECT_EQ(form.scaleHeight(), 6000);
  form.setFrameStyle(frame::kAll);
  form.setWindowPos({150, 150, 600, 400});
  EXPECT_LT(form.scaleHeight(), 6000);
}

TEST_F(FormTest, ClickMayUnloadTheForm) {
  form.show();
  form.cmdOk.onClick.listen([this] { form.unload(); });
  world->click(form.cmdOk);
  EXPECT_FALSE(form.isOpen());
  EXPECT_FALSE(form.visible());
}

TEST_F(FormTest, ClickMayDestroyTheForm) {
  auto other = std::make_unique<TestForm>();
  world->toolkit().open(*other);
  other->show();
  other->cmdOk.onClick.listen([&] { other.reset(); });
  world->click(other->cmdOk);
  EXPECT_FALSE(other);
}

TEST_F(FormTest, RowClickMayUnloadTheForm) {
  addRows(2);
  form.show();
  form.lvRows.onItemClick.listen([this](int) { form.unload(); });
  world->clickRow(form.lvRows, 1);
  EXPECT_FALSE(form.isOpen());
}

TEST_F(FormTest, FormCanBeOpenedAgainAndShowsWhatItHolds) {
  addRows(2);
  form.show();
  form.sldJinDu.setValue(33);
  form.unload();
  form.labText.setCaption("changed meanwhile");
  world->toolkit().open(form);
  form.show();
  EXPECT_TRUE(world->isVisible(form));
  EXPECT_EQ(world->text(form.labText), "changed meanwhile");
  EXPECT_EQ(world->rowCount(form.lvRows), 2);
  EXPECT_EQ(world->position(form.sldJinDu), 33);
}

}  // namespace
}  // namespace tessivo::ui
