#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "fakes/Trace.h"
#include "platform/HiddenWinProc.h"
#include "platform/TrayIcons.h"

namespace tessivo {

/// The shell's notification area: which icons are there, by window and identifier.
struct FakeTrayIcons : TrayIcons {
  explicit FakeTrayIcons(Trace& t) : trace(t) {}
  void add(const TrayIconRecord& record) override {
    trace.add("icon added");
    last = record;
    shown.emplace_back(record.window, record.identifier);
  }
  void remove(const TrayIconRecord& record) override {
    trace.add("icon removed");
    std::erase(shown, std::pair{record.window, record.identifier});
  }

  Trace& trace;
  TrayIconRecord last;
  std::vector<std::pair<WindowHandle, std::uint32_t>> shown;
};

/// The replaced procedure: what it hears, the test says.
struct FakeHiddenWinProc : HiddenWinProc {
  explicit FakeHiddenWinProc(Trace& t) : trace(t) {}
  void installHiddenWinProc(WindowHandle given, Listener& hears) override {
    trace.add("procedure replaced");
    window = given;
    listener = &hears;
  }
  void removeHiddenWinProc() override {
    if (std::exchange(listener, nullptr)) trace.add("procedure back");
  }

  Trace& trace;
  WindowHandle window = 0;
  Listener* listener = nullptr;
};

}  // namespace tessivo
