#include "prereq/CheckOSVersion.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

constexpr const char* kUnknown = "无法识别的操作系统";

struct Named {
  OsVersion version;
  const char* name;
  std::int32_t flag;
};

class CheckOSVersionTest : public testing::TestWithParam<Named> {};

TEST_P(CheckOSVersionTest, NamesTheSystem) {
  CheckOSVersion check(GetParam().version);
  EXPECT_EQ(check.strOSName(), kUnknown);
  EXPECT_EQ(check.enumOSVersionFlag(), 10);
  std::string name;
  std::int32_t flag = 0;
  check.getOSVersion(name, flag);
  EXPECT_EQ(name, GetParam().name);
  EXPECT_EQ(flag, GetParam().flag);
  EXPECT_EQ(check.strOSName(), GetParam().name);
  EXPECT_EQ(check.enumOSVersionFlag(), GetParam().flag);
}
INSTANTIATE_TEST_SUITE_P(
    Systems, CheckOSVersionTest,
    testing::Values(Named{{0, 3, 1}, "Windows 3.0", 11}, Named{{0, 9, 9}, "Windows 3.0", 11},
                    Named{{1, 4, 0}, "Windows 95", 12}, Named{{1, 4, 10}, "Windows 98", 13},
                    Named{{1, 4, 90}, "Windows Mellinnium", 14}, Named{{1, 4, 1}, kUnknown, 10},
                    Named{{1, 5, 0}, kUnknown, 10}, Named{{2, 3, 51}, "Windows NT 3.51", 151},
                    Named{{2, 3, 1}, "Windows NT 3.51", 151},
                    Named{{2, 4, 0}, "Windows NT 4.0", 152}, Named{{2, 5, 0}, "Windows 2000", 16},
                    Named{{2, 5, 1}, "Windows XP", 17}, Named{{2, 5, 2}, "Windows Server 2003", 18},
                    Named{{2, 5, 3}, kUnknown, 10}, Named{{2, 6, 0}, "Windows Vista", 19},
                    Named{{2, 6, 2}, "Windows Vista", 19}, Named{{2, 10, 0}, kUnknown, 10},
                    Named{{3, 6, 0}, kUnknown, 10}));

}  // namespace
}  // namespace tessivo
