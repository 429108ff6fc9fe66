// saver_caller COMMAND FOLDER …: calls the screen-saver programs of a folder as the program's
// settings do.
//
//   list FOLDER             "name N" for each program found, N from 1, between bars
//   preview FOLDER NAME
//   configure FOLDER NAME   over a window of its own, titled "saver_caller". Says, with the
//                           system's milliseconds: "owner off", "waiter TITLE at X,Y,W,H",
//                           "owner on" and "returned"; prints what the log says, too
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <cstdio>
#include <string>
#include <vector>

#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32IdleInput.h"
#include "platform/win32/Win32MessageLoop.h"
#include "platform/win32/Win32Processes.h"
#include "platform/win32/Win32ThreadTimers.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/WindowsText.h"
#include "saver/ScreenSaverCtrl.h"
#include "saver/frmScrSaverPramSet.h"
#include "ui/win32/Win32Toolkit.h"

namespace {

using namespace tessivo;

constexpr int kLookMs = 20;
constexpr int kMostLooks = 250;
constexpr int kSettleMs = 300;
constexpr int kPreviewMs = 1500;
constexpr Point kFacePixels{300, 200};

struct PrintedLog : Log {
  void info(std::string_view text) override { print("info", text); }
  void error(std::string_view text) override { print("error", text); }
  static void print(const char* kind, std::string_view text) {
    std::printf("%s %.*s\n", kind, static_cast<int>(text.size()), text.data());
  }
};

void say(const std::string& what) {
  std::printf("%llu %s\n", static_cast<unsigned long long>(GetTickCount64()), what.c_str());
}

HWND windowOf(const ui::Form& form) {
  return reinterpret_cast<HWND>(form.nativeHandle());
}

std::string placeOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return std::to_string(place.left) + ',' + std::to_string(place.top) + ',' +
         std::to_string(place.right - place.left) + ',' + std::to_string(place.bottom - place.top);
}

/// Everything a screen-saver controller needs, of the real system.
struct Caller {
  explicit Caller(const std::string& folder)
      : controller({input, registry, processes, files, log, ""}, [] { return PlayWindow{}; }) {
    controller.strScrSavPrcsFolderPath(folder);
  }

  PrintedLog log;
  Win32Clock clock;
  Win32Displays displays;
  Win32Files files;
  Win32IdleInput input;
  Win32Processes processes;
  Win32ThreadTimers threadTimers{log};
  MTimer registry{threadTimers};
  Win32TimerService timers{log};
  ScreenSaverCtrl controller;
};

void list(Caller& caller) {
  caller.controller.getScrSaverProcNameList();
  for (std::int32_t i = 1; i <= caller.controller.lngGetScrSavPrcNameLstItmCount(); ++i) {
    std::printf("name %d |%s|\n", i, caller.controller.strGetScrSavPrcNameByIndex(i).c_str());
  }
}

/// Looks again and again at the owner and at the waiter, and says what has changed.
class Witness {
 public:
  Witness(TimerService& timers, const ui::Form& owner, const ui::Form& waiter)
      : owner_(owner), waiter_(waiter), timer_(timers, "timWitness", kLookMs) {
    timer_.onTimer.listen([this] { look(); });
    timer_.setEnabled(true);
  }
  void look() {
    const bool isOn = IsWindowEnabled(windowOf(owner_)) != 0;
    if (isOn != wasOn_) say(isOn ? "owner on" : "owner off");
    wasOn_ = isOn;
    if (!waiter_.isOpen()) return;
    const HWND window = windowOf(waiter_);
    const std::string place = placeOf(window);
    if (place == lastPlace_) return;
    lastPlace_ = place;
    say("waiter " + waiter_.caption() + " at " + place);
  }

 private:
  const ui::Form& owner_;
  const ui::Form& waiter_;
  ui::Timer timer_;
  bool wasOn_ = true;
  std::string lastPlace_;
};

/// The window that asks.
class Asker {
 public:
  explicit Asker(Caller& caller)
      : toolkit(caller.displays.twipsPerPixel(), caller.log),
        form("owner", "saver_caller", caller.displays.twipsPerPixel()) {
    form.setBounds({1500, 1500, 6000, 4500});
    toolkit.open(form);
    form.show();
    form.activate();
  }
  bool hasKeyboard() const { return GetForegroundWindow() == windowOf(form); }

  ui::Win32Toolkit toolkit;
  ui::Form form;
};

void preview(Caller& caller, const std::string& name) {
  const Asker asker(caller);
  Win32MessageLoop loop;
  for (int i = 0; i < kMostLooks && !asker.hasKeyboard(); ++i) loop.pumpFor(kLookMs);
  // The window manager takes its time, too.
  loop.pumpFor(kSettleMs);
  if (!asker.hasKeyboard()) say("no keyboard at all");
  caller.controller.previewAScrSavProcByName(name);
  loop.pumpFor(kPreviewMs);
  say(asker.hasKeyboard() ? "keyboard stays" : "keyboard gone");
}

void configure(Caller& caller, const std::string& name) {
  const TwipsPerPixel twips = caller.displays.twipsPerPixel();
  Asker asker(caller);
  frmScrSaverPramSet waiter({caller.timers, caller.clock, caller.processes,
                             [&caller](const std::string& program, std::int32_t x, std::int32_t y,
                                       const std::string& ownerCaption) {
                               return caller.controller.showAScrSavPrcPramConfigFace(program, x, y,
                                                                                     ownerCaption);
                             }},
                            twips);
  waiter.strProcName(name);
  waiter.lngFaceLeft(static_cast<std::int32_t>(kFacePixels.x * twips.x));
  waiter.lngFaceTop(static_cast<std::int32_t>(kFacePixels.y * twips.y));
  Witness witness(caller.timers, asker.form, waiter);
  say("asked");
  waiter.showOver(asker.toolkit, asker.form);
  say("returned");
  witness.look();
}

std::vector<std::string> arguments() {
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> texts;
  for (int i = 1; i < count; ++i) texts.push_back(fromWide(words[i]));
  LocalFree(words);
  return texts;
}

}  // namespace

int main() {
  const auto words = arguments();
  if (words.size() >= 2) {
    Caller caller(words[1]);
    if (words[0] == "list") return list(caller), 0;
    if (words.size() >= 3 && words[0] == "preview") {
      return preview(caller, words[2]), 0;
    }
    if (words.size() >= 3 && words[0] == "configure") return configure(caller, words[2]), 0;
  }
  std::puts("saver_caller list FOLDER | preview FOLDER NAME | configure FOLDER NAME");
  return 2;
}
