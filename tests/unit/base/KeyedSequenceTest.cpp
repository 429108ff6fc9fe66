#include "base/KeyedSequence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace tessivo {
namespace {

struct Row {
  std::string key;
};
using RowPtr = std::shared_ptr<Row>;
struct KeyOfRow {
  const std::string& operator()(const RowPtr& row) const { return row->key; }
};
using Rows = KeyedSequence<RowPtr, KeyOfRow>;

RowPtr row(const std::string& key) {
  return std::make_shared<Row>(Row{key});
}

Rows rowsWithKeys(const std::vector<std::string>& keys) {
  Rows rows;
  for (const auto& key : keys) rows.append(row(key));
  return rows;
}

std::string keysOf(const Rows& rows) {
  std::string text;
  rows.forEach([&](const RowPtr& item) { text += item->key + " "; });
  return text;
}

TEST(KeyedSequence, KeepsTheOrderOfAppending) {
  const auto rows = rowsWithKeys({"c", "a", "b"});
  EXPECT_EQ(keysOf(rows), "c a b ");
  EXPECT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows.at(1)->key, "a");
}

TEST(KeyedSequence, FindsByKeyWithoutRegardToCase) {
  const auto rows = rowsWithKeys({"Fa1", "Fb2"});
  ASSERT_NE(rows.find("fB2"), nullptr);
  EXPECT_EQ((*rows.find("fB2"))->key, "Fb2");
  EXPECT_EQ(rows.indexOfKey("FB2"), 1u);
  EXPECT_EQ(rows.find("Fc3"), nullptr);
  EXPECT_EQ(rows.indexOfKey("Fc3"), std::nullopt);
}

TEST(KeyedSequence, OfSeveralWithOneKeyTheFirstIsFound) {
  auto rows = rowsWithKeys({"x", "same", "same", "same"});
  EXPECT_EQ(rows.indexOfKey("same"), 1u);
  EXPECT_EQ(rows.indexOf(rows.at(3)), 3u);
  rows.erase(1);
  EXPECT_EQ(rows.indexOfKey("same"), 1u);
  rows.swapWithNext(0);
  EXPECT_EQ(rows.indexOfKey("same"), 0u);
}

TEST(KeyedSequence, ErasingClosesTheGap) {
  auto rows = rowsWithKeys({"a", "b", "c", "d"});
  rows.erase(1);
  EXPECT_EQ(keysOf(rows), "a c d ");
  EXPECT_EQ(rows.at(1)->key, "c");
  EXPECT_EQ(rows.indexOfKey("d"), 2u);
  EXPECT_EQ(rows.find("b"), nullptr);
}

TEST(KeyedSequence, SwapsNeighboursAcrossAGap) {
  auto rows = rowsWithKeys({"a", "b", "c", "d"});
  rows.erase(1);
  rows.swapWithNext(0);
  EXPECT_EQ(keysOf(rows), "c a d ");
  EXPECT_EQ(rows.indexOfKey("a"), 1u);
  EXPECT_EQ(rows.indexOfKey("c"), 0u);
}

TEST(KeyedSequence, WalksToNeighboursAcrossAGap) {
  auto rows = rowsWithKeys({"a", "b", "c", "d"});
  rows.erase(1);
  rows.erase(1);
  EXPECT_EQ((*rows.next(rows.at(0)))->key, "d");
  EXPECT_EQ((*rows.previous(rows.at(1)))->key, "a");
  EXPECT_EQ(rows.next(rows.at(1)), nullptr);
  EXPECT_EQ(rows.previous(rows.at(0)), nullptr);
}

TEST(KeyedSequence, AnItemThatIsNotInTheListHasNoPlaceAndNoNeighbours) {
  const auto rows = rowsWithKeys({"a", "b"});
  const auto stranger = row("a");
  EXPECT_FALSE(rows.contains(stranger));
  EXPECT_EQ(rows.indexOf(stranger), std::nullopt);
  EXPECT_EQ(rows.next(stranger), nullptr);
  EXPECT_EQ(rows.previous(stranger), nullptr);
}

TEST(KeyedSequence, EmptiedItIsAsNewAndHandsOutWhatItHad) {
  auto rows = rowsWithKeys({"a", "b", "c"});
  rows.erase(1);
  const auto all = rows.takeAll();
  ASSERT_EQ(all.items.size(), 3u);
  EXPECT_EQ((*all.items[0])->key, "a");
  EXPECT_EQ(all.items[1], std::nullopt);
  EXPECT_EQ((*all.items[2])->key, "c");
  EXPECT_EQ(all.byKey, (Rows::ByKey{{"A", 0}, {"C", 2}}));
  EXPECT_TRUE(rows.empty());
  EXPECT_EQ(rows.find("a"), nullptr);
  rows.append(row("z"));
  EXPECT_EQ(keysOf(rows), "z ");
}

TEST(KeyedSequence, LetsGoOfErasedItems) {
  Rows rows;
  const auto item = row("a");
  rows.append(item);
  rows.append(row("b"));
  rows.erase(0);
  EXPECT_EQ(item.use_count(), 1);
}

TEST(KeyedSequence, StaysRightWhenNearlyEverythingIsErased) {
  Rows rows;
  for (int i = 0; i < 2000; ++i) rows.append(row(std::to_string(i)));
  while (rows.size() > 3) rows.erase(rows.size() / 2 - 1);
  ASSERT_EQ(rows.size(), 3u);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(rows.indexOfKey(rows.at(i)->key), i);
  EXPECT_EQ(rows.at(2)->key, "1999");
}

/// The same operations on a plain vector.
class KeyedSequenceWalk : public testing::Test {
 protected:
  void stepAtRandom() {
    const auto index = model.empty() ? 0 : random() % model.size();
    switch (random() % 7) {
      case 0:
      case 1:
      case 2:
        model.push_back(row(std::to_string(random() % 300)));
        rows.append(model.back());
        break;
      case 3:
      case 4:
        if (model.empty()) break;
        model.erase(model.begin() + static_cast<std::ptrdiff_t>(index));
        rows.erase(index);
        break;
      case 5:
        if (index + 1 >= model.size()) break;
        std::swap(model[index], model[index + 1]);
        rows.swapWithNext(index);
        break;
      default:
        if (random() % 200 == 0) {
          while (model.size() > 5) {
            model.pop_back();
            rows.erase(model.size());
          }
        }
        break;
    }
  }

  void compareAround(std::size_t index) {
    ASSERT_EQ(rows.at(index), model[index]);
    ASSERT_EQ(rows.indexOf(model[index]), index);
    const auto first = std::find_if(model.begin(), model.end(), [&](const RowPtr& item) {
      return item->key == model[index]->key;
    });
    ASSERT_EQ(*rows.find(model[index]->key), *first);
    const auto* next = rows.next(model[index]);
    ASSERT_EQ(next ? *next : nullptr, index + 1 < model.size() ? model[index + 1] : nullptr);
    const auto* previous = rows.previous(model[index]);
    ASSERT_EQ(previous ? *previous : nullptr, index > 0 ? model[index - 1] : nullptr);
  }

  std::mt19937 random{20261120};
  Rows rows;
  std::vector<RowPtr> model;
};

TEST_F(KeyedSequenceWalk, EqualsAPlainVectorOverTenThousandSteps) {
  for (int step = 0; step < 10000; ++step) {
    stepAtRandom();
    ASSERT_EQ(rows.size(), model.size());
    if (model.empty()) continue;
    ASSERT_NO_FATAL_FAILURE(compareAround(random() % model.size()));
  }
}

}  // namespace
}  // namespace tessivo
