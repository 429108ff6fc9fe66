#include "ui/win32/Win32PopupMenu.h"

#include "fakes/Trace.h"
#include "platform/win32/Win32TimerService.h"
#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

class PopupMenuTest : public OpenForm {
 protected:
  void SetUp() override {
    OpenForm::SetUp();
    form.show();
    note(menu.add("mnuHidden", "隐藏")).setVisible(false);
    note(menu.add("mnuPlay", "播放"));
    menu.addSeparator("mnuLine");
    note(menu.add("mnuStop", "停止")).setEnabled(false);
    MenuItem& screens = menu.add("mnuFullScreenTo", "全屏到>");
    note(screens.add("mnuScreenX", "主屏幕"));
    note(screens.add("mnuScreenX", "屏幕2"));
  }
  MenuItem& note(MenuItem& item) {
    item.onClick.listen([this, &item] { trace.add(item.caption()); });
    return item;
  }
  /// The keys that the user presses once the menu is there.
  void pressLater(std::initializer_list<WPARAM> keys) {
    for (const WPARAM key : keys) {
      PostMessageW(window(), WM_KEYDOWN, key, 0);
      PostMessageW(window(), WM_KEYUP, key, 0);
    }
  }

  MenuItem menu{"mnuPopuMenu", ""};
  Trace trace;
};

TEST_F(PopupMenuTest, FirstVisibleEntryIsChosenByKeys) {
  pressLater({VK_DOWN, VK_RETURN});
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "播放");
}

TEST_F(PopupMenuTest, EntryOfAMenuBelowIsChosen) {
  pressLater({VK_UP, VK_RIGHT, VK_DOWN, VK_RETURN});
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "屏幕2");
}

TEST_F(PopupMenuTest, EscapeChoosesNothing) {
  pressLater({VK_DOWN, VK_ESCAPE});
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PopupMenuTest, DisabledEntryIsNotChosen) {
  pressLater({VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE});
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PopupMenuTest, MenuMayShrinkWhileItIsOpen) {
  Win32TimerService timers(log);
  TimerService::Id once = 0;
  once = timers.start(1, [&] {
    timers.stop(once);
    menu.shrinkTo(1);
    pressLater({VK_DOWN, VK_RETURN});
  });
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PopupMenuTest, FormMayBeUnloadedWhileItsMenuIsOpen) {
  Win32TimerService timers(log);
  TimerService::Id once = 0;
  once = timers.start(1, [&] {
    timers.stop(once);
    pressLater({VK_DOWN, VK_RETURN});
    form.unload();
  });
  form.popupMenu(menu);
  EXPECT_EQ(trace.take(), "");
  EXPECT_FALSE(form.isOpen());
}

}  // namespace
}  // namespace tessivo::ui
