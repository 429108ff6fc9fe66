#include "ui/ListView.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/Trace.h"
#include "ui/PictureBox.h"

namespace tessivo::ui {
namespace {

class ListViewTest : public testing::Test {
 protected:
  void add(int count) {
    for (int i = 0; i < count; ++i) list.append({"k" + std::to_string(i), "0", {}, false, false});
  }
  std::string keys() const {
    std::string all;
    for (int i = 0; i < list.rowCount(); ++i) all += list.row(i).key + " ";
    return all;
  }

  ListView list{nullptr, "lv"};
};

TEST_F(ListViewTest, AppendTellsTheNewRowsNumber) {
  EXPECT_EQ(list.append({"a", "", {}, false, false}), 0);
  EXPECT_EQ(list.append({"b", "", {}, false, false}), 1);
}

TEST_F(ListViewTest, ATitleIsFoundByItsBeginningWithOrWithoutItsDot) {
  for (const char* const title : {".avi", ".mp3", ".mp4", "Mp"}) {
    list.append({title, "", {}, false, false, title});
  }
  EXPECT_EQ(list.findTitle("M", 0), 1);
  EXPECT_EQ(list.findTitle("mP4", 0), 2);
  EXPECT_EQ(list.findTitle(".mp", 2), 2);
  EXPECT_EQ(list.findTitle("mp", 3), 3);
  EXPECT_EQ(list.findTitle("a", 2), 0);  // round the end
  EXPECT_EQ(list.findTitle("m", 9), 1);
  EXPECT_EQ(list.findTitle("m", -1), 1);
  EXPECT_EQ(list.findTitle("p3", 0), -1);
  EXPECT_EQ(list.findTitle("mp34", 0), -1);
  EXPECT_EQ(list.findTitle("", 0), -1);
  list.clear();
  EXPECT_EQ(list.findTitle("m", 0), -1);
}

TEST_F(ListViewTest, RowsAreFoundByKey) {
  add(3);
  EXPECT_EQ(list.indexOf("k2"), 2);
  EXPECT_EQ(list.indexOf("K2"), 2);
  EXPECT_EQ(list.indexOf("nothing"), -1);
  list.remove(0);
  EXPECT_EQ(list.indexOf("k2"), 1);
}

TEST_F(ListViewTest, RowsWithoutAKeyAreRowsLikeOthers) {
  list.append({"", "a", {}, false, false});
  list.append({"", "b", {}, false, false});
  list.remove(0);
  ASSERT_EQ(list.rowCount(), 1);
  EXPECT_EQ(list.row(0).tag, "b");
}

TEST_F(ListViewTest, SelectionFollowsItsRowWhenOneBeforeItGoes) {
  add(4);
  list.select(2);
  list.remove(0);
  EXPECT_EQ(list.selected(), 1);
  list.remove(2);
  EXPECT_EQ(list.selected(), 1);
}

TEST_F(ListViewTest, RemovingTheSelectedRowSelectsNone) {
  add(2);
  list.select(1);
  list.remove(1);
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, ClearSelectsNone) {
  add(2);
  list.select(1);
  list.clear();
  EXPECT_EQ(list.selected(), -1);
  EXPECT_EQ(list.rowCount(), 0);
}

TEST_F(ListViewTest, SelectionFollowsASwapFromBothSides) {
  add(3);
  list.select(1);
  list.swapWithNext(1);
  EXPECT_EQ(list.selected(), 2);
  list.swapWithNext(1);
  EXPECT_EQ(list.selected(), 1);
  EXPECT_EQ(keys(), "k0 k1 k2 ");
}

TEST_F(ListViewTest, LastRowHasNoNeighbourToSwapWith) {
  add(2);
  list.swapWithNext(1);
  list.swapWithNext(-1);
  EXPECT_EQ(keys(), "k0 k1 ");
}

TEST_F(ListViewTest, RowNumbersOutsideTheListAreIgnored) {
  add(1);
  list.remove(5);
  list.remove(-1);
  list.setChecked(9, true);
  list.setTagAndBold(-1, "1", true);
  list.clickRow(3);
  list.tick(3, true);
  list.select(7);
  EXPECT_EQ(list.rowCount(), 1);
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, TickRaisesOnlyWhenItDiffers) {
  Trace trace;
  list.setHasCheckBoxes(true);
  list.onItemCheck.listen([&](int row) { trace.add(std::to_string(row)); });
  add(2);
  list.tick(1, true);
  list.tick(1, true);
  list.setChecked(0, true);
  EXPECT_EQ(trace.take(), "1");
}

TEST_F(ListViewTest, ListWithoutBoxesCannotBeTicked) {
  add(1);
  list.tick(0, true);
  EXPECT_FALSE(list.row(0).checked);
}

TEST_F(ListViewTest, DisabledListTakesNoClicks) {
  add(2);
  list.setEnabled(false);
  list.clickRow(1);
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, WithoutAPeerRowsHaveANominalHeight) {
  add(2);
  EXPECT_EQ(list.rowAt(ListView::kModelRowHeight), 1);
  EXPECT_EQ(list.rowAt(2 * ListView::kModelRowHeight), -1);
  EXPECT_EQ(list.rowAt(-1), -1);
}

/// What the peer is told, replayed: a peer that follows the calls alone ends where the model is.
class FollowingPeer : public ListViewPeer {
 public:
  void changed(Aspect) override {}
  void bringToFront() override {}
  void setFocus() override {}
  void repaint() override {}
  WindowHandle nativeHandle() const override { return 0; }
  void rowCountChanged(int count) override { rows = count; }
  void rowChanged(int) override {}
  void selectionChanged(int row) override { selection = row; }
  void ensureVisible(int) override {}
  int rowAt(std::int32_t) const override { return -1; }
  std::int32_t topOf(int) const override { return 0; }
  std::int32_t columnWidth(int) const override { return 0; }
  void columnWidthChanged(int) override {}

