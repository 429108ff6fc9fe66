#include "ui/Icons.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <vector>

#include "platform/win32/Gdi.h"
#include "win32/ui/OpenForm.h"

namespace tessivo {
namespace {

constexpr int kAll[] = {
    icon::kProgram,          icon::kPlay,       icon::kPause,      icon::kStop,
    icon::kSoundOn,          icon::kMuted,      icon::kFullScreen, icon::kLeaveFullScreen,
    icon::kRepeatOne,        icon::kRepeatList, icon::kInOrder,    icon::kAdd,
    icon::kDelete,           icon::kMoveUp,     icon::kMoveDown,   icon::kClear,
    icon::kHideList,         icon::kShowList,   icon::kError,      icon::kTray,
    icon::kTrayOfOldWindows, icon::kMenu,       icon::kInstalled,
};

UniqueIcon load(int number, int side) {
  return UniqueIcon(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(number), IMAGE_ICON,
                                    side, side, LR_DEFAULTCOLOR)));
}

/// What an icon shows: blue, green, red, alpha from the lowest byte up, row by row.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  auto countOfAlpha(std::uint32_t alpha) const {
    return std::count_if(pixels.begin(), pixels.end(),
                         [alpha](std::uint32_t pixel) { return pixel >> 24 == alpha; });
  }
};

Picture pictureOf(HICON icon) {
  ICONINFO parts{};
  if (!GetIconInfo(icon, &parts)) return {};
  const UniqueGdi<HBITMAP> colour(parts.hbmColor);
  const UniqueGdi<HBITMAP> mask(parts.hbmMask);
  BITMAP size{};
  if (!GetObjectW(colour.get(), sizeof size, &size)) return {};
  Picture picture{size.bmWidth, size.bmHeight, {}};
  picture.pixels.resize(static_cast<std::size_t>(size.bmWidth) * size.bmHeight);
  BITMAPINFO wanted{};
  wanted.bmiHeader = {
      sizeof wanted.bmiHeader, size.bmWidth, -size.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC dc = CreateCompatibleDC(nullptr);
  GetDIBits(dc, colour.get(), 0, size.bmHeight, picture.pixels.data(), &wanted, DIB_RGB_COLORS);
  DeleteDC(dc);
  return picture;
}

/// The sizes that an icon brings along, each with its bits per pixel. (Loading would also make
/// others, by stretching.)
std::map<int, int> storedSizes(int number) {
  const HMODULE program = GetModuleHandleW(nullptr);
  const HRSRC found = FindResourceW(program, MAKEINTRESOURCEW(number), RT_GROUP_ICON);
  if (!found) return {};
  const auto* bytes = static_cast<const std::uint8_t*>(LockResource(LoadResource(program, found)));
  constexpr int kHeader = 6, kEntry = 14, kBits = 6;
  std::map<int, int> sizes;
  for (int i = 0; i < bytes[4]; ++i) {
    const std::uint8_t* entry = bytes + kHeader + i * kEntry;
    sizes[entry[0] == 0 ? 256 : entry[0]] = entry[kBits];  // 256 does not fit in the byte
  }
  return sizes;
}

BOOL CALLBACK noteNumber(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR out) {
  reinterpret_cast<std::set<int>*>(out)->insert(
      static_cast<int>(reinterpret_cast<ULONG_PTR>(name)));
  return TRUE;
}

TEST(IconsTest, TheProgramHasExactlyTheNamedIcons) {
  std::set<int> present;
  EnumResourceNamesW(GetModuleHandleW(nullptr), reinterpret_cast<LPCWSTR>(RT_GROUP_ICON),
                     noteNumber, reinterpret_cast<LONG_PTR>(&present));
  EXPECT_EQ(present, std::set<int>(std::begin(kAll), std::end(kAll)));
}

TEST(IconsTest, EveryIconBringsTheSizesOfTheUsualScales) {
  std::map<int, int> usual;
  for (const int side : {16, 20, 24, 28, 32, 40, 48, 64}) usual[side] = 32;
  for (const int number : kAll) {
    auto wanted = usual;
    if (number == icon::kProgram) wanted[256] = 32;
    EXPECT_EQ(storedSizes(number), wanted) << "icon " << number;
  }
}

TEST(IconsTest, EveryIconLoadsInTheSizeAskedFor) {
  for (const int number : kAll) {
    for (const int side : {16, 20, 24, 32}) {
      const Picture picture = pictureOf(load(number, side).get());
      EXPECT_EQ(picture.width, side) << "icon " << number;
      EXPECT_EQ(picture.height, side) << "icon " << number;
    }
  }
}

TEST(IconsTest, EveryIconIsClearInPlacesAndSolidInOthers) {
  for (const int number : kAll) {
    for (const int side : {16, 20, 24, 32}) {
      const Picture picture = pictureOf(load(number, side).get());
      EXPECT_GT(picture.countOfAlpha(0), side) << "icon " << number << " of " << side;
      EXPECT_GT(picture.countOfAlpha(255), side) << "icon " << number << " of " << side;
    }
  }
}

TEST(IconsTest, NoTwoIconsAreTheSamePicture) {
  for (const int side : {16, 20, 24, 32}) {
    std::map<std::vector<std::uint32_t>, int> seen;
    for (const int number : kAll) {
      const auto [other, isNew] =
          seen.try_emplace(pictureOf(load(number, side).get()).pixels, number);
      EXPECT_TRUE(isNew) << "icons " << number << " and " << other->second << " of " << side;
    }
  }
}

class FormIconTest : public ui::OpenForm {
 protected:
  Picture classIcon(int which) const {
    return pictureOf(reinterpret_cast<HICON>(GetClassLongPtrW(window(), which)));
  }
};

TEST_F(FormIconTest, WindowsCarryTheProgramsIconInBothSizes) {
  const Picture big = classIcon(GCLP_HICON);
  const Picture little = classIcon(GCLP_HICONSM);
  EXPECT_EQ(big.pixels, pictureOf(load(icon::kProgram, GetSystemMetrics(SM_CXICON)).get()).pixels);
  EXPECT_EQ(little.pixels,
            pictureOf(load(icon::kProgram, GetSystemMetrics(SM_CXSMICON)).get()).pixels);
  EXPECT_LT(little.width, big.width);
}

}  // namespace
}  // namespace tessivo
