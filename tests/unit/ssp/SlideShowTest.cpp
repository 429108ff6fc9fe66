#include "ssp/SlideShow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "fakes/Trace.h"
#include "fakes/VirtualTime.h"

namespace tessivo::ssp {
namespace {

using Names = std::optional<std::vector<std::string>>;

/// "x0.jpg" and so on: damaged ones.
Names damaged(int count) {
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) names.push_back("x" + std::to_string(i) + ".jpg");
  return names;
}

struct SlideShowTest : ::testing::Test, SlideStage {
  void list(const std::string& path) override {
    ++looks;
    isListing_ = true;
    EXPECT_EQ(path, "C:\\p");
  }
  void load(const std::string& path) override {
    trace.add("load " + path.substr(path.rfind('\\') + 1));
    path_ = path;
    ++loads;
  }
  void show() override { trace.add("show"); }
  void showNotice() override { trace.add("notice"); }

  /// Answers what was asked for, until nothing is; files that begin with "x" are damaged.
  void answer() {
    while (isListing_ || !path_.empty()) {
      if (std::exchange(isListing_, false)) {
        slides.listed(names);
        continue;
      }
      const std::string path = std::exchange(path_, "");
      slides.loaded(isHealed || path[path.rfind('\\') + 1] != 'x');
    }
  }
  /// Second by second; what is asked for is answered within each.
  void seconds(int count) {
    for (int i = 0; i < count; ++i) {
      time.advance(1000);
      answer();
    }
  }
  int loadsIn(int count) {
    const int before = loads;
    seconds(count);
    return loads - before;
  }
  /// A stay goes by; what is asked for meanwhile is answered at once.
  std::string stay() {
    time.advance(3000);
    answer();
    return trace.take();
  }
  std::string begin(Names files) {
    names = std::move(files);
    slides.start();
    answer();
    return trace.take();
  }

