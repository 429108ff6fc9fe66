#include <gtest/gtest.h>

#include "screen/engines/real_player/EventShape.h"

namespace tessivo {
namespace {

using Notice = RealPlayerNotice;

EventArgument number(const std::string& name) {
  return {name, ArgumentKind::wholeNumber};
}
EventArgument text(const std::string& name) {
  return {name, ArgumentKind::text};
}

TEST(RealPlayerEventShapeTest, AnOldAndANewStateAreThePlayState) {
  EXPECT_EQ(meaningOf({number("lOldState"), number("lNewState")}),
            (EventMeaning{Notice::playState, 0, 1}));
  EXPECT_EQ(meaningOf({number("OLDSTATE"), number("newstate")}),
            (EventMeaning{Notice::playState, 0, 1}));
}

TEST(RealPlayerEventShapeTest, TheNewStateMayComeFirst) {
  EXPECT_EQ(meaningOf({number("NewState"), number("OldState")}),
            (EventMeaning{Notice::playState, 1, 0}));
}

TEST(RealPlayerEventShapeTest, ThreeTextsAreTheErrorMessageWhateverElseItCarries) {
  EXPECT_EQ(meaningOf({number("uSeverity"), number("uRMACode"), number("uUserCode"),
                       text("pUserString"), text("pMoreInfoURL"), text("pErrorString")})
                .notice,
            Notice::errorMessage);
  EXPECT_EQ(meaningOf({text("a"), text("b"), text("c")}).notice, Notice::errorMessage);
  EXPECT_EQ(meaningOf({text(""), text(""), text("")}).notice, Notice::errorMessage);
}

TEST(RealPlayerEventShapeTest, MoreOrFewerTextsAreNoErrorMessage) {
  EXPECT_EQ(meaningOf({text("url"), text("target")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({text("title"), text("author"), text("copyright"), text("clip")}).notice,
            Notice::none);
}

TEST(RealPlayerEventShapeTest, APositionAndALengthAreThePositionInEitherOrder) {
  EXPECT_EQ(meaningOf({number("lPos"), number("lLen")}), (EventMeaning{Notice::position, 0, 1}));
  EXPECT_EQ(meaningOf({number("Length"), number("Position")}),
            (EventMeaning{Notice::position, 1, 0}));
}

TEST(RealPlayerEventShapeTest, AnXAndAYAreAPointWhereverTheyStand) {
  EXPECT_EQ(meaningOf({number("lButtonFlags"), number("xPos"), number("yPos")}),
            (EventMeaning{Notice::mousePoint, 1, 2}));
  EXPECT_EQ(meaningOf({number("x"), number("y")}), (EventMeaning{Notice::mousePoint, 0, 1}));
  EXPECT_EQ(meaningOf({number("nY"), number("nX")}), (EventMeaning{Notice::mousePoint, 1, 0}));
}

TEST(RealPlayerEventShapeTest, OtherPairsOfNumbersMeanNothing) {
  EXPECT_EQ(meaningOf({number("lOldTime"), number("lNewTime")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({number("lFlags"), number("lPercentComplete")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({number("lOldPos"), number("lNewPos")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({number("lState"), number("lReason")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({number(""), number("")}).notice, Notice::none);
}

TEST(RealPlayerEventShapeTest, ANumberBesideThePairMakesItSomethingElse) {
  EXPECT_EQ(meaningOf({number("lOldState"), number("lNewState"), number("lWhy")}).notice,
            Notice::none);
  EXPECT_EQ(meaningOf({number("lPos"), number("lLen"), number("lFlags")}).notice, Notice::none);
}

TEST(RealPlayerEventShapeTest, ArgumentsThatAreNoWholeNumbersDoNotCount) {
  const EventArgument oldState{"oldState", ArgumentKind::other};
  EXPECT_EQ(meaningOf({oldState, number("newState")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({text("xText"), number("y")}).notice, Notice::none);
  EXPECT_EQ(meaningOf({{"pos", ArgumentKind::other}, number("len")}).notice, Notice::none);
}

TEST(RealPlayerEventShapeTest, OneNumberIsNotBothPositionAndLength) {
  EXPECT_EQ(meaningOf({number("lPosOrLen"), number("lFlags")}).notice, Notice::none);
}

TEST(RealPlayerEventShapeTest, AnEventWithoutArgumentsMeansNothing) {
  EXPECT_EQ(meaningOf({}).notice, Notice::none);
}

DescribedEvent event(const std::string& name, Notice notice) {
  return {name, {notice, 0, 1}};
}
/// What is left of them, by name.
std::vector<std::string> left(const std::vector<DescribedEvent>& events) {
  std::vector<std::string> names;
  for (const auto& each : events) {
    if (each.meaning.notice != Notice::none) names.push_back(each.name);
  }
  return names;
}
using Names = std::vector<std::string>;

TEST(RealPlayerEventShapeTest, OfSeveralEventsOfOneShapeTheOneWithTheNameIsLeft) {
  std::vector<DescribedEvent> events{
      event("OnShow", Notice::playState),       event("onplaystatechange", Notice::playState),
      event("OnScroll", Notice::position),      event("OnPositionChange", Notice::position),
      event("OnWarning", Notice::errorMessage), event("OnErrorMessage", Notice::errorMessage),
      event("OnPlayState2", Notice::playState)};
  EXPECT_EQ(leaveOneOfEach(events), (Names{"PlayState", "PositionChange", "ErrorMessage"}));
  EXPECT_EQ(left(events), (Names{"onplaystatechange", "OnPositionChange", "OnErrorMessage"}));
}

TEST(RealPlayerEventShapeTest, WhereNoneHasTheNameTheFirstIsLeft) {
  std::vector<DescribedEvent> events{event("A", Notice::position), event("B", Notice::position)};
  EXPECT_EQ(leaveOneOfEach(events), Names{"PositionChange"});
  EXPECT_EQ(left(events), Names{"A"});
}

TEST(RealPlayerEventShapeTest, OneEventOfAShapeIsLeftWhateverItsName) {
  std::vector<DescribedEvent> events{event("A", Notice::playState), event("B", Notice::position),
                                     event("C", Notice::errorMessage)};
  EXPECT_EQ(leaveOneOfEach(events), Names{});
  EXPECT_EQ(left(events), (Names{"A", "B", "C"}));
}

TEST(RealPlayerEventShapeTest, ManyEventsMayTellWhereTheMouseIs) {
  std::vector<DescribedEvent> events{event("OnMouseMove", Notice::mousePoint),
                                     event("OnLButtonDown", Notice::mousePoint)};
  EXPECT_EQ(leaveOneOfEach(events), Names{});
  EXPECT_EQ(left(events), (Names{"OnMouseMove", "OnLButtonDown"}));
}

}  // namespace
}  // namespace tessivo
