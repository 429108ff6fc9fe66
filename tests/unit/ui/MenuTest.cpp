#include "ui/Menu.h"

#include <gtest/gtest.h>

#include "ui/Form.h"

namespace tessivo::ui {
namespace {

TEST(MenuTest, EntryThatIsOffOrHiddenCannotBeChosen) {
  MenuItem item("mnuPlay", "播放");
  int chosen = 0;
  item.onClick.listen([&] { ++chosen; });
  item.setEnabled(false);
  item.choose();
  item.setEnabled(true);
  item.setVisible(false);
  item.choose();
  EXPECT_EQ(chosen, 0);
  item.setVisible(true);
  item.choose();
  EXPECT_EQ(chosen, 1);
}

TEST(MenuTest, ShrinkingKeepsTheFirstEntries) {
  MenuItem menu("mnuScreens", "");
  menu.add("mnuSx", "主屏幕");
  menu.add("mnuSx", "屏幕2");
  menu.shrinkTo(1);
  menu.shrinkTo(5);
  ASSERT_EQ(menu.count(), 1U);
  EXPECT_EQ(menu.item(0).caption(), "主屏幕");
}

TEST(MenuTest, SeparatorIsKnownByItsCaption) {
  MenuItem menu("mnu", "");
  EXPECT_TRUE(menu.addSeparator("mnuLine1").isSeparator());
  EXPECT_FALSE(menu.isSeparator());
}

TEST(MenuTest, PopupWithoutAWindowOnlyAnnouncesTheMenu) {
  Form form("frm", "", {});
  MenuItem menu("mnu", "");
  MenuItem* shown = nullptr;
  form.onPopup.listen([&](MenuItem& popped) { shown = &popped; });
  form.popupMenu(menu);
  EXPECT_EQ(shown, &menu);
}

}  // namespace
}  // namespace tessivo::ui
