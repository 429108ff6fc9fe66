// A new path and a new rule while each of the four hops is in flight.
#include "unit/screen/PlaybackTrace.h"

namespace tessivo {
namespace {

enum class Hop { mediaPlay, realPlay, mediaErr, realErr };

struct HopCase {
  std::int32_t rule;
  Hop inFlight;
  const char* afterNewPath;
  std::int32_t newRule;
  const char* afterNewRule;
};

class HopInFlightTrace : public PlaybackTraceTest, public testing::WithParamInterface<HopCase> {
 protected:
  void SetUp() override {
    PlaybackTraceTest::SetUp();
    useRule(GetParam().rule);
    bringIntoFlight(GetParam().inFlight);
    ASSERT_TRUE(timer(GetParam().inFlight).enabled());
    ASSERT_EQ(screen.lngState(), playState::kStarting);
    trace.take();
  }

  ui::Timer& timer(Hop hop) {
    Playback& playback = screen.playback();
    if (hop == Hop::mediaPlay) return playback.timMediaPlayDelay;
    if (hop == Hop::realPlay) return playback.timRealPlayDelay;
    return hop == Hop::mediaErr ? playback.timMediaErrDelay : playback.timRealErrDelay;
  }

 private:
  /// Plays, and lets both engines fail one after the other, until the hop's timer runs.
  void bringIntoFlight(Hop hop) {
    play();
    if (timer(hop).enabled()) return;
    pass(1);
    const bool isErrorOfOther =
        hop == (screen.playback().mediaPlayerIsCurrent() ? Hop::realErr : Hop::mediaErr);
    if (GetParam().rule >= playRule::kRealOnly) {  // the other engine is never started
      if (hop == Hop::mediaPlay || hop == Hop::realPlay) return timer(hop).setEnabled(true);
      return isErrorOfOther ? otherFails() : currentFails();
    }
    currentFails();
    if (timer(hop).enabled()) return;
    pass(1);
    if (timer(hop).enabled()) return;
    pass(1);
    currentFails();
  }
};

TEST_P(HopInFlightTrace, ANewPathDropsIt) {
  screen.strFilePath("b");
  noteState();
  pass(10);
  EXPECT_EQ(trace.take(), GetParam().afterNewPath);
}

TEST_P(HopInFlightTrace, ANewRuleDropsIt) {
  screen.lngPlayRuler(GetParam().newRule);
  noteState();
  pass(10);
  EXPECT_EQ(trace.take(), GetParam().afterNewRule);
}

const HopCase kHopCases[] = {
    {0, Hop::realPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     3, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {0, Hop::realErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     3, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {0, Hop::mediaPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     3, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {0, Hop::mediaErr,
     "wmp stop | wmp position 0 | real show | wmp hide | wmp url b | real source b | =2",  //
     3, "wmp stop | wmp position 0 | =2"},

    {1, Hop::mediaPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     2, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {1, Hop::mediaErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     2, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {1, Hop::realPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     2, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {1, Hop::realErr,
     "wmp stop | wmp position 0 | wmp show | real hide | wmp url b | real source b | =2",  //
     2, "wmp stop | wmp position 0 | =2"},

    {2, Hop::realPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     1, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {2, Hop::realErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     1, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {2, Hop::mediaPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     1, "wmp stop | wmp position 0 | wmp show | real hide | =2"},
    {2, Hop::mediaErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     1, "wmp stop | wmp position 0 | wmp show | real hide | =2"},

    {3, Hop::mediaPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     0, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {3, Hop::mediaErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     0, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {3, Hop::realPlay, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     0, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
    {3, Hop::realErr, "wmp stop | wmp position 0 | wmp url b | real source b | =2",  //
     0, "wmp stop | wmp position 0 | real show | wmp hide | =2"},
};

std::string hopName(const testing::TestParamInfo<HopCase>& info) {
  const char* const names[] = {"timMediaPlayDelay", "timRealPlayDelay", "timMediaErrDelay",
                               "timRealErrDelay"};
  return "Rule" + std::to_string(info.param.rule) + "_" +
         names[static_cast<int>(info.param.inFlight)];
}

INSTANTIATE_TEST_SUITE_P(EveryRule, HopInFlightTrace, testing::ValuesIn(kHopCases), hopName);

}  // namespace
}  // namespace tessivo
