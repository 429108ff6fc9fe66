#pragma once

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/Displays.h"

namespace tessivo {

/// Monitors as a test lays them out. Rectangles must not overlap when points are asked for.
class FakeDisplays : public Displays {
 public:
  /// Adds a monitor at the end of the system's order, its work area 40 pixels less high than the
  /// monitor unless given, and tells its handle (101, 102, …; names `\\.\DISPLAY1`, …).
  MonitorHandle add(Rect monitor, bool primary = false, std::optional<Rect> work = {}) {
    const Rect withoutBar{monitor.left, monitor.top, monitor.width, monitor.height - 40};
    const auto number = ++added_;
    entries_.push_back(
        {100U + number,
         {primary, R"(\\.\DISPLAY)" + std::to_string(number), monitor, work.value_or(withoutBar)}});
    return entries_.back().handle;
  }
  /// The monitor is unplugged.
  void remove(MonitorHandle monitor) {
    std::erase_if(entries_, [&](const Entry& entry) { return entry.handle == monitor; });
  }
  /// The monitor is still reported, but no longer there when asked about.
  void vanish(MonitorHandle monitor) { vanished_.insert(monitor); }
  /// The window lies on this monitor; windows not placed lie on none.
  void place(WindowHandle window, MonitorHandle monitor) { windows_[window] = monitor; }

  // What the system's metrics answer; free of the list above, as on a real system.
  int displayMonitors = 0;
  bool sameFormat = true;
  int virtualWidth = 0;
  int virtualHeight = 0;
  TwipsPerPixel twips;

  std::vector<MonitorHandle> enumerate() const override {
    std::vector<MonitorHandle> handles;
    for (const Entry& entry : entries_) handles.push_back(entry.handle);
    return handles;
  }
  std::optional<DisplayInfo> info(MonitorHandle monitor) const override {
    const auto found = std::ranges::find(entries_, monitor, &Entry::handle);
    if (found == entries_.end() || vanished_.contains(monitor)) return std::nullopt;
    return found->info;
  }
  MonitorHandle fromPoint(Point point) const override {
    const auto holds = [&](const Entry& entry) {
      const Rect& r = entry.info.monitor;
      return point.x >= r.left && point.x - r.left < r.width && point.y >= r.top &&
             point.y - r.top < r.height;
    };
    const auto found = std::ranges::find_if(entries_, holds);
    return found == entries_.end() ? 0 : found->handle;
  }
  MonitorHandle fromWindow(WindowHandle window) const override {
    const auto found = windows_.find(window);
    return found == windows_.end() ? 0 : found->second;
  }
  int displayMonitorCount() const override { return displayMonitors; }
  bool sameDisplayFormat() const override { return sameFormat; }
  int virtualScreenWidth() const override { return virtualWidth; }
  int virtualScreenHeight() const override { return virtualHeight; }
  /// The first primary monitor, empty when there is none.
  Rect primaryScreen() const override {
    const auto isPrimary = [](const Entry& entry) { return entry.info.isPrimary; };
    const auto found = std::ranges::find_if(entries_, isPrimary);
    return found == entries_.end() ? Rect{} : found->info.monitor;
  }
  TwipsPerPixel twipsPerPixel() const override { return twips; }

 private:
  struct Entry {
    MonitorHandle handle;
    DisplayInfo info;
  };
  std::vector<Entry> entries_;
  std::set<MonitorHandle> vanished_;
  std::map<WindowHandle, MonitorHandle> windows_;
  unsigned added_ = 0;
};

}  // namespace tessivo
