#include "ssp/SlideShow.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/Trace.h"
#include "fakes/VirtualTime.h"

namespace tessivo::ssp {
namespace {

/// A folder whose files whoever looks at it sees as they are then.
struct Folder : Files {
  bool fileExists(const std::string&) const override { return false; }
  std::optional<std::vector<std::string>> filesIn(const std::string& path) const override {
    ++looks;
    return path == "C:\\p" ? names : std::nullopt;
  }
  std::optional<std::vector<std::string>> names;
  mutable int looks = 0;
};

struct SlideShowTest : ::testing::Test, SlideStage {
  void load(const std::string& path) override {
    trace.add("load " + path.substr(path.rfind('\\') + 1));
    path_ = path;
  }
  void show() override { trace.add("show"); }
  void showNotice() override { trace.add("notice"); }

  /// Answers what was asked for, until nothing is; files that begin with "x" are damaged.
  void answer() {
    while (!path_.empty()) {
      const std::string path = std::exchange(path_, "");
      slides.loaded(path[path.rfind('\\') + 1] != 'x');
    }
  }
  /// A stay goes by; what is asked for meanwhile is answered at once.
  std::string stay() {
    time.advance(3000);
    answer();
    return trace.take();
  }
  std::string begin(std::optional<std::vector<std::string>> names) {
    folder.names = std::move(names);
    slides.start();
    answer();
    return trace.take();
  }

  VirtualTime time;
  Folder folder;
  Trace trace;
  std::string path_;
  SlideShow slides{folder, time, *this, {"C:\\p", 3, PictureOrder::byName}, 1};
};

TEST_F(SlideShowTest, FirstPictureIsShownAsSoonAsItIsThereAndTheNextFetched) {
  EXPECT_EQ(begin({{"b.jpg", "a.jpg"}}), "load a.jpg | show | load b.jpg");
}

TEST_F(SlideShowTest, EachStaysItsTime) {
  begin({{"a.jpg", "b.jpg"}});
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "show | load a.jpg");
}

TEST_F(SlideShowTest, PictureThatIsLateIsShownWhenItComesAndStaysItsTime) {
  folder.names = {{"a.jpg", "b.jpg"}};
  slides.start();
  slides.loaded(true);
  trace.take();
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
  slides.loaded(true);
  EXPECT_EQ(trace.take(), "show | load a.jpg");
  slides.loaded(true);
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(SlideShowTest, FolderIsReadAnewForEachRound) {
  begin({{"a.jpg", "b.jpg"}});
  folder.names = {{"a.jpg", "b.jpg", "c.jpg"}};
  EXPECT_EQ(stay(), "show | load a.jpg");
  EXPECT_EQ(stay(), "show | load b.jpg");
  EXPECT_EQ(stay(), "show | load c.jpg");
}

TEST_F(SlideShowTest, DamagedOnesAndOtherFilesAreLeftOut) {
  EXPECT_EQ(begin({{"a.jpg", "note.txt", "x1.jpg", "x2.jpg", "b.jpg"}}),
            "load a.jpg | show | load b.jpg");
  EXPECT_EQ(stay(), "show | load x1.jpg | load x2.jpg | load a.jpg");
  EXPECT_EQ(stay(), "show | load b.jpg");
}

TEST_F(SlideShowTest, SinglePictureStaysAndIsNotFetchedAgain) {
  EXPECT_EQ(begin({{"a.jpg"}}), "load a.jpg | show");
  const int looks = folder.looks;
  EXPECT_EQ(stay(), "");
  EXPECT_EQ(stay(), "");
  EXPECT_EQ(folder.looks, looks + 2);
  folder.names = {{"a.jpg", "b.jpg"}};
  stay();
  EXPECT_EQ(stay(), "load b.jpg");
  EXPECT_EQ(stay(), "show | load a.jpg");
}

TEST_F(SlideShowTest, OneGoodAmongDamagedOnesStays) {
  EXPECT_EQ(begin({{"a.jpg", "x.jpg"}}), "load a.jpg | show | load x.jpg");
  EXPECT_EQ(stay(), "load x.jpg");
  EXPECT_EQ(stay(), "load x.jpg");
}

TEST_F(SlideShowTest, WithoutPicturesThereIsTheNoticeAndALookEvery30Seconds) {
  EXPECT_EQ(begin({{"note.txt"}}), "notice");
  const int looks = folder.looks;
  time.advance(29'999);
  EXPECT_EQ(folder.looks, looks);
  time.advance(1);
  EXPECT_EQ(folder.looks, looks + 1);
  EXPECT_EQ(trace.take(), "notice");
  folder.names = {{"a.jpg"}};
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
  time.advance(30'000);
  answer();
  EXPECT_EQ(trace.take(), "load x1.jpg | load x2.jpg | notice");
}

TEST_F(SlideShowTest, PicturesThatGoAreShownToTheEndOfTheirTime) {
  begin({{"a.jpg", "b.jpg"}});
  folder.names = std::nullopt;
  EXPECT_EQ(stay(), "show");
  time.advance(2999);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "notice");
}

TEST_F(SlideShowTest, SamePictureIsFetchedAgainAfterTheNotice) {
  begin({{"a.jpg"}});
  folder.names = std::nullopt;
  stay();
  EXPECT_EQ(stay(), "notice");
  folder.names = {{"a.jpg"}};
  time.advance(30'000);
  answer();
  EXPECT_EQ(trace.take(), "load a.jpg | show");
}

}  // namespace
}  // namespace tessivo::ssp
