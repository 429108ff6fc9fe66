#include "platform/win32/Gdi.h"
#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

constexpr std::uintptr_t kHandleNumbers = 0x10000;

/// The drawing objects of the process. Where the system does not count them, each number is tried:
/// a handle without its upper half is taken there.
int drawingObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) {
    return static_cast<int>(count);
  }
  int count = 0;
  for (std::uintptr_t i = 1; i < kHandleNumbers; ++i) {
    count += GetObjectType(reinterpret_cast<HGDIOBJ>(i)) != 0;
  }
  return count;
}

/// The windows of the process, and what else the system counts with them.
int userObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) {
    return static_cast<int>(count);
  }
  int count = 0;
  for (std::uintptr_t i = 1; i < kHandleNumbers; ++i) {
    DWORD process = 0;
    GetWindowThreadProcessId(reinterpret_cast<HWND>(i), &process);
    count += process == GetCurrentProcessId();
  }
  return count;
}

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
