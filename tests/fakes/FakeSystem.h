#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/Trace.h"
#include "platform/DesktopWindows.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Pointer.h"

namespace tessivo {

struct FakeFiles : Files {
  bool fileExists(const std::string& path) const override { return existing.contains(path); }
  std::vector<bool> firstFilesExist(const std::vector<std::string>& paths) const override {
    askedAtOnce.push_back(paths.size());
    const auto known = std::min(paths.size(), answersAtOnce);
    return Files::firstFilesExist({paths.begin(), paths.begin() + static_cast<long>(known)});
  }
  std::optional<std::vector<std::string>> filesIn(const std::string& folder) const override {
    const auto found = folders.find(folder);
    if (found == folders.end()) return std::nullopt;
    return found->second;
  }
  std::set<std::string> existing;
  std::size_t answersAtOnce = 1000;
  mutable std::vector<std::size_t> askedAtOnce;
  std::map<std::string, std::vector<std::string>> folders;
};

struct FakePointer : Pointer {
  Point position() const override { return at; }
  int changeDisplayCount(bool show) override {
    ++calls;
    return stuck ? displayCount : displayCount += show ? 1 : -1;
  }
  bool seen() const { return displayCount >= 0; }

  Point at;
  int displayCount = 0;
  int calls = 0;       ///< of changeDisplayCount
  bool stuck = false;  ///< the counter does not move
};

/// A desktop of windows by handle.
struct FakeDesktopWindows : DesktopWindows {
  struct Window {
    WindowHandle parent = 0;
    std::string windowClass;
    std::string title;
    bool ours = true;
  };
  const Window& at(WindowHandle window) const {
    static const Window none{0, "", "", false};
    const auto found = windows.find(window);
    return found == windows.end() ? none : found->second;
  }
  WindowHandle under(Point screen) const override {
    lastPoint = screen;
    return underPoint;
  }
  bool isUnder(WindowHandle window, Point screen) const override {
    return window != 0 && under(screen) == window;
  }
  WindowHandle parentOf(WindowHandle window) const override { return at(window).parent; }
  std::string classOf(WindowHandle window) const override { return at(window).windowClass; }
  std::string titleOf(WindowHandle window) const override { return at(window).title; }
  bool isOurs(WindowHandle window) const override { return at(window).ours; }
  Point toScreen(WindowHandle, Point client) const override {
    return {origin.x + client.x, origin.y + client.y};
  }
  void postClose(WindowHandle window) const override { closed.push_back(window); }

  std::map<WindowHandle, Window> windows;
  WindowHandle underPoint = 0;  ///< the window under every point
  Point origin;                 ///< where every client area begins
  mutable Point lastPoint;
  mutable std::vector<WindowHandle> closed;
};

struct FakeMessageLoop : MessageLoop {
  explicit FakeMessageLoop(Trace& t) : trace(t) {}
  void pumpFor(int ms) override {
    trace.add("pump " + std::to_string(ms));
    if (whilePumping) whilePumping();
  }
  void quit() override { trace.add("quit"); }
  Trace& trace;
  std::function<void()> whilePumping;
};

}  // namespace tessivo
