#include "platform/win32/Gdi.h"
#include "win32/ResourceCounts.h"
#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

class HandleTest : public OpenForm {
 protected:
  void openAndUnload() {
    TestForm other;
    other.cmdOk.setToolTip("确定");
    other.labText.setColours(0xFF0000, 0x00FF00);
    toolkit.open(other);
    other.lvRows.append({"k", "1", {"片", "C:"}, true, true});
    other.show();
    handleWaiting();
    other.unload();
    handleWaiting();
  }
};

TEST_F(HandleTest, CountingSeesOneMore) {
  const int drawing = drawingObjects();
  const int user = userObjects();
  const UniqueGdi<HBRUSH> brush(CreateSolidBrush(RGB(1, 2, 3)));
  const HWND extra =
      CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
  EXPECT_EQ(drawingObjects(), drawing + 1);
  EXPECT_GE(userObjects(), user + 1);
  DestroyWindow(extra);
}

TEST_F(HandleTest, OpeningAndUnloadingFiftyTimesLeavesNothingBehind) {
  for (int i = 0; i < 5; ++i) openAndUnload();  // what the system keeps for good
  const int drawing = drawingObjects();
  const int user = userObjects();
  for (int i = 0; i < 50; ++i) openAndUnload();
  EXPECT_LE(drawingObjects(), drawing + 5);
  EXPECT_LE(userObjects(), user + 5);
}

}  // namespace
}  // namespace tessivo::ui
