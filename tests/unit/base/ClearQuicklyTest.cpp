#include "base/ClearQuickly.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <vector>

namespace tessivo {
namespace {

struct Ends {
  std::atomic<int> here = 0;
  std::atomic<int> elsewhere = 0;
  const std::thread::id home = std::this_thread::get_id();
};

/// Counts its end, by thread.
struct Count {
  void operator()(Ends*) const {
    auto& count = std::this_thread::get_id() == ends->home ? ends->here : ends->elsewhere;
    ++count;
    count.notify_all();
  }
  std::shared_ptr<Ends> ends;
};
using Element = std::unique_ptr<Ends, Count>;

std::vector<Element> elements(int count, const std::shared_ptr<Ends>& ends) {
  std::vector<Element> all;
  for (int i = 0; i < count; ++i) all.emplace_back(ends.get(), Count{ends});
  return all;
}

TEST(ClearQuickly, FewAreFreedAtOnce) {
  const auto ends = std::make_shared<Ends>();
  auto all = elements(100, ends);
  clearQuickly(all);
  EXPECT_TRUE(all.empty());
  EXPECT_EQ(ends->here, 100);
}

TEST(ClearQuickly, ManyAreFreedOnAnotherThread) {
  constexpr int kMany = 20000;
  const auto ends = std::make_shared<Ends>();
  auto all = elements(kMany, ends);
  clearQuickly(all);
  EXPECT_TRUE(all.empty());
  for (int now = ends->elsewhere; now < kMany; now = ends->elsewhere) ends->elsewhere.wait(now);
  EXPECT_EQ(ends->here, 0);
}

}  // namespace
}  // namespace tessivo
