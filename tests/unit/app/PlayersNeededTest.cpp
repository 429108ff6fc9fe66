#include "app/PlayersNeeded.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using enum EngineChoice;

std::string needed(EngineChoice mediaPlayer, EngineChoice realPlayer) {
  const PlayersNeeded players = playersNeeded({mediaPlayer, realPlayer});
  return std::string(players.mediaPlayer ? "media " : "") + (players.realPlayer ? "real" : "");
}

TEST(PlayersNeededTest, WithoutAWordOnEnginesBothAreNeeded) {
  const PlayersNeeded players = playersNeeded({});
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

}  // namespace
}  // namespace tessivo
