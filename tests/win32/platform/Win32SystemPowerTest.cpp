// With the class that uses it: the actions' numbers are the system's.
#include "platform/win32/Win32SystemPower.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "saver/ScreenSaveAndPower.h"

namespace tessivo {
namespace {

BOOL isSaverActive() {
  BOOL active = FALSE;
  SystemParametersInfoW(SPI_GETSCREENSAVEACTIVE, 0, &active, 0);
  return active;
}

UINT saverTimeout() {
  UINT seconds = 0;
  SystemParametersInfoW(SPI_GETSCREENSAVETIMEOUT, 0, &seconds, 0);
  return seconds;
}

/// Puts back what was before the test.
class Win32SystemPowerTest : public testing::Test {
 protected:
  void TearDown() override {
    SystemParametersInfoW(SPI_SETSCREENSAVETIMEOUT, timeout_, nullptr, SPIF_UPDATEINIFILE);
    SystemParametersInfoW(SPI_SETSCREENSAVEACTIVE, static_cast<UINT>(active_), nullptr,
                          SPIF_UPDATEINIFILE);
    SetThreadExecutionState(ES_CONTINUOUS);
  }

  Win32SystemPower system;
  ScreenSaveAndPower saver{system};

 private:
  BOOL active_ = isSaverActive();
  UINT timeout_ = saverTimeout();
};

TEST_F(Win32SystemPowerTest, SystemsSaverIsSwitchedOffAndOn) {
  for (int round = 0; round < 2; ++round) {
    saver.CloseScreenSave();
    EXPECT_FALSE(isSaverActive());
    EXPECT_FALSE(saver.boolCurrentScreenSaveState());
    saver.OpenScreenSave();
    EXPECT_TRUE(isSaverActive());
    EXPECT_TRUE(saver.boolCurrentScreenSaveState());
  }
}

TEST_F(Win32SystemPowerTest, TimeoutIsSecondsOfTheSystem) {
  saver.SetScreenSaveTimeout(777);
  EXPECT_EQ(saverTimeout(), 777U);
  saver.SetScreenSaveTimeout(120);
  EXPECT_EQ(saverTimeout(), 120U);
}

TEST_F(Win32SystemPowerTest, UnknownActionIsRefused) {
  std::uint32_t word = 0;
  EXPECT_FALSE(system.systemParameters(0xFFFF, 0, word, 0));
}

/// The system tells which bits held before.
TEST_F(Win32SystemPowerTest, SleepAndDisplaysAreHeldOffAndLetGo) {
  constexpr DWORD kAwake = ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED;
  saver.DisEnablePowerSaver();
  EXPECT_EQ(system.setExecutionState(kAwake), kAwake);
  saver.EnablePowerSaver();
  EXPECT_EQ(system.setExecutionState(ES_CONTINUOUS), static_cast<std::uint32_t>(ES_CONTINUOUS));
}

}  // namespace
}  // namespace tessivo
