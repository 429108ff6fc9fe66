// send_request COMMAND…: asks a running player for something, as a second start of it does: with
// WM_COPYDATA to the window titled "play27182831415". Well formed or not, like any foreign program.
// Several commands are carried out in order.
//
//   text TEXT      the text from here on (empty at first)
//   number N       dwData from here on (1)
//   size N         cbData from here on, true or not (otherwise the text's bytes and one more)
//   behind BYTE    what lies behind the text from here on (0)
//   no-data        lpData is null from here on
//   send           send the request: "answer R after N ms", or "no answer" and the error
//   send-both TEXT send the request and, without waiting for the answer, one with that text
//   flood N        send it N times without a pause; says how many were answered
//   hammer N MS    from N threads at once, each without a pause, for so long: "sent K in MS ms"
//   slowest MS     for so long, every 5 ms, something that the window's thread answers at once when
//   it
//                  is free: "slowest answer N ms"
//   post           post the message instead, which the system refuses
//   wait           until the window is there (60 s); looks for it without a pause
//   pause N        do nothing for N milliseconds
//   start N LEFT PROGRAM [ARGUMENT]   start the program N times at once and wait (120 s) until only
//                  LEFT of these processes are left; says how the others ended: "ended N, code C"
//   freeze, thaw   let the window's process do nothing any more, as one that hangs, and go on
//   players        how many processes run the window's program; of ended ones none counts
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>
#include <tlhelp32.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "platform/win32/WindowsText.h"

namespace {

using tessivo::fromWide;

constexpr wchar_t kTitle[] = L"play27182831415";
constexpr DWORD kAnswerMs = 20000;
constexpr DWORD kWindowMs = 60000;
constexpr DWORD kEndMs = 120000;

[[noreturn]] void fail(const std::string& why) {
  std::printf("send_request: %s\n", why.c_str());
  std::exit(1);
}

/// What is still to be carried out.
std::deque<std::wstring> words;

std::wstring nextWord() {
  if (words.empty()) fail("a command lacks its value");
  std::wstring word = std::move(words.front());
  words.pop_front();
  return word;
}

DWORD nextNumber() {
  return std::wcstoul(nextWord().c_str(), nullptr, 10);
}

HWND receiver() {
  const HWND window = FindWindowW(nullptr, kTitle);
  if (!window) fail("no player");
  return window;
}

/// What the commands so far made of the request.
struct Request {
  std::wstring text;
  DWORD number = 1;
  DWORD size = 0;
  bool isSizeSaid = false;
  unsigned char behind = 0;
  bool hasData = true;
};
Request request;

/// The request's bytes; they are there for whatever size is said.
std::vector<unsigned char> bytesOf(const Request& wanted, DWORD size) {
  const std::size_t textSize = wanted.text.size() * sizeof(wchar_t);
  std::vector<unsigned char> bytes(std::max<std::size_t>(size, textSize) + 1, wanted.behind);
  const auto* text = reinterpret_cast<const unsigned char*>(wanted.text.data());
  std::copy(text, text + textSize, bytes.begin());
  return bytes;
}

struct Answer {
  bool isThere = false;
  DWORD_PTR value = 0;
  DWORD error = 0;
  ULONGLONG ms = 0;
};

Answer ask(HWND window, const Request& wanted) {
  const auto textSize = static_cast<DWORD>(wanted.text.size() * sizeof(wchar_t));
  const DWORD size = wanted.isSizeSaid ? wanted.size : textSize + 1;
  std::vector<unsigned char> bytes = bytesOf(wanted, size);
  COPYDATASTRUCT data{wanted.number, size, wanted.hasData ? bytes.data() : nullptr};
  Answer answer;
  const ULONGLONG begin = GetTickCount64();
  SetLastError(0);
  answer.isThere = SendMessageTimeoutW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data),
                                       SMTO_NORMAL, kAnswerMs, &answer.value) != 0;
  answer.error = GetLastError();
  answer.ms = GetTickCount64() - begin;
  return answer;
}

void print(const Answer& answer) {
  if (answer.isThere) {
    std::printf("answer %d after %d ms\n", static_cast<int>(answer.value),
                static_cast<int>(answer.ms));
  } else {
    std::printf("no answer after %d ms, error %d\n", static_cast<int>(answer.ms),
                static_cast<int>(answer.error));
  }
}

void sendBoth() {
  const HWND window = receiver();
  Request second = request;
  second.text = nextWord();
  Answer later;
  // The first one is on its way, or worked on, when the second one is sent.
  std::thread sender([&] {
    Sleep(20);
    later = ask(window, second);
  });
  print(ask(window, request));
  sender.join();
  print(later);
}

void flood() {
  const HWND window = receiver();
  const DWORD count = nextNumber();
  DWORD answered = 0;
  for (DWORD i = 0; i < count; ++i) answered += ask(window, request).isThere ? 1 : 0;
  std::printf("answered %lu of %lu\n", answered, count);
}

void hammer() {
  const HWND window = receiver();
  const DWORD count = nextNumber();
  const DWORD ms = nextNumber();
  const ULONGLONG begin = GetTickCount64();
  std::atomic<int> sent = 0;
  std::vector<std::thread> senders;
  for (DWORD i = 0; i < count; ++i) {
    senders.emplace_back([&] {
      while (GetTickCount64() - begin < ms) sent += ask(window, request).isThere ? 1 : 0;
    });
  }
  for (std::thread& sender : senders) sender.join();
  std::printf("sent %d in %d ms\n", sent.load(), static_cast<int>(GetTickCount64() - begin));
}

