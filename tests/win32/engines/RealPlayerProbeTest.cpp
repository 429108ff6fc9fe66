#include "screen/engines/real_player/RealPlayerProbe.h"

#include <algorithm>

#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

class RealPlayerProbeTest : public TestControlStage {};

TEST_F(RealPlayerProbeTest, AControlThatTakesASourceIsThere) {
  EXPECT_EQ(whyRealPlayerFails(), "");
  const auto record = takeRecord();
  EXPECT_EQ(std::count(record.begin(), record.end(), "102 put BSTR 00000"), 1)
      << testing::PrintToString(record);
  EXPECT_EQ(std::count_if(record.begin(), record.end(),
                          [](const std::string& line) { return line.starts_with("257 "); }),
            0);  // it is not played
  EXPECT_EQ(control->instances(), 0);
}

TEST_F(RealPlayerProbeTest, WithoutTheControlItSaysSo) {
  withdrawControl();
  EXPECT_EQ(whyRealPlayerFails(), "the RealPlayer control is not installed");
  offerControl();
  EXPECT_EQ(whyRealPlayerFails(), "");
}

TEST_F(RealPlayerProbeTest, AControlThatCannotBeActivatedIsNotThere) {
  control->refuseActivation(E_FAIL);
  EXPECT_EQ(whyRealPlayerFails(), "the RealPlayer control cannot be made: 0x80004005");
  EXPECT_EQ(control->instances(), 0);
}

TEST_F(RealPlayerProbeTest, AControlThatFailsTheCallIsNotThere) {
  control->failCalls(E_ACCESSDENIED);
  EXPECT_NE(whyRealPlayerFails().find("member 102 failed: 0x80070005"), std::string::npos);
  EXPECT_EQ(control->instances(), 0);
}

TEST_F(RealPlayerProbeTest, NoWindowStays) {
  const auto windows = [] {
    int count = 0;
    const auto add = [](HWND, LPARAM into) {
      ++*reinterpret_cast<int*>(into);
      return TRUE;
    };
    EnumThreadWindows(GetCurrentThreadId(), add, reinterpret_cast<LPARAM>(&count));
    return count;
  };
  whyRealPlayerFails();  // whatever the system makes once for a thread
  const int before = windows();
  for (int i = 0; i < 10; ++i) whyRealPlayerFails();
  EXPECT_EQ(windows(), before);
}

}  // namespace
}  // namespace tessivo
