#include "app/PlayersNeeded.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum EngineChoice;

std::string needed(EngineChoice mediaPlayer, EngineChoice realPlayer, bool mediaFoundation = true) {
  const PlayersNeeded players =
      playersNeeded({mediaPlayer, realPlayer}, [=] { return mediaFoundation; });
  return std::string(players.mediaPlayer ? "media " : "") + (players.realPlayer ? "real" : "");
}

TEST(PlayersNeededTest, WithoutAWordOnEnginesBothAreNeeded) {
  const PlayersNeeded players = playersNeeded({}, [] { return true; });
  EXPECT_TRUE(players.mediaPlayer);
  EXPECT_TRUE(players.realPlayer);
}

TEST(PlayersNeededTest, ASlotWithAnEngineOfItsOwnNeedsNone) {
  EXPECT_EQ(needed(control, control), "media real");
  EXPECT_EQ(needed(embedded, control), "real");
  EXPECT_EQ(needed(automatic, control), "real");
  EXPECT_EQ(needed(control, embedded), "media ");
  EXPECT_EQ(needed(control, automatic), "media ");
  EXPECT_EQ(needed(automatic, automatic), "");
  EXPECT_EQ(needed(embedded, embedded), "");
}

TEST(PlayersNeededTest, WithoutMediaFoundationThatSlotHasNoEngineOfItsOwn) {
  EXPECT_EQ(needed(embedded, control, false), "media real");
  EXPECT_EQ(needed(automatic, automatic, false), "media ");
  EXPECT_EQ(needed(embedded, embedded, false), "media ");
  EXPECT_EQ(needed(control, automatic, false), "media ");
}

TEST(PlayersNeededTest, MediaFoundationIsNotLookedForWithoutNeed) {
  bool asked = false;
  playersNeeded({control, automatic}, [&] { return asked = true; });
  EXPECT_FALSE(asked);
}

}  // namespace
}  // namespace tessivo