void slowest() {
  const HWND window = receiver();
  const DWORD ms = nextNumber();
  const ULONGLONG begin = GetTickCount64();
  ULONGLONG worst = 0;
  for (ULONGLONG now = begin; now - begin < ms; now = GetTickCount64()) {
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kAnswerMs, &ignored);
    worst = std::max(worst, GetTickCount64() - now);
    Sleep(5);
  }
  std::printf("slowest answer %d ms\n", static_cast<int>(worst));
}

void post() {
  std::vector<unsigned char> bytes = bytesOf(request, 0);
  COPYDATASTRUCT data{request.number, static_cast<DWORD>(bytes.size()), bytes.data()};
  const bool isPosted =
      PostMessageW(receiver(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data)) != 0;
  if (isPosted) {
    std::puts("posted");
  } else {
    std::printf("not posted, error %lu\n", GetLastError());
  }
}

void waitForWindow() {
  const ULONGLONG deadline = GetTickCount64() + kWindowMs;
  while (!FindWindowW(nullptr, kTitle)) {
    if (GetTickCount64() > deadline) fail("waited in vain for the window");
    Sleep(1);
  }
}

/// The program at rest, so that many can be let go at the same moment.
PROCESS_INFORMATION prepare(const std::wstring& program, const std::wstring& argument) {
  std::wstring line = L'"' + program + L'"';
  if (!argument.empty()) line += L' ' + argument;
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                      nullptr, nullptr, &how, &made)) {
    fail("cannot start " + fromWide(program));
  }
  return made;
}

void start() {
  const DWORD count = nextNumber();
  const DWORD left = nextNumber();
  const std::wstring program = nextWord();
  const std::wstring argument = words.empty() ? L"" : nextWord();
  std::vector<PROCESS_INFORMATION> made;
  for (DWORD i = 0; i < count; ++i) made.push_back(prepare(program, argument));
  for (const auto& one : made) ResumeThread(one.hThread);

  std::map<DWORD, int> ended;
  const ULONGLONG deadline = GetTickCount64() + kEndMs;
  while (made.size() > left && GetTickCount64() < deadline) {
    Sleep(20);
    std::erase_if(made, [&ended](const PROCESS_INFORMATION& one) {
      DWORD code = 0;
      if (WaitForSingleObject(one.hProcess, 0) != WAIT_OBJECT_0) return false;
      GetExitCodeProcess(one.hProcess, &code);
      ++ended[code];
      return true;
    });
  }
  for (const auto& [code, times] : ended) std::printf("ended %d, code %lu\n", times, code);
  if (made.size() > left) fail(std::to_string(made.size()) + " did not end");
}

/// By the system's own operation for all threads of a process: NtSuspendProcess, NtResumeProcess.
void callSystem(const char* operation) {
  DWORD id = 0;
  GetWindowThreadProcessId(receiver(), &id);
  const HANDLE process = OpenProcess(PROCESS_SUSPEND_RESUME, FALSE, id);
  using Operation = LONG(WINAPI*)(HANDLE);
  const auto call =
      reinterpret_cast<Operation>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), operation));
  if (!process || !call || call(process) < 0) fail(std::string(operation) + " failed");
  CloseHandle(process);
}

/// The program's file name in the system's list of processes.
std::wstring nameOfProcess(const PROCESSENTRY32W& entry) {
  const std::wstring name = entry.szExeFile;
  return name.substr(name.find_last_of(L"\\/") + 1);
}

void printPlayers() {
  DWORD id = 0;
  GetWindowThreadProcessId(receiver(), &id);
  const HANDLE list = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
  std::vector<std::wstring> names;
  std::wstring wanted;
  PROCESSENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = Process32FirstW(list, &entry); more; more = Process32NextW(list, &entry)) {
    names.push_back(nameOfProcess(entry));
    if (entry.th32ProcessID == id) wanted = names.back();
  }
  CloseHandle(list);
  std::printf("%d\n", static_cast<int>(std::count(names.begin(), names.end(), wanted)));
}

void say(DWORD size) {
  request.size = size;
  request.isSizeSaid = true;
}

void carryOut(const std::wstring& command) {
  static const std::map<std::wstring, std::function<void()>> commands{
      {L"text", [] { request.text = nextWord(); }},
      {L"number", [] { request.number = nextNumber(); }},
      {L"size", [] { say(nextNumber()); }},
      {L"behind", [] { request.behind = static_cast<unsigned char>(nextNumber()); }},
      {L"no-data", [] { request.hasData = false; }},
      {L"send", [] { print(ask(receiver(), request)); }},
      {L"send-both", sendBoth},
      {L"flood", flood},
      {L"hammer", hammer},
      {L"slowest", slowest},
      {L"post", post},
      {L"wait", waitForWindow},
      {L"pause", [] { Sleep(nextNumber()); }},
      {L"start", start},
      {L"freeze", [] { callSystem("NtSuspendProcess"); }},
      {L"thaw", [] { callSystem("NtResumeProcess"); }},
      {L"players", printPlayers}};
  const auto found = commands.find(command);
  if (found == commands.end()) fail("unknown command " + fromWide(command));
  found->second();
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) words.emplace_back(list[i]);
  LocalFree(list);
  while (!words.empty()) carryOut(nextWord());
  return 0;
}