  VirtualTime time;
  Names names;  ///< the folder's files; nothing: it is not there
  int looks = 0;
  int loads = 0;
  bool isHealed = false;  ///< the damaged ones can be read
  Trace trace;
  bool isListing_ = false;
  std::string path_;
  SlideShow slides{time, *this, {"C:\\p", 3, PictureOrder::byName}, 1};
};

TEST_F(SlideShowTest, FirstPictureIsShownAsSoonAsItIsThereAndTheNextFetched) {
  EXPECT_EQ(begin({{"b.jpg", "a.jpg"}}), "load a.jpg | show | load b.jpg");
}

TEST_F(SlideShowTest, EachStaysItsTime) {
  begin({{"a.jpg", "b.jpg"}});
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  answer();
  EXPECT_EQ(trace.take(), "show | load a.jpg");
}

TEST_F(SlideShowTest, PictureThatIsLateIsShownWhenItComesAndStaysItsTime) {
  names = {{"a.jpg", "b.jpg"}};
  slides.start();
  slides.listed(names);
  slides.loaded(true);
  trace.take();
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
  slides.loaded(true);
  EXPECT_EQ(trace.take(), "show");
  slides.listed(names);
  EXPECT_EQ(trace.take(), "load a.jpg");
  slides.loaded(true);
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(SlideShowTest, FolderIsReadAnewForEachRound) {
  begin({{"a.jpg", "b.jpg"}});
  names = {{"a.jpg", "b.jpg", "c.jpg"}};
  EXPECT_EQ(stay(), "show | load a.jpg");
  EXPECT_EQ(stay(), "show | load b.jpg");
  EXPECT_EQ(stay(), "show | load c.jpg");
}

TEST_F(SlideShowTest, DamagedOnesAndOtherFilesAreLeftOut) {
  EXPECT_EQ(begin({{"a.jpg", "note.txt", "x1.jpg", "x2.jpg", "b.jpg"}}),
            "load a.jpg | show | load b.jpg");
  EXPECT_EQ(stay(), "show | load x1.jpg | load x2.jpg | load a.jpg");
  EXPECT_EQ(stay(), "show | load b.jpg");
  EXPECT_EQ(stay(), "show | load a.jpg");
}

TEST_F(SlideShowTest, SinglePictureStaysAndIsNotFetchedAgain) {
  EXPECT_EQ(begin({{"a.jpg"}}), "load a.jpg | show");
  const int before = looks;
  EXPECT_EQ(stay(), "");
  EXPECT_EQ(stay(), "");
  EXPECT_EQ(looks, before + 2);
  names = {{"a.jpg", "b.jpg"}};
  stay();
  EXPECT_EQ(stay(), "load b.jpg");
  EXPECT_EQ(stay(), "show | load a.jpg");
}

TEST_F(SlideShowTest, OneGoodAmongDamagedOnesStaysAndTheyAreNotTriedAgain) {
  EXPECT_EQ(begin({{"a.jpg", "x.jpg"}}), "load a.jpg | show | load x.jpg");
  EXPECT_EQ(stay(), "");
  EXPECT_EQ(stay(), "");
}

TEST_F(SlideShowTest, WithoutPicturesThereIsTheNoticeAndALookEvery30Seconds) {
  EXPECT_EQ(begin({{"note.txt"}}), "notice");
  const int before = looks;
  time.advance(29'999);
  EXPECT_EQ(looks, before);
  time.advance(1);
  answer();
  EXPECT_EQ(looks, before + 1);
  EXPECT_EQ(trace.take(), "notice");
  names = {{"a.jpg"}};
  time.advance(30'000);
  answer();
  EXPECT_EQ(trace.take(), "load a.jpg | show");
  time.advance(60'000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(SlideShowTest, FolderThatIsNotThereIsLikeOneWithoutPictures) {
  EXPECT_EQ(begin(std::nullopt), "notice");
}

TEST_F(SlideShowTest, OnlyDamagedOnesAreNoPictures) {
  EXPECT_EQ(begin({{"x1.jpg", "x2.jpg"}}), "load x1.jpg | load x2.jpg | notice");
}

TEST_F(SlideShowTest, WhenAllHaveFailedTheyAreTriedOnceMoreOneASecond) {
  begin({{"x1.jpg", "x2.jpg"}});
  time.advance(30'000);
  answer();
  EXPECT_EQ(trace.take(), "notice");
  seconds(1);
  EXPECT_EQ(trace.take(), "load x1.jpg | notice");
  seconds(1);
  EXPECT_EQ(trace.take(), "load x2.jpg | notice");
  EXPECT_EQ(loadsIn(30), 0);
  EXPECT_EQ(loadsIn(2), 2);
}

TEST_F(SlideShowTest, FilesThatHaveFailedForATimeAreShownAgainAsBefore) {
  begin({{"x1.jpg", "x2.jpg"}});
  isHealed = true;
  seconds(31);
  EXPECT_EQ(trace.take(), "notice | load x1.jpg | show | load x2.jpg");
  seconds(3);
  EXPECT_EQ(trace.take(), "show | load x1.jpg");
  seconds(3);
  EXPECT_EQ(trace.take(), "show | load x2.jpg");
}

TEST_F(SlideShowTest, After20InARowOneASecondIsTriedBelowTheNotice) {
  EXPECT_THAT(begin(damaged(1000)), ::testing::EndsWith("load x115.jpg | notice"));
  EXPECT_EQ(loads, 20);
  EXPECT_EQ(loadsIn(60), 60);
}

TEST_F(SlideShowTest, APictureAmongManyDamagedOnesIsShownAtOnceAndEndsThePauses) {
  auto files = damaged(30);
  files->push_back("x25 but good.jpg");
  files->back().front() = 'w';  // the first one by name
  begin(files);
  EXPECT_EQ(loads, 21);
  trace.take();
  // The picture stays while the damaged ones are tried.
  seconds(5);
  EXPECT_THAT(trace.take(), ::testing::Not(::testing::HasSubstr("notice")));
  seconds(5);
  EXPECT_EQ(loads, 31);
  // Then come rounds without them.
  files->push_back("y.jpg");
  names = files;
  trace.take();
  seconds(12);
  const std::string shown = trace.take();
  EXPECT_THAT(shown, ::testing::HasSubstr("load y.jpg | show | load w25 but good.jpg | show"));
  EXPECT_THAT(shown, ::testing::Not(::testing::HasSubstr("load x")));
}

TEST_F(SlideShowTest, ThePictureAfterManyDamagedOnesIsSeenAtOnce) {
  auto files = damaged(22);
  files->push_back("y.jpg");
  files->push_back("z.jpg");
  begin(files);
  trace.take();
  seconds(2);
  EXPECT_EQ(trace.take(), "load x8.jpg | notice | load x9.jpg | notice");
  seconds(1);
  EXPECT_EQ(trace.take(), "load y.jpg | show | load z.jpg");
}

TEST_F(SlideShowTest, NoMoreThan10000NamesAreRemembered) {
  begin(damaged(10'050));
  seconds(10'030);
  EXPECT_EQ(loads, 10'050);
  // Not all of them are known to have failed: those that are not are tried, one a second.
  EXPECT_EQ(loadsIn(30), 0);
  EXPECT_EQ(loadsIn(50), 50);
  EXPECT_EQ(loadsIn(30), 0);
}

TEST_F(SlideShowTest, FolderThatDoesNotAnswerIsWaitedForWithoutAskingAgain) {
  slides.start();
  time.advance(3'600'000);
  EXPECT_EQ(looks, 1);
  EXPECT_EQ(trace.take(), "");
  names = {{"a.jpg"}};
  answer();
  EXPECT_EQ(trace.take(), "load a.jpg | show");
}

TEST_F(SlideShowTest, PictureStaysWhileItsFolderDoesNotAnswer) {
  begin({{"a.jpg", "b.jpg"}});
  stay();
  time.advance(3000);
  const int before = looks;
  isListing_ = false;
  time.advance(3'600'000);
  EXPECT_LE(looks, before + 1);
  EXPECT_THAT(trace.take(), ::testing::Not(::testing::HasSubstr("notice")));
}

TEST_F(SlideShowTest, PictureThatIsNeverReadLeavesTheOneBeforeIt) {
  names = {{"a.jpg", "b.jpg"}};
  slides.start();
  slides.listed(names);
  slides.loaded(true);
  EXPECT_EQ(trace.take(), "load a.jpg | show | load b.jpg");
  time.advance(3'600'000);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(looks, 1);
}

TEST_F(SlideShowTest, AnswersThatNobodyWaitsForChangeNothing) {
  slides.listed({{"z.jpg"}});
  slides.loaded(true);
  EXPECT_EQ(trace.take(), "");
  slides.start();
  slides.loaded(true);
  EXPECT_EQ(trace.take(), "");
  slides.listed({{"a.jpg", "b.jpg"}});
  slides.listed({{"y.jpg", "z.jpg"}});
  EXPECT_EQ(trace.take(), "load a.jpg");
  slides.loaded(true);
  slides.listed({{"y.jpg", "z.jpg"}});
  EXPECT_EQ(trace.take(), "show | load b.jpg");
  slides.loaded(true);
  slides.loaded(false);
  time.advance(3000);
  EXPECT_EQ(trace.take(), "show");
}

TEST_F(SlideShowTest, AfterTheNoticePicturesStayTheirTime) {
  begin(std::nullopt);
  names = {{"a.jpg", "b.jpg", "c.jpg", "d.jpg"}};
  time.advance(30'000);
  answer();
  trace.take();
  const int before = looks;
  // Nothing of the wait for the folder goes on: a stay of each is 3 s, the round 12 s long.
  seconds(120);
  EXPECT_EQ(looks, before + 10);
  EXPECT_EQ(trace.take().find("load a.jpg | load"), std::string::npos);
}

TEST_F(SlideShowTest, PicturesThatGoAreShownToTheEndOfTheirTime) {
  begin({{"a.jpg", "b.jpg"}});
  names = std::nullopt;
  EXPECT_EQ(stay(), "show");
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  answer();
  EXPECT_EQ(trace.take(), "notice");
}

TEST_F(SlideShowTest, SamePictureIsFetchedAgainAfterTheNotice) {
  begin({{"a.jpg"}});
  names = std::nullopt;
  stay();
  EXPECT_EQ(stay(), "notice");
  names = {{"a.jpg"}};
  time.advance(30'000);
  answer();
  EXPECT_EQ(trace.take(), "load a.jpg | show");
}

}  // namespace
}  // namespace tessivo::ssp
