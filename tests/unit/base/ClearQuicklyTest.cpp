#include "base/ClearQuickly.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <unordered_map>

#include "base/KeyedSequence.h"

namespace tessivo {
namespace {

struct Ends {
  std::atomic<int> here = 0;
  std::atomic<int> elsewhere = 0;
  const std::thread::id home = std::this_thread::get_id();
};

/// Counts its end, by thread.
struct Element {
  explicit Element(std::shared_ptr<Ends> counts) : ends(std::move(counts)) {}
  Element(const Element&) = delete;
  Element& operator=(const Element&) = delete;
  ~Element() {
    auto& count = std::this_thread::get_id() == ends->home ? ends->here : ends->elsewhere;
    ++count;
    count.notify_all();
  }
  const std::string key = "same";
  const std::shared_ptr<Ends> ends;
};
struct KeyOfElement {
  const std::string& operator()(const std::unique_ptr<Element>& element) const {
    return element->key;
  }
};
using Sequence = KeyedSequence<std::unique_ptr<Element>, KeyOfElement>;

Sequence elements(int count, const std::shared_ptr<Ends>& ends) {
  Sequence all;
  for (int i = 0; i < count; ++i) all.append(std::make_unique<Element>(ends));
  return all;
}

void waitForAll(int count, std::atomic<int>& ended) {
  for (int now = ended; now < count; now = ended) ended.wait(now);
}

TEST(ClearQuickly, FewAreFreedAtOnce) {
  const auto ends = std::make_shared<Ends>();
  auto all = elements(100, ends);
  clearQuickly(all);
  EXPECT_TRUE(all.empty());
  EXPECT_EQ(ends->here, 100);
}

TEST(ClearQuickly, ManyAreFreedOnAnotherThread) {
  constexpr int kMany = 10500;
  const auto ends = std::make_shared<Ends>();
  auto all = elements(kMany, ends);
  clearQuickly(all);
  EXPECT_TRUE(all.empty());
  waitForAll(kMany, ends->elsewhere);
  EXPECT_EQ(ends->here, 0);
}

TEST(ClearQuickly, WhoeverFreesElsewhereWaitsForItInTheEnd) {
  constexpr int kMany = 50000;
  const auto ends = std::make_shared<Ends>();
  {
    FreedElsewhere elsewhere;
    elsewhere.free(elements(kMany, ends).takeAll().items);
  }
  EXPECT_EQ(ends->elsewhere, kMany);
  EXPECT_EQ(ends->here, 0);
}

TEST(ClearQuickly, OneContainerAfterTheOtherIsFreedElsewhere) {
  constexpr int kMany = 2500;
  const auto ends = std::make_shared<Ends>();
  {
    std::unordered_multimap<int, std::unique_ptr<Element>> byNumber;
    for (int i = 0; i < kMany; ++i) byNumber.emplace(i / 2, std::make_unique<Element>(ends));
    FreedElsewhere elsewhere;
    elsewhere.free(elements(kMany, ends).takeAll().items, std::move(byNumber));
  }
  EXPECT_EQ(ends->elsewhere, 2 * kMany);
  EXPECT_EQ(ends->here, 0);
}

}  // namespace
}  // namespace tessivo
