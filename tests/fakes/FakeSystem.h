#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "fakes/Trace.h"
#include "platform/Files.h"
#include "platform/MessageLoop.h"
#include "platform/Pointer.h"

namespace tessivo {

struct FakeFiles : Files {
  bool fileExists(const std::string& path) const override { return existing.contains(path); }
  std::set<std::string> existing;
};

struct FakePointer : Pointer {
  Point position() const override { return at; }
  Point at;
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
