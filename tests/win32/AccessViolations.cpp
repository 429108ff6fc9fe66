// An access violation in a window procedure need not end the program: Wine swallows it and goes on
// with what is broken. Here it fails the test in which it happened.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>

namespace tessivo {
namespace {

std::atomic<int> violations = 0;
std::atomic<void*> firstPlace = nullptr;

bool isViolation(DWORD code) {
  return code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_ILLEGAL_INSTRUCTION ||
         code == EXCEPTION_PRIV_INSTRUCTION;
}

/// No more than notes it: the heap may be what is broken.
LONG CALLBACK note(EXCEPTION_POINTERS* exception) {
  const EXCEPTION_RECORD& record = *exception->ExceptionRecord;
  if (isViolation(record.ExceptionCode) && violations++ == 0) firstPlace = record.ExceptionAddress;
  return EXCEPTION_CONTINUE_SEARCH;
}

class FailsTheTest : public testing::EmptyTestEventListener {
  void OnTestEnd(const testing::TestInfo&) override {
    const int happened = violations.exchange(0);
    EXPECT_EQ(happened, 0) << "access violations, the first at " << firstPlace.load();
  }
};

class Watch : public testing::Environment {
  void SetUp() override {
    AddVectoredExceptionHandler(1, note);
    testing::UnitTest::GetInstance()->listeners().Append(new FailsTheTest);
  }
};

const testing::Environment* const watch = testing::AddGlobalTestEnvironment(new Watch);

}  // namespace
}  // namespace tessivo
