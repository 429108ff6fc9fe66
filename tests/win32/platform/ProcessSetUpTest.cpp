#include "platform/win32/ProcessSetUp.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tessivo {
namespace {

TEST(ProcessSetUpTest, NoBoxOfTheSystemIsShownForAnError) {
  const UINT before = GetErrorMode();
  SetErrorMode(0);
  setUpProcess();
  EXPECT_EQ(GetErrorMode(),
            UINT{SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX});
  SetErrorMode(before);
}

}  // namespace
}  // namespace tessivo
