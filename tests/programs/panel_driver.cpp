// panel_driver COMMAND…: works the control panel of a running player from outside, as an operator
// would, and tells what it shows. Several commands are carried out in order.
//
//   wait         until the panel is there (20 s)
//   play stop loop   press that button
//   rule N       choose the N-th engine rule (from 0)
//   seek N       move the progress slider to N seconds
//   volume N     move the volume slider
//   pause N      do nothing for N milliseconds
//   show         print what the panel and the playback window show, one "name value" a line
//   where NAME   "x y width height" of that control on the screen, in pixels; of the panel's inside
//                when the name is its own, frmMain
//   row-at N     "x y" of the middle of the name in row N (from 0) of the playlist
//   tick-at N    "x y" of that row's check box
//   cells N      that row's texts, " | " between them
//   error N      the same of row N of the error log
//   dialog       the title, text, buttons and place of the player's dialog in front, if any: texts
//                and buttons only of the program's own
//   dialog-where NAME  "x y width height" of that control of the dialog
//   types        the file types of the settings dialog, one a line: "yes" or "no", whether it is
//                ticked, type and description
//   type-at TYPE "x y" of that type's check box, after scrolling to it
//   form TITLE   the controls to be seen in the window of that title, which may be there without a
//                panel: one "name text" a line, each with its name
//   form-where TITLE NAME   "x y width height" of that control; of the window when NAME is "form"
//   form-session-ends TITLE as session-ends, for the program of that window
//   menu         "x y width height" of the pop-up menu that is open, if any
//   icon CODE    say to the tray's window what the notification area does when CODE, the number of
//                a mouse message, happens to the icon
//   answer NAME  press that button of whichever dialog has one, also below another
//   taskbar-created   say to all windows what the shell says when its task bar is new
//   session-ends      ask and tell the player's windows, in front first, what the system does when
//                     the user logs off, and wait until the player has ended (20 s)
//   session-stays     the same when another program has refused
//   close        ask the program to leave, and wait until it has ended (20 s)
//   kill         end the player's process at once
//   closekill N  ask it to leave, and end the process N milliseconds later, wherever it is
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <deque>
#include <functional>
#include <map>

#include "PanelList.h"
#include "PanelWindow.h"

