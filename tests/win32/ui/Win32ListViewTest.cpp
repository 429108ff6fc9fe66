#include "ui/win32/Win32ListView.h"

#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

class Win32ListViewTest : public OpenForm {
 protected:
  HWND list() const { return windowOf(form.lvRows); }
  LPARAM on(int row, int x = 100) const {
    RECT at = itemRect(list(), row, LVIR_BOUNDS);
    return MAKELPARAM(x, (at.top + at.bottom) / 2);
  }
  std::int32_t heightOf(int row) const {  // twips from the list's top
    const RECT at = itemRect(list(), row, LVIR_BOUNDS);
    return (at.top + at.bottom) / 2 * 15;
  }
};

TEST_F(Win32ListViewTest, ColumnsHaveTheirWidths) {
  EXPECT_EQ(SendMessageW(list(), LVM_GETCOLUMNWIDTH, 0, 0), 25);
  EXPECT_EQ(SendMessageW(list(), LVM_GETCOLUMNWIDTH, 1, 0), 233);
}

TEST_F(Win32ListViewTest, RowAtFindsTheRowAlsoAfterScrolling) {
  addRows(100);
  form.show();
  EXPECT_EQ(form.lvRows.rowAt(heightOf(2)), 2);
  EXPECT_EQ(form.lvRows.rowAt(0), -1);  // the header
  form.lvRows.ensureVisible(99);
  EXPECT_EQ(form.lvRows.rowAt(heightOf(98)), 98);
}

TEST_F(Win32ListViewTest, BelowTheLastRowThereIsNone) {
  addRows(1);
  EXPECT_EQ(form.lvRows.rowAt(2000), -1);
}

TEST_F(Win32ListViewTest, DoubleClickIsReportedAfterTheClick) {
  addRows(3);
  form.show();
  form.lvRows.onItemClick.listen([this](int) { form.steps.push_back("item"); });
  form.lvRows.onDoubleClick.listen([this] { form.steps.push_back("double"); });
  clickAt(list(), on(1));
  pressAndRelease(list(), WM_LBUTTONDBLCLK, WM_LBUTTONUP, MK_LBUTTON, on(1));
  const std::string trace = form.trace();
  EXPECT_EQ(trace.substr(0, 4), "item");
  EXPECT_EQ(trace.substr(trace.size() - 6), "double");
  EXPECT_EQ(form.lvRows.selected(), 1);
}

TEST_F(Win32ListViewTest, RightButtonSelectsTheRowAndIsReleasedOnce) {
  addRows(3);
  form.show();
  form.lvRows.onMouseUp.listen([this](const MouseEvent& e) {
    form.steps.push_back("up " + std::to_string(static_cast<int>(e.button)) + " row " +
                         std::to_string(form.lvRows.rowAt(e.y)));
  });
  pressAndRelease(list(), WM_RBUTTONDOWN, WM_RBUTTONUP, MK_RBUTTON, on(2));
  EXPECT_EQ(form.trace(), "up 2 row 2");
  EXPECT_EQ(form.lvRows.selected(), 2);
}