  int rows = 0;
  int selection = -1;
};

TEST_F(ListViewTest, RandomWalkKeepsRowsSelectionAndPeerTogether) {
  auto owned = std::make_unique<FollowingPeer>();
  FollowingPeer& peer = *owned;
  list.attachPeer(std::move(owned));
  std::vector<std::string> expected;
  std::string selectedKey;
  std::mt19937 random(7);
  for (int step = 0; step < 10000; ++step) {
    const int size = static_cast<int>(expected.size());
    const int at = size > 0 ? static_cast<int>(random() % static_cast<unsigned>(size)) : -1;
    switch (random() % 5) {
      case 0:
      case 1:
        expected.push_back("k" + std::to_string(step));
        list.append({expected.back(), "", {}, false, false});
        break;
      case 2:
        if (at < 0) break;
        if (expected[static_cast<std::size_t>(at)] == selectedKey) selectedKey.clear();
        expected.erase(expected.begin() + at);
        list.remove(at);
        break;
      case 3:
        if (at < 0 || at + 1 >= size) break;
        std::swap(expected[static_cast<std::size_t>(at)],
                  expected[static_cast<std::size_t>(at) + 1]);
        list.swapWithNext(at);
        break;
      default:
        if (at < 0) break;
        selectedKey = expected[static_cast<std::size_t>(at)];
        list.select(at);
    }
    ASSERT_EQ(list.rowCount(), static_cast<int>(expected.size()));
    ASSERT_EQ(peer.rows, list.rowCount());
    ASSERT_EQ(peer.selection, list.selected());
    ASSERT_EQ(list.selected() < 0 ? "" : list.row(list.selected()).key, selectedKey);
  }
  for (std::size_t i = 0; i < expected.size(); ++i) {
    ASSERT_EQ(list.row(static_cast<int>(i)).key, expected[i]);
  }
}

}  // namespace
}  // namespace tessivo::ui
