#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "platform/ShownWindows.h"
#include "platform/WindowProcedures.h"

namespace tessivo {

/// Window procedures by window: each has the procedure `before` until it is replaced.
struct FakeWindowProcedures : WindowProcedures {
  std::uintptr_t replace(WindowHandle window, Filter& given) override {
    ++attempts;
    if (refuse) return 0;
    filter = &given;
    replaced.push_back(window);
    return before + window;
  }
  void restore(WindowHandle window, std::uintptr_t previous) override {
    restored.emplace_back(window, previous);
  }
  /// The message arrives at a replaced window: true when it is consumed.
  bool send(WindowHandle window, WindowMessage message) { return filter->consume(window, message); }

  static constexpr std::uintptr_t before = 1000;
  bool refuse = false;
  int attempts = 0;
  Filter* filter = nullptr;
  std::vector<WindowHandle> replaced;
  std::vector<std::pair<WindowHandle, std::uintptr_t>> restored;
};

struct FakeShownWindows : ShownWindows {
  void watch(std::function<void(const ShownWindow&)> onShown) override {
    show = std::move(onShown);
  }
  void stop() override { show = nullptr; }
  /// A window is shown; empty while nobody watches.
  std::function<void(const ShownWindow&)> show;
};

}  // namespace tessivo