TEST_F(Win32ListViewTest, ArrowKeySelectsAndIsAnItemClick) {
  addRows(3);
  form.show();
  form.lvRows.onItemClick.listen([this](int row) { form.steps.push_back(std::to_string(row)); });
  form.lvRows.select(0);
  SendMessageW(list(), WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(form.trace(), "1");
  EXPECT_EQ(form.lvRows.selected(), 1);
}

TEST_F(Win32ListViewTest, SpaceTicksTheSelectedRow) {
  addRows(3);
  form.lvRows.select(1);
  SendMessageW(list(), WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_TRUE(form.lvRows.row(1).checked);
  SendMessageW(list(), WM_KEYDOWN, VK_SPACE, 0);
  EXPECT_FALSE(form.lvRows.row(1).checked);
}

TEST_F(Win32ListViewTest, ClickBesideTheRowsKeepsTheSelection) {
  addRows(2);
  form.show();
  form.lvRows.select(1);
  clickAt(list(), MAKELPARAM(100, 140));
  EXPECT_EQ(form.lvRows.selected(), 1);
  EXPECT_EQ(SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
}

/// The reason why a file did not play may be longer than its column.
TEST_F(Win32ListViewTest, APointerThatComesToACellInOneMoveAndRestsGetsItsTip) {
  TestForm other;
  other.lvRows.setFirstColumnWithTips(2);
  toolkit.open(other);
  other.lvRows.append({"k", "0", {"片", "很长的原因"}});
  other.show();
  const HWND otherList = windowOf(other.lvRows);
  const RECT row = itemRect(otherList, 0, LVIR_BOUNDS);
  POINT point{300, (row.top + row.bottom) / 2};
  ClientToScreen(otherList, &point);
  handleWaiting();
  SetCursorPos(point.x, point.y);
  EXPECT_TRUE(eventually([] { return IsWindowVisible(toolTipsOfThisThread()); }));
  EXPECT_EQ(textOf(toolTipsOfThisThread()), "很长的原因");
}

TEST_F(Win32ListViewTest, ColumnWithoutAHeaderCannotBeDragged) {
  const HWND header = reinterpret_cast<HWND>(SendMessageW(list(), LVM_GETHEADER, 0, 0));
  NMHEADERW drag{};
  drag.hdr = {header, 0, static_cast<UINT>(HDN_BEGINTRACKW)};
  drag.iItem = 0;
  EXPECT_EQ(SendMessageW(list(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drag)), TRUE);
  drag.iItem = 1;
  EXPECT_EQ(SendMessageW(list(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drag)), FALSE);
}

TEST_F(Win32ListViewTest, BoldRowIsDrawnWithTheBoldFont) {
  addRows(2);
  form.lvRows.setTagAndBold(1, "1", true);
  const HDC dc = CreateCompatibleDC(nullptr);
  const auto weightOf = [&](int row) {
    NMLVCUSTOMDRAW drawing{};
    drawing.nmcd.hdr = {list(), 0, static_cast<UINT>(NM_CUSTOMDRAW)};
    drawing.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    drawing.nmcd.hdc = dc;
    drawing.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
    SendMessageW(windowOf(form.picPage), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drawing));
    LOGFONTW font{};
    GetObjectW(GetCurrentObject(dc, OBJ_FONT), sizeof font, &font);
    return font.lfWeight;
  };
  EXPECT_EQ(weightOf(1), FW_BOLD);
  EXPECT_EQ(weightOf(0), FW_NORMAL);
  DeleteDC(dc);
}

TEST_F(Win32ListViewTest, HundredThousandRowsComeOneByOneWithoutDelay) {
  constexpr int kRows = 100000;
  form.show();
  const ULONGLONG start = GetTickCount64();
  for (int i = 0; i < kRows; ++i) {
    const int row = form.lvRows.append({"k" + std::to_string(i), "0", {"片", "C:\\"}});
    form.lvRows.select(row);
    form.lvRows.ensureVisible(row);
  }
  const ULONGLONG took = GetTickCount64() - start;
  RecordProperty("milliseconds", static_cast<int>(took));
  EXPECT_EQ(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0), kRows);
  EXPECT_EQ(form.lvRows.rowAt(heightOf(kRows - 1)), kRows - 1);
  EXPECT_LT(took, 60000U);
}

TEST_F(Win32ListViewTest, OfRowsThatLieFarApartOnlyThoseInSightAreDrawnAnew) {
  addRows(5000);
  form.show();
  handleWaiting();
  static int asked = 0;
  asked = 0;
  const SUBCLASSPROC watch = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                DWORD_PTR) -> LRESULT {
    if (message == LVM_REDRAWITEMS) asked = static_cast<int>(lParam - static_cast<LPARAM>(wParam));
    return DefSubclassProc(window, message, wParam, lParam);
  };
  SetWindowSubclass(list(), watch, 99, 0);
  form.lvRows.setTagAndBold(0, "1", true);
  form.lvRows.setTagAndBold(4999, "1", true);
  handleWaiting();
  RemoveWindowSubclass(list(), watch, 99);
  EXPECT_LE(asked, static_cast<int>(SendMessageW(list(), LVM_GETCOUNTPERPAGE, 0, 0)) + 1);
}

TEST_F(Win32ListViewTest, ALetterSelectsNoOtherRow) {
  addRows(5);
  form.show();
  form.activate();
  form.lvRows.setFocus();
  form.lvRows.select(3);
  handleWaiting();
  constexpr LPARAM kScanCodeOfX = 0x2D0001;
  SendMessageW(list(), WM_CHAR, 'x', kScanCodeOfX);
  EXPECT_EQ(form.lvRows.selected(), 3);
}

TEST_F(Win32ListViewTest, LettersSelectTheRowWhoseTitleTheyBegin) {
  for (const char* const title : {".avi", ".mp3", ".mp4"}) {
    form.lvRows.append({title, "", {}, false, false, title});
  }
  form.show();
  form.activate();
  form.lvRows.setFocus();
  form.lvRows.select(0);
  handleWaiting();
  constexpr LPARAM kScanCodeOfM = 0x320001;
  SendMessageW(list(), WM_CHAR, 'm', kScanCodeOfM);
  EXPECT_EQ(form.lvRows.selected(), 1);
  for (const WPARAM letter : {'p', '4'}) SendMessageW(list(), WM_CHAR, letter, kScanCodeOfM);
  EXPECT_EQ(form.lvRows.selected(), 2);
}

TEST_F(Win32ListViewTest, APressThatBecomesADragSelectsItsRow) {
  addRows(5);
  NMLISTVIEW drag{};
  drag.hdr.hwndFrom = list();
  drag.iItem = 2;
  for (const UINT code : {LVN_BEGINDRAG, LVN_BEGINRDRAG}) {
    form.lvRows.select(0);
    drag.hdr.code = code;
    SendMessageW(GetParent(list()), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drag));
    EXPECT_EQ(form.lvRows.selected(), 2);
  }
}

}  // namespace
}  // namespace tessivo::ui
