#include "screen/engines/ChosenEngineFactory.h"

#include <algorithm>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"
#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

using enum EngineChoice;

class ChosenEngineFactoryTest : public TestControlStage {
 protected:
  std::unique_ptr<MediaPlayerSlot> mediaPlayer(EngineChoice choice) {
    return ChosenEngineFactory({choice, control}, log)
        .createMediaPlayer(reinterpret_cast<WindowHandle>(stage));
  }
  std::unique_ptr<RealPlayerSlot> realPlayer(EngineChoice choice) {
    return ChosenEngineFactory({control, choice}, log)
        .createRealPlayer(reinterpret_cast<WindowHandle>(stage));
  }
  bool logged(const std::string& line) const {
    return std::find(log.lines.begin(), log.lines.end(), line) != log.lines.end();
  }
  static constexpr EngineChoice control = EngineChoice::control;
};

TEST_F(ChosenEngineFactoryTest, TheInstalledControlWhereItIsChosen) {
  for (const EngineChoice choice : {control, automatic}) {
    const auto real = realPlayer(choice);
    const auto* adapter = dynamic_cast<RealPlayerControl*>(real.get());
    ASSERT_NE(adapter, nullptr);
    EXPECT_TRUE(adapter->created());
    const auto media = mediaPlayer(choice);
    const auto* player = dynamic_cast<WindowsMediaPlayerControl*>(media.get());
    ASSERT_NE(player, nullptr);
    EXPECT_TRUE(player->created());
  }
  EXPECT_TRUE(logged("info RealPlayer slot: the installed control"));
  EXPECT_TRUE(logged("info Media Player slot: the installed control"));
}

TEST_F(ChosenEngineFactoryTest, TheEmbeddedEngineWhereItIsChosenWhateverIsInstalled) {
  EXPECT_NE(dynamic_cast<EmbeddedRealPlayer*>(realPlayer(embedded).get()), nullptr);
  EXPECT_NE(dynamic_cast<EmbeddedMediaPlayer*>(mediaPlayer(embedded).get()), nullptr);
  EXPECT_TRUE(logged("info RealPlayer slot: the embedded engine"));
  EXPECT_TRUE(logged("info Media Player slot: the embedded engine"));
}

TEST_F(ChosenEngineFactoryTest, WithoutTheControlTheEmbeddedEngineStandsIn) {
  withdrawControl();
  EXPECT_NE(dynamic_cast<EmbeddedRealPlayer*>(realPlayer(automatic).get()), nullptr);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"info the RealPlayer control is not installed",
                                                 "info RealPlayer slot: the embedded engine"}));
}

TEST_F(ChosenEngineFactoryTest, AControlThatCannotBeActivatedIsNone) {
  this->TestControlStage::control->refuseActivation(E_FAIL);
  EXPECT_NE(dynamic_cast<EmbeddedRealPlayer*>(realPlayer(automatic).get()), nullptr);
  EXPECT_TRUE(logged("error the RealPlayer control cannot be made: 0x80004005"));
}

TEST_F(ChosenEngineFactoryTest, NothingStandsInForTheControlAlone) {
  withdrawControl();
  const auto real = realPlayer(control);
  const auto* adapter = dynamic_cast<RealPlayerControl*>(real.get());
  ASSERT_NE(adapter, nullptr);
  EXPECT_FALSE(adapter->created());
  EXPECT_EQ(log.lines.back(), "error RealPlayer slot: empty, nothing plays in it");
  int errors = 0;
  real->errorMessage.listen([&errors] { ++errors; });
  real->setSource("C:\\a.rm");
  real->play();
  EXPECT_TRUE(waitFor([&errors] { return errors == 1; }, 5000));
}

}  // namespace
}  // namespace tessivo