namespace {

using namespace tessivo;

constexpr int kDeadlineMs = 20000;
constexpr int kSliderEnd = 13;   // pixels beside the way of the thumb's middle
constexpr int kTickMiddle = 11;  // pixels from a row's left edge
constexpr int kManyRows = 1000;  // of more the ticks are not counted
constexpr UINT kAnswerMs = 5000;
constexpr wchar_t kTrayTitle[] = L"play27182831415";
constexpr wchar_t kScreenTitle[] = L"Tessivo 播放窗口";

/// What is still to be carried out.
std::deque<std::string> words;

std::string nextWord() {
  if (words.empty()) fail("a command lacks its value");
  std::string word = std::move(words.front());
  words.pop_front();
  return word;
}

int nextNumber() {
  return std::atoi(nextWord().c_str());
}

void until(const std::string& what, const std::function<bool()>& condition) {
  const ULONGLONG deadline = GetTickCount64() + kDeadlineMs;
  while (!condition()) {
    if (GetTickCount64() > deadline) fail("waited in vain for " + what);
    Sleep(20);
  }
}

/// A press and a release of the left button where the value lies on the slider.
void slide(const std::string& slider, int value) {
  const HWND bar = PanelWindow().control(slider);
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

void press(const std::string& button) {
  PanelWindow().ask(button, BM_CLICK);
}

void choose(const std::string& combo, int index) {
  const HWND list = PanelWindow().control(combo);
  SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(list));
}

void printPlace(const RECT& rect) {
  std::printf("%ld %ld %ld %ld\n", rect.left, rect.top, rect.right - rect.left,
              rect.bottom - rect.top);
}

/// A window without its frame.
void printInside(HWND window) {
  RECT rect{};
  GetClientRect(window, &rect);
  MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  printPlace(rect);
}

void printPlace(HWND window) {
  RECT rect{};
  GetWindowRect(window, &rect);
  printPlace(rect);
}

void printWhere(const std::string& name) {
  const PanelWindow panel;
  name == "frmMain" ? printInside(panel.window()) : printPlace(panel.control(name));
}

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

void printText(const char* name, const std::string& text) {
  std::printf("%s %s\n", name, text.c_str());
}

void printNumber(const char* name, int number) {
  std::printf("%s %d\n", name, number);
}

const char* yesOrNo(bool yes) {
  return yes ? "yes" : "no";
}

void showWindows(const PanelWindow& panel) {
  printWindow("panel", panel.window());
  const char* const state = IsIconic(panel.window())   ? "minimised"
                            : IsZoomed(panel.window()) ? "maximised"
                                                       : "normal";
  printText("panel-state", state);
  if (const HWND screen = FindWindowW(nullptr, kScreenTitle)) {
    printWindow("screen", screen);
    printOrder(panel.window(), screen);
  }
  printText("focus", panel.focus());
}

void showTransport(const PanelWindow& panel) {
  printText("state", panel.text("labPlayState1"));
  printText("file", panel.text("txtFileName"));
  printText("position", panel.text("labMoviePosi"));
  printText("seconds", panel.text("labSlidMax"));
  printText("length", panel.text("labMovieLen"));
  printText("play-button", panel.text("cmdPlay"));
  printText("loop-button", panel.text("cmdRecyclePlayPL"));
  printText("screen-button", panel.text("cmdSetScreen"));
  printNumber("progress", panel.ask("sldJinDu", TBM_GETPOS));
  printNumber("volume", panel.ask("sldVolume", TBM_GETPOS));
  printNumber("rule", panel.ask("comboPlayRuler", CB_GETCURSEL));
}

/// The last row of the error log: the name of the file, then the reason.
std::string lastError(const PanelList& log) {
  const int last = log.rowCount() - 1;
  if (last < 0) return "";
  const std::string path = log.cell(last, 3);
  return path.substr(path.find_last_of("\\/") + 1) + ": " + log.cell(last, 2);
}

void showLists(const PanelWindow& panel) {
  const PanelList files(panel, "lvPlayList");
  const PanelList errors(panel, "lvPlayErrLogList");
  printText("count", panel.text("labFileCount"));
  printNumber("rows", files.rowCount());
  printNumber("selected", files.selected());
  if (files.rowCount() <= kManyRows) printNumber("ticked", files.tickedRows());
  printText("note", lastError(errors));
  printText("errors", panel.text("labPlayErrLogCount"));
  printText("error-mark", yesOrNo(panel.isVisible("picPlayErrNote")));
  printText("delete-hint", yesOrNo(panel.isVisible("labDeleteNote")));
  printText("work", panel.isVisible("labWork") ? panel.text("labWork") : "");
  const bool onErrors = panel.isVisible("picPlayErrLLBackGround");
  const bool onFiles = panel.isVisible("picPlayListBackGround");
  printText("page", onFiles ? "1" : onErrors ? "2" : "none");
}

void show() {
  const PanelWindow panel;
  showWindows(panel);
  showTransport(panel);
  showLists(panel);
}

void printCells(const std::string& list, int row, int columns) {
  const PanelList cells(PanelWindow{}, list);
  for (int column = 1; column < columns; ++column) {
    std::printf("%s%s", column > 1 ? " | " : "", cells.cell(row, column).c_str());
  }
  std::puts("");
}

void printRowAt(int row) {
  const RECT rect = PanelList(PanelWindow(), "lvPlayList").cellRect(row, 1);
  std::printf("%ld %ld\n", (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

void printTickAt(int row) {
  const RECT rect = PanelList(PanelWindow(), "lvPlayList").cellRect(row, 0);
  std::printf("%ld %ld\n", rect.left + kTickMiddle, (rect.top + rect.bottom) / 2);
}

void showDialog() {
  const HWND dialog = PanelWindow().dialog();
  if (!dialog) return;
  const HWND note = findControl(dialog, "labNote");
  printText("title", textOf(dialog));
  printText("text", note ? textOf(note) : "");
  std::string buttons;
  for (const char* const name : {"cmdYes", "cmdNo"}) {
    const HWND button = findControl(dialog, name);
    if (button && IsWindowVisible(button)) buttons += ' ' + textOf(button);
  }
  std::printf("buttons%s\n", buttons.c_str());
  std::printf("place ");
  printPlace(dialog);
}

void printDialogWhere(const std::string& name) {
  const HWND dialog = PanelWindow().dialog();
  const HWND control = dialog ? findControl(dialog, name) : nullptr;
  if (!control) fail("no dialog with a control " + name);
  printPlace(control);
}

PanelList typesOfDialog() {
  const HWND dialog = PanelWindow().dialog();
  const HWND list = dialog ? findControl(dialog, "lvFileAssociationList") : nullptr;
  if (!list) fail("no dialog with file types");
  return PanelList(list);
}

void printTypes() {
  const PanelList types = typesOfDialog();
  for (int row = 0, rows = types.rowCount(); row < rows; ++row) {
    std::printf("%s %s %s\n", yesOrNo(types.isTicked(row)), types.cell(row, 0).c_str(),
                types.cell(row, 1).c_str());
  }
}

void printTypeAt(const std::string& type) {
  const PanelList types = typesOfDialog();
  int row = 0;
  while (row < types.rowCount() && types.cell(row, 0) != type) ++row;
  if (row == types.rowCount()) fail("no file type " + type);
  types.scrollTo(row);
  const RECT rect = types.cellRect(row, 0);
  std::printf("%ld %ld\n", rect.left + kTickMiddle, (rect.top + rect.bottom) / 2);
}

void answer(const std::string& name) {
  std::pair<std::string, HWND> search(name, nullptr);
  const auto look = [](HWND window, LPARAM into) {
    auto& [wanted, found] = *reinterpret_cast<std::pair<std::string, HWND>*>(into);
    const HWND button = IsWindowVisible(window) ? findControl(window, wanted) : nullptr;
    if (button && IsWindowVisible(button)) found = button;
    return static_cast<BOOL>(found == nullptr);
  };
  EnumWindows(look, reinterpret_cast<LPARAM>(&search));
  if (!search.second) fail("no dialog with a button " + name);
  PostMessageW(search.second, BM_CLICK, 0, 0);
}

HWND findForm(const std::string& title) {
  const HWND form = FindWindowW(nullptr, toWide(title).c_str());
  if (!form) fail("no window " + title);
  return form;
}

void showForm(const std::string& title) {
  const auto print = [](HWND child, LPARAM) {
    const std::string name = nameOf(child);
    if (!name.empty() && IsWindowVisible(child)) printText(name.c_str(), textOf(child));
    return TRUE;
  };
  EnumChildWindows(findForm(title), print, 0);
}

void printFormWhere(const std::string& title, const std::string& name) {
  const HWND form = findForm(title);
  const HWND control = name == "form" ? form : findControl(form, name);
  if (!control) fail("no control " + name);
  printPlace(control);
}

void showMenu() {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  if (menu && IsWindowVisible(menu)) printPlace(menu);
}

/// The player's process, to wait for or to end.
class Player {
 public:
  explicit Player(HWND window = PanelWindow().window()) {
    process_ = OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, processOf(window));
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

/// The hidden window with the icon in the notification area. Closing it, as the system's tools for
/// ending programs do, leaves without a question.
HWND leavingWindow() {
  const HWND tray = FindWindowW(nullptr, kTrayTitle);
  return tray ? tray : PanelWindow().window();
}

void leave() {
  const Player player;
  PostMessageW(leavingWindow(), WM_CLOSE, 0, 0);
  player.waitForEnd();
}

void leaveAndKill(int afterMs) {
  const Player player;
  PostMessageW(leavingWindow(), WM_CLOSE, 0, 0);
  Sleep(static_cast<DWORD>(afterMs));
  player.kill();
}

void tellOfIcon(int code) {
  constexpr UINT kCallbackMessage = 512;
  constexpr WPARAM kIcon = 123;
  const HWND tray = FindWindowW(nullptr, kTrayTitle);
  if (!tray) fail("no tray window");
  PostMessageW(tray, kCallbackMessage, kIcon, code);
}

void sayTaskbarCreated() {
  PostMessageW(HWND_BROADCAST, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
}

std::vector<HWND> windowsOf(DWORD process) {
  std::pair<DWORD, std::vector<HWND>> search(process, {});
  const auto take = [](HWND window, LPARAM into) {
    auto& [wanted, found] = *reinterpret_cast<std::pair<DWORD, std::vector<HWND>>*>(into);
    if (processOf(window) == wanted) found.push_back(window);
    return TRUE;
  };
  EnumWindows(take, reinterpret_cast<LPARAM>(&search));
  return search.second;
}

/// No answer counts as 0.
DWORD_PTR answerTo(HWND window, UINT message, WPARAM wParam) {
  DWORD_PTR answer = 0;
  SendMessageTimeoutW(window, message, wParam, 0, SMTO_NORMAL, kAnswerMs, &answer);
  return answer;
}

void askAndTellSession(const std::vector<HWND>& windows, bool ends) {
  for (const HWND window : windows) {
    if (!answerTo(window, WM_QUERYENDSESSION, 0)) fail("a window refuses: " + textOf(window));
  }
  for (const HWND window : windows) answerTo(window, WM_ENDSESSION, ends);
}

void endSession(HWND window) {
  const Player player(window);
  askAndTellSession(windowsOf(processOf(window)), true);
  player.waitForEnd();
}

void keepSession() {
  askAndTellSession(windowsOf(processOf(PanelWindow().window())), false);
}

void waitForPanel() {
  until("the panel", [] { return IsWindowVisible(PanelWindow::find()); });
}

void carryOut(const std::string& command) {
  static const std::map<std::string, std::function<void()>> commands{
      {"wait", waitForPanel},
      {"play", [] { press("cmdPlay"); }},
      {"stop", [] { press("cmdStop"); }},
      {"loop", [] { press("cmdRecyclePlayPL"); }},
      {"rule", [] { choose("comboPlayRuler", nextNumber()); }},
      {"seek", [] { slide("sldJinDu", nextNumber()); }},
      {"volume", [] { slide("sldVolume", nextNumber()); }},
      {"pause", [] { Sleep(static_cast<DWORD>(nextNumber())); }},
      {"show", show},
      {"where", [] { printWhere(nextWord()); }},
      {"row-at", [] { printRowAt(nextNumber()); }},
      {"tick-at", [] { printTickAt(nextNumber()); }},
      {"cells", [] { printCells("lvPlayList", nextNumber(), 3); }},
      {"error", [] { printCells("lvPlayErrLogList", nextNumber(), 4); }},
      {"dialog", showDialog},
      {"answer", [] { answer(nextWord()); }},
      {"dialog-where", [] { printDialogWhere(nextWord()); }},
      {"types", printTypes},
      {"type-at", [] { printTypeAt(nextWord()); }},
      {"menu", showMenu},
      {"icon", [] { tellOfIcon(nextNumber()); }},
      {"taskbar-created", sayTaskbarCreated},
      {"form", [] { showForm(nextWord()); }},
      {"form-where",
       [] {
         const std::string title = nextWord();
         printFormWhere(title, nextWord());
       }},
      {"form-session-ends", [] { endSession(findForm(nextWord())); }},
      {"session-ends", [] { endSession(PanelWindow().window()); }},
      {"session-stays", keepSession},
      {"close", leave},
      {"kill", [] { Player().kill(); }},
      {"closekill", [] { leaveAndKill(nextNumber()); }}};
  const auto found = commands.find(command);
  if (found == commands.end()) fail("unknown command " + command);
  found->second();
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) words.push_back(fromWide(list[i]));
  LocalFree(list);
  while (!words.empty()) carryOut(nextWord());
  return 0;
}
