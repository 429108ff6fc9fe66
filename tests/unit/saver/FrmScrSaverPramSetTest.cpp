#include "saver/frmScrSaverPramSet.h"

#include <gtest/gtest.h>

#include "fakes/FakeSaverSystem.h"
#include "fakes/NoToolkit.h"

namespace tessivo {
namespace {

constexpr TwipsPerPixel kTwips{15, 15};

class FrmScrSaverPramSetTest : public testing::Test {
 protected:
  FrmScrSaverPramSetTest() {
    pramSet.strProcName("clock");
    pramSet.lngFaceLeft(3000);
    pramSet.lngFaceTop(1500);
  }
  /// Opens the settings while `meanwhile` happens; the waiter closes by itself or not.
  void showWhile(const std::function<void()>& meanwhile) {
    toolkit.whenModal = [&](ui::Form&) { meanwhile(); };
    pramSet.showOver(toolkit, owner);
  }
  std::string show(const std::string& name, std::int32_t x, std::int32_t y,
                   const std::string& caption) {
    trace.add(name + ' ' + std::to_string(x) + ',' + std::to_string(y) + ' ' + caption);
    return "C:\\p\\SSP\\clock.exe";
  }

  Trace trace;
  VirtualTime time;
  FakeProcesses processes;
  NoToolkit toolkit;
  ui::Form owner{"owner", "", kTwips};
  frmScrSaverPramSet pramSet{
      {time, time, processes,
       [this](const std::string& name, std::int32_t x, std::int32_t y, const std::string& caption) {
         return show(name, x, y, caption);
       }},
      kTwips};
};

TEST_F(FrmScrSaverPramSetTest, IsNothingToSeeAndHasATitleOfItsOwn) {
  time.setDate({2026, 11, 21, 45'296'500});
  showWhile([this] {
    EXPECT_EQ(pramSet.width(), 0);
    EXPECT_EQ(pramSet.height(), 0);
    EXPECT_EQ(pramSet.frameStyle(), 0U);
    EXPECT_TRUE(pramSet.visible());
    EXPECT_EQ(pramSet.caption(), "45296.5213ScrSavPramSet");
  });
}

/// Milliseconds since midnight and the title's beginning.
struct Title {
  int msOfDay;
  const char* text;
};

class TitleTest : public FrmScrSaverPramSetTest, public testing::WithParamInterface<Title> {};

TEST_P(TitleTest, IsTheSecondsSinceMidnightInSinglePrecision) {
  time.setDate({2026, 11, 21, GetParam().msOfDay});
  showWhile(
      [this] { EXPECT_EQ(pramSet.caption(), GetParam().text + std::string("213ScrSavPramSet")); });
}

INSTANTIATE_TEST_SUITE_P(All, TitleTest,
                         testing::Values(Title{0, "0"}, Title{5, "0.005"}, Title{1'000, "1"},
                                         Title{12'340, "12.34"}, Title{60'000'000, "60000"},
                                         Title{86'399'999, "86400"},
                                         Title{86'399'120, "86399.12"}));

TEST_F(FrmScrSaverPramSetTest, TwoAtDifferentTimesHaveDifferentTitles) {
  std::string first;
  showWhile([&] { first = pramSet.caption(); });
  time.advance(1'500);
  showWhile([&] { EXPECT_NE(pramSet.caption(), first); });
}

TEST_F(FrmScrSaverPramSetTest, StaysNothingWhenItIsSized) {
  showWhile([this] {
    pramSet.setBounds({30, 45, 2000, 1000});
    EXPECT_EQ(pramSet.bounds(), (Rect{30, 45, 0, 0}));
  });
}

TEST_F(FrmScrSaverPramSetTest, OpensTheSettingsOnceAfterItsDelayAtThePlaceInPixels) {
  processes.run(400, "C:\\p\\SSP\\clock.exe");
  time.setDate({2026, 11, 21, 1'000});
  showWhile([this] {
    time.advance(199);
    EXPECT_EQ(trace.take(), "");
    time.advance(1);
    EXPECT_EQ(trace.take(), "clock 200,100 1213ScrSavPramSet");
    EXPECT_EQ(pramSet.bounds(), (Rect{3000, 1500, 0, 0}));
    time.advance(5'000);
    EXPECT_EQ(trace.take(), "");
  });
}

TEST_F(FrmScrSaverPramSetTest, PixelsAreRoundedHalfToEven) {
  pramSet.lngFaceLeft(15 * 20 + 7);
  pramSet.lngFaceTop(-15 * 20 - 8);
  showWhile([this] {
    time.advance(200);
    EXPECT_NE(trace.take().find("clock 20,-21 "), std::string::npos);
  });
}

TEST_F(FrmScrSaverPramSetTest, ThePlaceIsInTheOwnersTwips) {
  ui::Form other{"other", "", {10, 12}};
  toolkit.whenModal = [this](ui::Form&) {
    time.advance(200);
    EXPECT_NE(trace.take().find("clock 300,125 "), std::string::npos);
  };
  pramSet.showOver(toolkit, other);
}

TEST_F(FrmScrSaverPramSetTest, StaysWhileTheProgramRunsAndGoesWhenItHasEnded) {
  processes.run(400, "c:\\P\\ssp\\CLOCK.exe");
  showWhile([this] {
    time.advance(60'200);  // with the last of which it looks
    EXPECT_TRUE(pramSet.visible());
    EXPECT_FALSE(owner.enabled());
    processes.running.clear();
    time.advance(299);
    EXPECT_TRUE(pramSet.visible());
    time.advance(1);
    EXPECT_FALSE(pramSet.visible());
  });
  EXPECT_TRUE(owner.enabled());
}

TEST_F(FrmScrSaverPramSetTest, LooksEvery300MillisecondsAndNotBeforeTheSettingsAreOpened) {
  processes.run(400, "C:\\p\\SSP\\clock.exe");
  showWhile([this] {
    time.advance(200 + 299);
    EXPECT_TRUE(processes.asked.empty());
    time.advance(1);
    EXPECT_EQ(processes.asked.size(), 1U);
    time.advance(300);
    EXPECT_EQ(processes.asked.size(), 2U);
  });
}

TEST_F(FrmScrSaverPramSetTest, TwoCopiesMustBothHaveEnded) {
  processes.run(400, "C:\\p\\SSP\\clock.exe");
  processes.run(404, "C:\\p\\SSP\\clock.exe");
  showWhile([this] {
    time.advance(5'000);
    processes.running.pop_back();
    time.advance(5'000);
    EXPECT_TRUE(pramSet.visible());
    processes.running.clear();
    time.advance(300);
    EXPECT_FALSE(pramSet.visible());
  });
}

TEST_F(FrmScrSaverPramSetTest, AProgramOfThatNameElsewhereDoesNotCount) {
  processes.run(400, "C:\\q\\SSP\\clock.exe");
  showWhile([this] {
    time.advance(500);
    EXPECT_FALSE(pramSet.visible());
  });
}

TEST_F(FrmScrSaverPramSetTest, AProgramThatDidNotStartEndsItAtTheFirstLook) {
  showWhile([this] {
    time.advance(499);
    EXPECT_TRUE(pramSet.visible());
    time.advance(1);
    EXPECT_FALSE(pramSet.visible());
    EXPECT_EQ(time.running(), 0U);
  });
}

TEST_F(FrmScrSaverPramSetTest, ASearchThatFailsEndsIt) {
  processes.run(400, "C:\\p\\SSP\\clock.exe");
  showWhile([this] {
    time.advance(600);
    EXPECT_TRUE(pramSet.visible());
    processes.tells = false;
    time.advance(300);
    EXPECT_FALSE(pramSet.visible());
  });
}

TEST_F(FrmScrSaverPramSetTest, TheUserCanEndTheWaiting) {
  processes.run(400, "C:\\p\\SSP\\clock.exe");
  showWhile([this] {
    time.advance(5'000);
    pramSet.close();
    EXPECT_FALSE(pramSet.visible());
    EXPECT_EQ(time.running(), 0U);
  });
  EXPECT_TRUE(owner.enabled());
}

TEST_F(FrmScrSaverPramSetTest, GoneBeforeItsDelayItOpensNothing) {
  showWhile([this] {
    time.advance(100);
    pramSet.close();
    time.advance(5'000);
    EXPECT_EQ(trace.take(), "");
  });
}

TEST_F(FrmScrSaverPramSetTest, CanBeShownAgain) {
  for (int i = 0; i < 2; ++i) {
    showWhile([this] {
      time.advance(500);
      EXPECT_FALSE(pramSet.visible());
    });
    EXPECT_NE(trace.take(), "");
  }
}

TEST_F(FrmScrSaverPramSetTest, IsAboveEverythingWhenItsOwnerIs) {
  owner.setTopmost(true);
  showWhile([this] { EXPECT_TRUE(pramSet.topmost()); });
}

}  // namespace
}  // namespace tessivo
