#include "platform/win32/Win32TimerService.h"

#include <utility>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

constexpr wchar_t kWindowClass[] = L"TessivoTimers";
constexpr UINT kFirstTick = WM_APP + 1;

}  // namespace

Win32TimerService::Win32TimerService(Log& log) : log_(log) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = windowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExW(&windowClass);  // fails harmlessly when an earlier service registered it
  window_ = CreateWindowExW(0, kWindowClass, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                            windowClass.hInstance, nullptr);
  if (!window_) log_.error("no window for the timers, error " + std::to_string(GetLastError()));
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Win32TimerService::~Win32TimerService() {
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

TimerService::Id Win32TimerService::start(int intervalMs, std::function<void()> onTick) {
  const Id id = ++lastId_;
  timers_[id] = std::make_shared<const std::function<void()>>(std::move(onTick));
  const auto number = static_cast<UINT_PTR>(id);
  SetTimer(window_, number, static_cast<UINT>(intervalMs), nullptr);
  if (intervalMs < USER_TIMER_MINIMUM) PostMessageW(window_, kFirstTick, number, 0);
  return id;
}

void Win32TimerService::stop(Id id) {
  if (timers_.erase(id) > 0) KillTimer(window_, static_cast<UINT_PTR>(id));
}

LRESULT CALLBACK Win32TimerService::windowProc(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam) {
  auto* service = reinterpret_cast<Win32TimerService*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (service && (message == WM_TIMER || message == kFirstTick)) {
    service->tick(wParam);
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

void Win32TimerService::tick(Id id) {
  const auto found = timers_.find(id);
  if (found == timers_.end()) return;
  // The call may stop its own timer or end the service.
  const auto onTick = found->second;
  guarded(log_, [&onTick] { (*onTick)(); });
}

}  // namespace tessivo
