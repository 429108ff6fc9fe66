#include "config/SetRegItemACL.h"

#include <gtest/gtest.h>

#include "fakes/Trace.h"

namespace tessivo {
namespace {

const Bytes kAccount{1, 1, 5};
const Bytes kOther{1, 1, 7};

AccessEntry entry(std::uint8_t mark, const Bytes& about) {
  return {{mark, 0}, about};
}

/// A key with a list of three entries, two of them about others. One step can be made to fail.
struct FakeKeySecurity : KeySecurity {
  std::uint32_t accountIdentifierOf(const std::string& account, Bytes& identifier) const override {
    trace.add("account " + account);
    identifier = kAccount;
    return failing == "account" ? 1332 : 0;
  }
  std::uint32_t open(RegistryRoot, const std::string& key, std::uint32_t access,
                     Key& opened) override {
    trace.add("open " + key + ' ' + std::to_string(access));
    opened = 77;
    return failing == "open" ? 5 : 0;
  }
  void close(Key key) override { trace.add("close " + std::to_string(key)); }
  std::uint32_t readDescriptor(Key, Bytes& descriptor, std::uint32_t& needed) const override {
    trace.add("read " + std::to_string(descriptor.size()));
    if (failing == "read") return 5;
    needed = descriptorBytes;
    return descriptor.size() < descriptorBytes ? 122 : 0;
  }
  std::uint32_t listOf(const Bytes&, std::optional<AccessList>& found) const override {
    found = list;
    return failing == "list" ? 1336 : 0;
  }
  std::uint32_t makeList(std::uint32_t size, const std::vector<AccessEntry>& entries,
                         std::uint32_t mask, const Bytes& account, Bytes& made) const override {
    std::string text = "make " + std::to_string(size) + " of";
    for (const auto& kept : entries) text += ' ' + std::to_string(kept.bytes[0]);
    EXPECT_EQ(account, kAccount);
    trace.add(text + " and " + std::to_string(mask));
    made = {9, 9};
    return failing == "make" ? 1344 : 0;
  }
  std::uint32_t writeList(Key, const Bytes& written) override {
    EXPECT_EQ(written, (Bytes{9, 9}));
    trace.add("write");
    return failing == "write" ? 5 : 0;
  }
  std::string messageOf(std::uint32_t) const override { return message; }

  mutable Trace trace;
  std::string failing;
  std::string message = "Denied.";
  std::uint32_t descriptorBytes = 100;
  std::optional<AccessList> list =
      AccessList{200, {entry(1, kOther), entry(2, kAccount), entry(3, kOther)}};
};

class SetRegItemACLTest : public testing::Test {
 protected:
  bool set(bool before = false) {
    bool result = before;
    access.pSetKeyAccess(RegistryRoot::localMachine, "Software\\A", "Users", 0x20019, result);
    return result;
  }
  FakeKeySecurity security;
  SetRegItemACL access{security};
};

TEST_F(SetRegItemACLTest, TheAccountsNewEntryComesAfterThoseOfOthers) {
  EXPECT_TRUE(set());
  EXPECT_EQ(security.trace.take(),
            "account Users | open Software\\A 983103 | read 256 | make 226 of 1 3 and 131097 | "
            "write | close 77");
  EXPECT_EQ(access.strDiagnostic(), "");
}

TEST_F(SetRegItemACLTest, ALargeDescriptorIsReadAgain) {
  security.descriptorBytes = 300;
  EXPECT_TRUE(set());
  EXPECT_NE(security.trace.take().find("read 256 | read 300 | make"), std::string::npos);
}

TEST_F(SetRegItemACLTest, ARefusedDescriptorIsNotReadAgain) {
  security.failing = "read";
  EXPECT_FALSE(set());
  EXPECT_EQ(security.trace.take(), "account Users | open Software\\A 983103 | read 256");
}

TEST_F(SetRegItemACLTest, AnEmptyListIsLeftAsItIs) {
  security.list = AccessList{8, {}};
  EXPECT_TRUE(set());
  EXPECT_EQ(security.trace.take(), "account Users | open Software\\A 983103 | read 256 | close 77");
}

TEST_F(SetRegItemACLTest, WithoutAListItFailsAndTheKeyStaysOpen) {
  security.list.reset();
  EXPECT_FALSE(set());
  EXPECT_EQ(security.trace.take(), "account Users | open Software\\A 983103 | read 256");
}

TEST_F(SetRegItemACLTest, AFailureOnTheWayToTheListLeavesTheKeyOpen) {
  for (const char* const step : {"account", "open", "read", "list"}) {
    security.failing = step;
    EXPECT_FALSE(set(true)) << step;
    const std::string all = security.trace.take();
    EXPECT_EQ(all.find("close"), std::string::npos) << all;
    EXPECT_EQ(all.find("make"), std::string::npos) << all;
  }
}

TEST_F(SetRegItemACLTest, AListThatCannotBeMadeIsNotWrittenAndTheKeyStaysOpen) {
  security.failing = "make";
  EXPECT_FALSE(set());
  EXPECT_TRUE(security.trace.take().ends_with("and 131097"));
}

TEST_F(SetRegItemACLTest, AListThatTheKeyRefusesIsExplained) {
  security.failing = "write";
  EXPECT_FALSE(set());
  EXPECT_TRUE(security.trace.take().ends_with("write | close 77"));
  EXPECT_EQ(access.strDiagnostic(), "ErrorCode:  5API: RegSetKeySecuritySystem error: Denied.");
  security.message = "";
  set();
  EXPECT_EQ(access.strDiagnostic(),
            "ErrorCode:  5API: RegSetKeySecuritySystem error: System error code:  5");
  security.failing = "";
  set();
  EXPECT_EQ(access.strDiagnostic(), "");
}

TEST_F(SetRegItemACLTest, TheExplanationIsThatOfTheLastCall) {
  for (const char* const earlier : {"account", "open", "read", "list", "make"}) {
    security.failing = "write";
    set();
    EXPECT_NE(access.strDiagnostic(), "");
    security.failing = earlier;
    set();
    EXPECT_EQ(access.strDiagnostic(), "") << earlier;
  }
}

}  // namespace
}  // namespace tessivo
