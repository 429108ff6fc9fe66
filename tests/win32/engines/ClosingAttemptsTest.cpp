#include "screen/engines/embedded/ClosingAttempts.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace tessivo {
namespace {

/// One that never lets go.
class StuckAttempt : public AttemptThread {
 public:
  explicit StuckAttempt(HWND engineWindow) : AttemptThread(engineWindow, 1) {}
  void close() override {}

 private:
  void run() override {}
};

TEST(ClosingAttempts, WaitsNoLongerThanItMayWhileMessagesKeepComing) {
  const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                      nullptr, nullptr);
  std::atomic<bool> enough = false;
  std::thread sender([&] {
    while (!enough) SendNotifyMessageW(window, WM_APP, 0, 0);
  });
  ClosingAttempts attempts;
  attempts.add(std::make_shared<StuckAttempt>(window), nullptr);
  const ULONGLONG start = GetTickCount64();
  attempts.wait(200);
  EXPECT_GE(GetTickCount64() - start, 190U);
  enough = true;
  sender.join();
  DestroyWindow(window);
}

}  // namespace
}  // namespace tessivo
