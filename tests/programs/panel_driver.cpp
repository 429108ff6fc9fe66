// panel_driver COMMAND…: works the control panel of a running player from outside, as an operator
// would, and tells what it shows. Several commands are carried out in order.
//
//   wait        until the panel is there (20 s)
//   play stop loop   press that button
//   rule N      choose the N-th engine rule (from 0)
//   seek N      move the progress slider to N seconds
//   volume N    move the volume slider
//   pause N     do nothing for N milliseconds
//   show        print what the panel and the playback window show, one "name value" a line
//   close       close the panel, and wait until the player has ended (20 s)
//   kill        end the player's process at once
//   closekill N close the panel, and end the process N milliseconds later, wherever it is
#include <windows.h>
// After windows.h, which it needs:
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/win32/WindowsText.h"

namespace {

using namespace tessivo;

constexpr int kDeadlineMs = 20000;
constexpr int kSliderEnd = 13;  // pixels beside the way of the thumb's middle
constexpr wchar_t kPanelTitle[] = L"Tessivo 泰思维";
constexpr wchar_t kScreenTitle[] = L"Tessivo 播放窗口";

[[noreturn]] void fail(const std::string& why) {
  std::printf("panel_driver: %s\n", why.c_str());
  std::exit(1);
}

void until(const std::string& what, const std::function<bool()>& condition) {
  const ULONGLONG deadline = GetTickCount64() + kDeadlineMs;
  while (!condition()) {
    if (GetTickCount64() > deadline) fail("waited in vain for " + what);
    Sleep(20);
  }
}

std::string textOf(HWND window) {
  wchar_t text[1024] = L"";
  SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return fromWide(text);
}

/// The panel's controls in their order, by window class.
class Panel {
 public:
  Panel() : window_(FindWindowW(nullptr, kPanelTitle)) {
    if (!window_) fail("no control panel");
    for (HWND child = GetWindow(window_, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
      wchar_t name[64] = L"";
      GetClassNameW(child, name, 64);
      children_[toUpper(fromWide(name))].push_back(child);
    }
  }
  HWND window() const { return window_; }
  HWND control(const std::string& kind, std::size_t index) const {
    const auto found = children_.find(kind);
    if (found == children_.end() || found->second.size() <= index) fail("no control " + kind);
    return found->second[index];
  }
  void press(std::size_t button) const { SendMessageW(control("BUTTON", button), BM_CLICK, 0, 0); }
  /// A press and a release of the left button where the value lies on the slider.
  void slide(std::size_t slider, int value) const {
    const HWND bar = control("MSCTLS_TRACKBAR32", slider);
    RECT area{};
    GetClientRect(bar, &area);
    const int least = static_cast<int>(SendMessageW(bar, TBM_GETRANGEMIN, 0, 0));
    const int most = static_cast<int>(SendMessageW(bar, TBM_GETRANGEMAX, 0, 0));
    const int room = area.right - 2 * kSliderEnd;
    const int x = kSliderEnd + MulDiv(room, value - least, most - least);
    const LPARAM point = MAKELPARAM(x, area.bottom / 2);
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendMessageW(bar, WM_LBUTTONUP, 0, point);
  }
  void choose(std::size_t combo, int index) const {
    const HWND list = control("COMBOBOX", combo);
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(window_, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
  }

 private:
  HWND window_;
  std::map<std::string, std::vector<HWND>> children_;
};

void printWindow(const char* name, HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  const auto style = static_cast<unsigned long>(GetWindowLongW(window, GWL_STYLE));
  std::printf("%s %ld,%ld,%ld,%ld style %08lx %s\n", name, rect.left, rect.top,
              rect.right - rect.left, rect.bottom - rect.top, style,
              IsWindowVisible(window) ? "visible" : "hidden");
}

/// Which of the two windows is in front, by the system's own order.
void printOrder(HWND panel, HWND screen) {
  HWND above = GetTopWindow(nullptr);
  while (above && above != panel && above != screen) above = GetWindow(above, GW_HWNDNEXT);
  std::printf("in-front %s\n", above == panel ? "panel" : "screen");
}

void show() {
  const Panel panel;
  printWindow("panel", panel.window());
  if (const HWND screen = FindWindowW(nullptr, kScreenTitle)) {
    printWindow("screen", screen);
    printOrder(panel.window(), screen);
  }
  const char* const labels[] = {"state",        "position", "seconds", "length",
                                "volume-label", "count",    "note"};
  for (std::size_t i = 0; i < std::size(labels); ++i) {
    std::printf("%s %s\n", labels[i], textOf(panel.control("STATIC", i)).c_str());
  }
  std::printf("file %s\n", textOf(panel.control("EDIT", 0)).c_str());
  std::printf("play-button %s\n", textOf(panel.control("BUTTON", 0)).c_str());
  std::printf("loop-button %s\n", textOf(panel.control("BUTTON", 2)).c_str());
  const auto number = [&panel](const char* name, const char* kind, std::size_t index, UINT ask) {
    std::printf("%s %d\n", name,
                static_cast<int>(SendMessageW(panel.control(kind, index), ask, 0, 0)));
  };
  number("progress", "MSCTLS_TRACKBAR32", 0, TBM_GETPOS);
  number("volume", "MSCTLS_TRACKBAR32", 1, TBM_GETPOS);
  number("rule", "COMBOBOX", 0, CB_GETCURSEL);
  number("rows", "SYSLISTVIEW32", 0, LVM_GETITEMCOUNT);
}

/// The player's process, to wait for or to end.
class Player {
 public:
  Player() {
    DWORD id = 0;
    GetWindowThreadProcessId(Panel().window(), &id);
    process_ = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, id);
  }
  ~Player() { CloseHandle(process_); }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;
  void waitForEnd() const {
    if (WaitForSingleObject(process_, kDeadlineMs) != WAIT_OBJECT_0) fail("it does not end");
  }
  void kill() const {
    TerminateProcess(process_, 9);
    waitForEnd();
  }

 private:
  HANDLE process_ = nullptr;
};

void closePanel() {
  const Player player;
  PostMessageW(Panel().window(), WM_CLOSE, 0, 0);
  player.waitForEnd();
}

void closeAndKill(int afterMs) {
  const Player player;
  PostMessageW(Panel().window(), WM_CLOSE, 0, 0);
  Sleep(static_cast<DWORD>(afterMs));
  player.kill();
}

/// Carries out one command; tells whether it took the number after it.
bool carryOut(const std::string& command, int number) {
  const std::map<std::string, std::function<void()>> plain{
      {"wait",
       [] {
         until("the panel", [] { return IsWindowVisible(FindWindowW(nullptr, kPanelTitle)); });
       }},
      {"play", [] { Panel().press(0); }},
      {"stop", [] { Panel().press(1); }},
      {"loop", [] { Panel().press(2); }},
      {"show", show},
      {"close", closePanel},
      {"kill", [] { Player().kill(); }}};
  const std::map<std::string, std::function<void()>> numbered{
      {"closekill", [number] { closeAndKill(number); }},
      {"pause", [number] { Sleep(static_cast<DWORD>(number)); }},
      {"seek", [number] { Panel().slide(0, number); }},
      {"volume", [number] { Panel().slide(1, number); }},
      {"rule", [number] { Panel().choose(0, number); }}};
  if (const auto found = plain.find(command); found != plain.end()) {
    found->second();
    return false;
  }
  const auto found = numbered.find(command);
  if (found == numbered.end()) fail("unknown command " + command);
  found->second();
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const int number = i + 1 < argc ? std::atoi(argv[i + 1]) : 0;
    if (carryOut(argv[i], number)) ++i;
  }
  return 0;
}
