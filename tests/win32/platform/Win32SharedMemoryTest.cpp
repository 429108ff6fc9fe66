#include "platform/win32/Win32SharedMemory.h"

#include <windows.h>
// After windows.h, which it needs:
#include <aclapi.h>

#include <string>

#include "app/MF.h"

namespace tessivo {
namespace {

struct Win32SharedMemoryTest : testing::Test {
  Win32SharedMemory memory;
  std::string name = "tessivo 测试 " + std::to_string(GetCurrentProcessId());
};

TEST_F(Win32SharedMemoryTest, AMappingExistsFromItsCreationToItsLastHandle) {
  EXPECT_FALSE(memory.exists(name));
  const MappingHandle mapping = memory.createFileMapping(name, 100);
  ASSERT_NE(mapping, 0U);
  EXPECT_TRUE(memory.exists(name));
  EXPECT_TRUE(memory.closeHandle(mapping));
  EXPECT_FALSE(memory.exists(name));
  EXPECT_FALSE(memory.closeHandle(0));
}

TEST_F(Win32SharedMemoryTest, TwoHandlesOfOneNameShareTheirBytes) {
  const MappingHandle one = memory.createFileMapping(name, 100);
  const MappingHandle two = memory.createFileMapping(name, 5);
  const auto written = memory.mapView(one);
  const auto read = memory.mapView(two);
  ASSERT_GE(written.size(), 100U);
  ASSERT_EQ(read.size(), written.size());
  written[99] = 42;
  EXPECT_EQ(read[99], 42);
  EXPECT_EQ(read[0], 0);
  EXPECT_TRUE(memory.unmapView(written));
  EXPECT_TRUE(memory.unmapView(read));
  memory.closeHandle(one);
  memory.closeHandle(two);
}

TEST_F(Win32SharedMemoryTest, AViewIsAsLargeAsTheMappingInWholePages) {
  const MappingHandle mapping = memory.createFileMapping(name, 4097);
  const auto view = memory.mapView(mapping);
  EXPECT_EQ(view.size(), 8192U);
  memory.unmapView(view);
  memory.closeHandle(mapping);
}

TEST_F(Win32SharedMemoryTest, WhatIsNoMappingHasNoView) {
  EXPECT_TRUE(memory.mapView(0).empty());
  EXPECT_EQ(memory.createFileMapping(name, 0), 0U);
}

TEST_F(Win32SharedMemoryTest, PagesThatAreOnlyReservedAreNotTouched) {
  const HANDLE reserved = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr,
                                             PAGE_READWRITE | SEC_RESERVE, 0, 65536, nullptr);
  ASSERT_TRUE(reserved);
  EXPECT_TRUE(memory.mapView(reinterpret_cast<MappingHandle>(reserved)).empty());
  CloseHandle(reserved);
}

TEST_F(Win32SharedMemoryTest, EverybodyMayOpenIt) {
  const MappingHandle mapping = memory.createFileMapping(name, 100);
  PACL list = reinterpret_cast<PACL>(1);
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  ASSERT_EQ(
      GetSecurityInfo(reinterpret_cast<HANDLE>(mapping), SE_KERNEL_OBJECT,
                      DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr, &descriptor),
      static_cast<DWORD>(ERROR_SUCCESS));
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  DWORD revision = 0;
  GetSecurityDescriptorControl(descriptor, &control, &revision);
  EXPECT_EQ(list, nullptr);
  EXPECT_TRUE(control & SE_DACL_PRESENT);
  LocalFree(descriptor);
  DWORD flags = HANDLE_FLAG_INHERIT;
  GetHandleInformation(reinterpret_cast<HANDLE>(mapping), &flags);
  EXPECT_FALSE(flags & HANDLE_FLAG_INHERIT);
  memory.closeHandle(mapping);
}

TEST_F(Win32SharedMemoryTest, ATextGoesFromOneToTheOther) {
  MF writer(memory);
  writer.strFMN(name);
  writer.lngFS(40);
  ASSERT_NE(writer.OFM(), 0U);
  ASSERT_NE(writer.MFV(), nullptr);
  EXPECT_EQ(writer.WF("C:\\两 个.avi"), 20);
  MF reader(memory);
  reader.strFMN(name);
  reader.lngFS(40);
  reader.OFM();
  reader.MFV();
  EXPECT_EQ(reader.RF(), "C:\\两 个.avi" + std::string(10, '\0'));
}

TEST_F(Win32SharedMemoryTest, AnAnnouncedSizeBeyondTheMappingReadsToItsEnd) {
  MF writer(memory);
  writer.strFMN(name);
  writer.lngFS(10);
  writer.OFM();
  writer.MFV();
  writer.WF("C:\\a");
  MF reader(memory);
  reader.strFMN(name);
  reader.lngFS(2147483647);
  ASSERT_NE(reader.OFM(), 0U);
  ASSERT_NE(reader.MFV(), nullptr);
  EXPECT_EQ(reader.RF(), "C:\\a" + std::string(2048 - 4, '\0'));
}

}  // namespace
}  // namespace tessivo
