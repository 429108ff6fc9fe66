#include "screen/engines/media_foundation/GrabbedPicture.h"

#include <gtest/gtest.h>
#include <mfapi.h>

#include <array>
#include <vector>

namespace tessivo {
namespace {

constexpr UINT32 kSide = 16;

/// A picture in a window of its size, for frames of one colour.
struct GrabbedPictureTest : testing::Test {
  void SetUp() override {
    ComPtr<IMFMediaType> type;
    ASSERT_EQ(MFCreateMediaType(type.put()), S_OK);
    ASSERT_EQ(type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video), S_OK);
    ASSERT_EQ(MFSetAttributeSize(type.get(), MF_MT_FRAME_SIZE, kSide, kSide), S_OK);
    std::array<IMFMediaType*, 1> types = {type.get()};
    ComPtr<IMFStreamDescriptor> stream;
    ComPtr<IMFMediaTypeHandler> handler;
    // The program does not import it.
    const auto createDescriptor =
        reinterpret_cast<decltype(&MFCreateStreamDescriptor)>(reinterpret_cast<void*>(
            GetProcAddress(LoadLibraryW(L"mfplat.dll"), "MFCreateStreamDescriptor")));
    ASSERT_TRUE(createDescriptor);
    ASSERT_EQ(createDescriptor(1, 1, types.data(), stream.put()), S_OK);
    ASSERT_EQ(stream->GetMediaTypeHandler(handler.put()), S_OK);
    ASSERT_EQ(handler->SetCurrentMediaType(type.get()), S_OK);
    grabbed = GrabbedPicture::create(stream.get(), window);
    ASSERT_TRUE(grabbed);
  }
  void TearDown() override {
    DeleteObject(SelectObject(paper, old));
    DeleteDC(paper);
    DestroyWindow(window);
  }

  HRESULT frame(BYTE grey, std::size_t size = std::size_t{kSide} * kSide * 4) const {
    const std::vector<BYTE> bytes(size, grey);
    return grabbed->OnProcessSample(MFMediaType_Video, 0, 0, 0, bytes.data(),
                                    static_cast<DWORD>(bytes.size()));
  }

  HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, kSide, kSide, nullptr, nullptr,
                                nullptr, nullptr);
  HDC paper = CreateCompatibleDC(nullptr);
  HDC screen = GetDC(nullptr);
  HGDIOBJ old = SelectObject(paper, CreateCompatibleBitmap(screen, kSide, kSide));
  int released = ReleaseDC(nullptr, screen);
  ComPtr<GrabbedPicture> grabbed;
};

TEST_F(GrabbedPictureTest, PaintsTheLatestFrame) {
  EXPECT_FALSE(grabbed->paint(paper));
  EXPECT_EQ(frame(10), S_OK);
  EXPECT_EQ(frame(200), S_OK);
  EXPECT_TRUE(grabbed->paint(paper));
  EXPECT_EQ(GetPixel(paper, 0, 0), RGB(200, 200, 200));
}

TEST_F(GrabbedPictureTest, AFrameThatIsTooShortIsNoFrame) {
  EXPECT_EQ(frame(10, std::size_t{kSide} * kSide * 4 - 1), S_OK);
  EXPECT_FALSE(grabbed->paint(paper));
}

TEST_F(GrabbedPictureTest, WhatItHasForgottenIsGoneForGood) {
  EXPECT_EQ(frame(200), S_OK);
  grabbed->forget();
  EXPECT_FALSE(grabbed->paint(paper));
  EXPECT_EQ(frame(200), S_OK);
  EXPECT_FALSE(grabbed->paint(paper));
}

}  // namespace
}  // namespace tessivo
