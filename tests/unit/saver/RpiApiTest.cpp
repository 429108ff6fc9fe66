#include <gtest/gtest.h>

#include "fakes/FakeSaverSystem.h"
#include "saver/rpiAPI.h"

namespace tessivo {
namespace {

class SearchProcessTest : public testing::Test {
 protected:
  std::int32_t search(const std::string& path, const std::string& baseName = "") {
    fullPath = path;
    return rpiAPI::lngSearchProcess(processes, fullPath, baseName, count);
  }

  FakeProcesses processes;
  std::string fullPath;
  std::int32_t count = 99;
};

TEST_F(SearchProcessTest, FindsAnExecutableByItsPathWhateverTheCase) {
  processes.run(400, "C:\\p\\SSP\\Clock.exe");
  processes.run(404, "C:\\other\\Clock.exe");
  EXPECT_EQ(search("c:\\P\\ssp\\CLOCK.EXE"), 400);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(fullPath, "c:\\P\\ssp\\CLOCK.EXE");
}

TEST_F(SearchProcessTest, CountsAllAndReturnsTheLast) {
  processes.run(400, "C:\\a.exe");
  processes.run(404, "C:\\b.exe");
  processes.run(408, "C:\\a.exe");
  EXPECT_EQ(search("C:\\a.exe"), 408);
  EXPECT_EQ(count, 2);
}

TEST_F(SearchProcessTest, FindsNothing) {
  processes.run(400, "C:\\a.exe");
  EXPECT_EQ(search("C:\\b.exe"), 0);
  EXPECT_EQ(count, 0);
}

TEST_F(SearchProcessTest, ByBaseNameItAlsoTellsThePathOfTheLast) {
  processes.run(400, "C:\\x\\a.exe");
  processes.run(404, "C:\\y\\A.EXE");
  EXPECT_EQ(search("", "a.exe"), 404);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(fullPath, "C:\\y\\A.EXE");
}

TEST_F(SearchProcessTest, WithAPathTheBaseNameDoesNotCount) {
  processes.run(400, "C:\\a.exe");
  EXPECT_EQ(search("C:\\b.exe", "a.exe"), 0);
  EXPECT_EQ(search("C:\\a.exe", "b.exe"), 400);
}

TEST_F(SearchProcessTest, WithoutANameThereIsNothingToLookFor) {
  processes.run(400, "C:\\a.exe");
  EXPECT_EQ(search(""), -1);
  EXPECT_EQ(count, 0);
}

TEST_F(SearchProcessTest, WithoutAnAnswerOfTheSystemItFails) {
  processes.tells = false;
  EXPECT_EQ(search("C:\\a.exe"), -2);
  EXPECT_EQ(count, 99);
  EXPECT_EQ(search(""), -2);
}

TEST_F(SearchProcessTest, TheRoomGrowsUntilItIsNotFilled) {
  for (std::uint32_t i = 0; i < 24; ++i) processes.run(1000 + i, "C:\\a.exe");
  search("C:\\a.exe");
  EXPECT_EQ(processes.asked, std::vector<std::size_t>{25});
  EXPECT_EQ(count, 24);
  processes.asked.clear();
  processes.run(2000, "C:\\a.exe");  // exactly full: there may be more
  EXPECT_EQ(search("C:\\a.exe"), 2000);
  EXPECT_EQ(processes.asked, (std::vector<std::size_t>{25, 50}));
  EXPECT_EQ(count, 25);
  processes.asked.clear();
  for (std::uint32_t i = 0; i < 75; ++i) processes.run(3000 + i, "C:\\a.exe");
  EXPECT_EQ(search("C:\\a.exe"), 3074);
  EXPECT_EQ(processes.asked, (std::vector<std::size_t>{25, 50, 100, 200}));
  EXPECT_EQ(count, 100);
}

TEST_F(SearchProcessTest, ProcessesOfTheSystemHaveFixedNamesAndAreNotLookedAt) {
  processes.run(0, "C:\\none.exe");
  processes.run(2, "C:\\none.exe");
  processes.run(28, "C:\\none.exe");
  EXPECT_EQ(search("", "system"), 2);
  EXPECT_EQ(fullPath, "System");
  EXPECT_EQ(search("CSRSS.EXE"), 28);
  EXPECT_EQ(search("idle process"), 0);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(search("C:\\none.exe"), 0);
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(processes.looked.empty());
}

TEST_F(SearchProcessTest, AProcessThatMayNotBeLookedAtHasNoName) {
  processes.running.emplace_back(400, std::nullopt);
  processes.run(404, "C:\\a.exe");
  EXPECT_EQ(search("C:\\a.exe"), 404);
  EXPECT_EQ(count, 1);
}

}  // namespace
}  // namespace tessivo
