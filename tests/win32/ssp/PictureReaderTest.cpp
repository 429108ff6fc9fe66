#include "ssp/win32/PictureReader.h"

#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "fakes/TempFolder.h"
#include "platform/win32/WindowsText.h"

namespace tessivo::ssp {
namespace {

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kBlue = 0x0000FF;

/// Bytes with the low one first, as both formats below have them.
class Bytes {
 public:
  Bytes& number(std::uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) text_ += static_cast<char>(value >> (8 * i));
    return *this;
  }
  Bytes& letters(const std::string& text) {
    text_ += text;
    return *this;
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// A bitmap file: the left half red, the right half blue.
std::string bitmapFile(std::uint32_t width, std::uint32_t height) {
  const std::uint32_t data = width * height * 4;
  Bytes file;
  file.letters("BM").number(54 + data, 4).number(0, 4).number(54, 4);
  file.number(40, 4).number(width, 4).number(height, 4);
  file.number(1, 2).number(32, 2).number(0, 4).number(data, 4);
  for (int i = 0; i < 4; ++i) file.number(0, 4);
  for (std::uint32_t i = 0; i < width * height; ++i) {
    file.number(i % width < width / 2 ? kRed : kBlue, 4);
  }
  return file.text();
}

/// What comes before the pixels in a bitmap file with one bit a pixel, 0 for red and 1 for blue.
std::string twoColourHeader(std::uint32_t width, std::uint32_t height) {
  Bytes file;
  file.letters("BM").number(0, 4).number(0, 4).number(62, 4);
  file.number(40, 4).number(width, 4).number(height, 4).number(1, 2).number(1, 2);
  for (int i = 0; i < 6; ++i) file.number(0, 4);
  file.number(kRed, 4).number(kBlue, 4);
  return file.text();
}

/// A TIFF file, one row of a red and a blue pixel, with an orientation.
std::string tiffFile(std::uint32_t orientation) {
  Bytes file;
  const auto entry = [&file](std::uint32_t tag, std::uint32_t type, std::uint32_t count,
                             std::uint32_t value) {
    file.number(tag, 2).number(type, 2).number(count, 4).number(value, 4);
  };
  constexpr std::uint32_t kShort = 3;
  constexpr std::uint32_t kLong = 4;
  constexpr std::uint32_t kEntries = 10;
  constexpr std::uint32_t kBits = 8 + 2 + kEntries * 12 + 4;
  constexpr std::uint32_t kPixels = kBits + 6;
  file.letters("II").number(42, 2).number(8, 4).number(kEntries, 2);
  entry(256, kLong, 1, 2);
  entry(257, kLong, 1, 1);
  entry(258, kShort, 3, kBits);
  entry(259, kShort, 1, 1);
  entry(262, kShort, 1, 2);
  entry(273, kLong, 1, kPixels);
  entry(274, kShort, 1, orientation);
  entry(277, kShort, 1, 3);
  entry(278, kLong, 1, 1);
  entry(279, kLong, 1, 6);
  file.number(0, 4).number(8, 2).number(8, 2).number(8, 2);
  file.number(0x0000FF, 3).number(0xFF0000, 3);  // red first, then blue
  return file.text();
}

struct PictureReaderTest : testing::Test {
  PictureReaderTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~PictureReaderTest() override { CoUninitialize(); }

  UniqueGdi<HBITMAP> read(const std::string& name, const std::string& bytes, Size area) {
    std::ofstream(toFilePath(folder.file(name)), std::ios::binary) << bytes;
    return readPicture(folder.file(name), area);
  }
  /// 0xRRGGBB.
  static std::uint32_t pixel(const UniqueGdi<HBITMAP>& picture, int x, int y) {
    DIBSECTION dib{};
    GetObjectW(picture.get(), sizeof dib, &dib);
    const auto* pixels = static_cast<const std::uint32_t*>(dib.dsBm.bmBits);
    return pixels[y * dib.dsBm.bmWidth + x] & 0xFFFFFF;
  }
  TempFolder folder;
};

TEST_F(PictureReaderTest, PictureIsFittedIntoTheAreaWithBlackAround) {
  const auto picture = read("图 片.bmp", bitmapFile(40, 20), {80, 80});
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixel(picture, 5, 40), kRed);
  EXPECT_EQ(pixel(picture, 75, 40), kBlue);
  EXPECT_EQ(pixel(picture, 5, 21), kRed);
  EXPECT_EQ(pixel(picture, 5, 58), kRed);
  EXPECT_EQ(pixel(picture, 5, 18), 0U);
  EXPECT_EQ(pixel(picture, 75, 61), 0U);
}

TEST_F(PictureReaderTest, LargePictureIsMadeSmaller) {
  const auto picture = read("a.bmp", bitmapFile(1000, 500), {20, 10});
  ASSERT_TRUE(picture);
  EXPECT_EQ(pixel(picture, 2, 5), kRed);
  EXPECT_EQ(pixel(picture, 17, 5), kBlue);
}

TEST_F(PictureReaderTest, OrientationIsHonoured) {
  const auto upright = read("1.tif", tiffFile(1), {40, 40});
  ASSERT_TRUE(upright);
  EXPECT_EQ(pixel(upright, 2, 20), kRed);
  EXPECT_EQ(pixel(upright, 37, 20), kBlue);
  const auto turned = read("6.tif", tiffFile(6), {40, 40});
  ASSERT_TRUE(turned);
  EXPECT_EQ(pixel(turned, 20, 2), kRed);
  EXPECT_EQ(pixel(turned, 20, 37), kBlue);
  EXPECT_EQ(pixel(turned, 2, 20), 0U);
}

TEST_F(PictureReaderTest, PictureOfNumberedColoursIsReadInItsColours) {
  // Bits 0 and 1 for the halves of each row of 32 pixels.
  std::string file = twoColourHeader(32, 16);
  for (int row = 0; row < 16; ++row) file += std::string("\x00\x00\xFF\xFF", 4);
  for (const Size area : {Size{64, 32}, Size{16, 8}}) {
    const auto picture = read("a.bmp", file, area);
    ASSERT_TRUE(picture);
    EXPECT_EQ(pixel(picture, area.width / 4, area.height / 2), kRed);
    EXPECT_EQ(pixel(picture, area.width * 3 / 4, area.height / 2), kBlue);
  }
}

TEST_F(PictureReaderTest, WhatIsNoPictureIsNothing) {
  EXPECT_FALSE(read("a.jpg", "no picture", {80, 80}));
  EXPECT_FALSE(read("b.jpg", "", {80, 80}));
  EXPECT_FALSE(readPicture(folder.file("gone.jpg"), {80, 80}));
  EXPECT_FALSE(readPicture(folder.file(""), {80, 80}));
}

TEST_F(PictureReaderTest, PictureWithTooManyPixelsIsNothing) {
  const auto readRed = [this](std::uint32_t width, std::uint32_t height) {
    const std::string path = folder.file("red.bmp");
    std::ofstream(toFilePath(path), std::ios::binary) << twoColourHeader(width, height);
    // Rows are whole groups of 32 pixels; what is not written is 0.
    std::filesystem::resize_file(toFilePath(path), 62 + (width + 31) / 32 * 4 * height);
    return readPicture(path, {80, 80});
  };
  const auto smaller = readRed(1001, 1000);
  ASSERT_TRUE(smaller);
  EXPECT_EQ(pixel(smaller, 40, 40), kRed);
  EXPECT_FALSE(readRed(10'001, 10'000));
}

}  // namespace
}  // namespace tessivo::ssp
