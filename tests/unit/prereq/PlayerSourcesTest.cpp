#include "prereq/PlayerSources.h"

#include <gtest/gtest.h>

#include <string>

namespace tessivo {
namespace {

struct Expected {
  std::int32_t flag;
  const char* mediaPlayer;  ///< "product|installer|page"
  const char* realPlayer;
};

std::string textOf(const PlayerSource& source) {
  return std::string(source.product) + '|' + source.installer + '|' + source.page;
}

class PlayerSourcesTest : public testing::TestWithParam<Expected> {};

TEST_P(PlayerSourcesTest, EachSystemHasItsOwn) {
  const PlayerSources& sources = playerSources(GetParam().flag);
  EXPECT_EQ(textOf(sources.mediaPlayer), GetParam().mediaPlayer);
  EXPECT_EQ(textOf(sources.realPlayer), GetParam().realPlayer);
}

constexpr const char* kMediaXp = "Windows Media Player 11|wmpInstall_XP.exe|wmpXP.htm";
constexpr const char* kRealXp = "RealPlayer 11|rpInstall_XP.exe|realXP.htm";
constexpr const char* kNoMediaOld = "||wmpW2000.htm";
constexpr const char* kNoRealOld = "||realW2000.htm";

INSTANTIATE_TEST_SUITE_P(
    Systems, PlayerSourcesTest,
    testing::Values(Expected{16, "Windows Media Player 9|wmpInstall_2000.exe|wmpW2000.htm",
                             "RealPlayer 10|rpInstall_2000.exe|realW2000.htm"},
                    Expected{17, kMediaXp, kRealXp}, Expected{18, kMediaXp, kRealXp},
                    Expected{19,
                             "Windows Media Player 11 for Vista|wmpInstall_Vista.exe|wmpVista.htm",
                             kRealXp},
                    Expected{10, "||wmpVista.htm", "||realXP.htm"},
                    Expected{11, kNoMediaOld, kNoRealOld}, Expected{12, kNoMediaOld, kNoRealOld},
                    Expected{13, kNoMediaOld, kNoRealOld}, Expected{14, kNoMediaOld, kNoRealOld},
                    Expected{151, kNoMediaOld, kNoRealOld},
                    Expected{152, kNoMediaOld, kNoRealOld}));

}  // namespace
}  // namespace tessivo
