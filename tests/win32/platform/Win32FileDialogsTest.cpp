#include "platform/win32/Win32FileDialogs.h"

#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, which it needs:
#include <commdlg.h>
#include <dlgs.h>
#include <shlobj.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "win32/platform/ThreadDialogs.h"

namespace tessivo {
namespace {

constexpr const char* kTitle = "选择要添加的文件";
constexpr std::uint32_t kFlags = OFN_EXPLORER | OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY;

/// What the user does to the open dialog; true once it is done.
using Step = std::function<bool(HWND dialog)>;

bool press(HWND dialog, int button) {
  return PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0) != 0;
}

Step pressing(int button) {
  return [button](HWND dialog) { return press(dialog, button); };
}

HWND nameBox(HWND dialog) {
  const HWND combo = GetDlgItem(dialog, cmb13);
  return combo ? combo : GetDlgItem(dialog, edt1);
}

Step typing(const std::string& names) {
  return [names](HWND dialog) {
    return SendMessageW(nameBox(dialog), WM_SETTEXT, 0,
                        reinterpret_cast<LPARAM>(toWide(names).c_str())) != 0;
  };
}

/// Where the dialog looks.
std::wstring folderOf(HWND dialog) {
  std::wstring folder(MAX_PATH, L'\0');
  const LRESULT length =
      SendMessageW(dialog, CDM_GETFOLDERPATH, MAX_PATH, reinterpret_cast<LPARAM>(folder.data()));
  folder.resize(static_cast<std::size_t>(std::max<LRESULT>(length, 1) - 1));
  return folder;
}

std::string quoted(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "\"" : " \"") + name + "\"";
  return text;
}

std::string withNuls(const std::string& folder, const std::vector<std::string>& names) {
  std::string text = folder;
  for (const std::string& name : names) text += '\0' + name;
  return text;
}

class Win32FileDialogsTest : public testing::Test {
 protected:
  Win32FileDialogsTest() {
    owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                            nullptr, nullptr, nullptr);
    request.title = kTitle;
    request.flags = kFlags;
    request.filter = "影片(*.avi)|*.avi|所有文件(*.*)|*.*";
    request.maxLength = 32767;
    request.owner = reinterpret_cast<WindowHandle>(owner);
  }
  ~Win32FileDialogsTest() override { DestroyWindow(owner); }

  std::string make(const std::string& name) const {
    std::ofstream(folder.path() / toFilePath(name)) << "x";
    return name;
  }
  static std::string text(const std::filesystem::path& path) { return fromWide(path.wstring()); }

  /// Asks, with a user who takes the steps. A dialog that is still open at the deadline is
  /// cancelled and fails the test.
  OpenFilesAnswer ask(const std::vector<Step>& steps) {
    std::size_t taken = 0;
    bool overdue = false;
    const ULONGLONG deadline = GetTickCount64() + 20000;
    const Ticks user([&] {
      overdue = overdue || GetTickCount64() >= deadline;
      if (overdue) return cancelDialogsOfThisThread();
      for (HWND dialog : dialogsOfThisThread()) {
        const bool itsTurn = titleOf(dialog) == kTitle && IsWindowEnabled(dialog);
        if (itsTurn && taken < steps.size() && steps[taken](dialog)) ++taken;
      }
    });
    const OpenFilesAnswer answer = dialogs.openFiles(request);
    EXPECT_FALSE(overdue) << "the dialog did not close by itself";
    EXPECT_EQ(taken, steps.size());
    return answer;
  }
  /// The user goes to the folder first: the dialog begins where its last user was.
  OpenFilesAnswer chooseIn(const std::filesystem::path& where,
                           const std::vector<std::string>& names) {
    const auto isThere = [](HWND dialog) { return GetWindowTextLengthW(nameBox(dialog)) == 0; };
    return ask(
        {typing(text(where)), pressing(IDOK), isThere, typing(quoted(names)), pressing(IDOK)});
  }
  OpenFilesAnswer choose(const std::vector<std::string>& names) {
    return chooseIn(folder.path(), names);
  }
  /// Asks and looks at the open dialog before it is cancelled.
  void lookAt(const std::function<void(HWND dialog)>& look) {
    ask({[&](HWND dialog) {
      look(dialog);
      return press(dialog, IDCANCEL);
    }});
  }

  TempFolder folder;
  FakeLog log;
  Win32FileDialogs dialogs{log};
  OpenFilesRequest request;
  HWND owner = nullptr;
};

TEST_F(Win32FileDialogsTest, OneFileGivesItsPath) {
  const OpenFilesAnswer answer = choose({make("电影 一.avi")});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::chosen);
  EXPECT_EQ(answer.text, folder.file("电影 一.avi"));
}

TEST_F(Win32FileDialogsTest, SeveralFilesGiveTheirFolderAndTheirNames) {
  const OpenFilesAnswer answer = choose({make("电影 一.avi"), make("b.avi"), make("é.avi")});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::chosen);
  EXPECT_EQ(answer.text, withNuls(text(folder.path()), {"电影 一.avi", "b.avi", "é.avi"}));
}

TEST_F(Win32FileDialogsTest, FolderThatIsADrivesRootEndsWithItsBackslash) {
  const std::filesystem::path root = folder.path().root_path();
  TempFolder sample;  // for its name, which nobody else has
  const std::string name = text(sample.path().filename());
  const std::vector<std::string> names = {name + "a.avi", name + "b.avi"};
  for (const auto& each : names) std::ofstream(root / toFilePath(each)) << "x";
  const OpenFilesAnswer answer = chooseIn(root, names);
  for (const auto& each : names) EXPECT_TRUE(std::filesystem::remove(root / toFilePath(each)));
  EXPECT_EQ(answer.text, withNuls(text(root), names));
  EXPECT_EQ(text(root).back(), '\\');
}

TEST_F(Win32FileDialogsTest, CancelGivesNothing) {
  const OpenFilesAnswer answer = ask({typing(make("a.avi")), pressing(IDCANCEL)});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::cancelled);
  EXPECT_EQ(answer.text, "");
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Win32FileDialogsTest, OneNameThatDoesNotFitIsTooMany) {
  request.maxLength = 20;
  const OpenFilesAnswer answer = choose({make("a.avi")});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::tooMany);
  EXPECT_EQ(answer.text, "");
}

TEST_F(Win32FileDialogsTest, NamesThatDoNotFitAreTooMany) {
  request.maxLength = static_cast<std::int32_t>(folder.path().wstring().size()) + 20;
  const OpenFilesAnswer answer = choose({make("电影 一.avi"), make("b.avi"), make("c.avi")});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::tooMany);
  EXPECT_EQ(answer.text, "");
}

TEST_F(Win32FileDialogsTest, NamesThatJustFitAreChosen) {
  const std::string list = withNuls(text(folder.path()), {make("电影 一.avi"), make("b.avi")});
  request.maxLength = static_cast<std::int32_t>(toWide(list).size()) + 2;
  const OpenFilesAnswer answer = choose({"电影 一.avi", "b.avi"});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::chosen);
}

TEST_F(Win32FileDialogsTest, HundredsOfNamesFitUntilTheAnswerIsFull) {
  std::vector<std::string> names;
  for (int i = 0; i < 320; ++i) {
    names.push_back(make(std::to_string(1000 + i) + std::string(96, 'n') + ".avi"));
  }
  EXPECT_EQ(choose(names).outcome, FileDialogOutcome::tooMany);
  names.resize(300);
  const OpenFilesAnswer answer = choose(names);
  EXPECT_EQ(answer.outcome, FileDialogOutcome::chosen);
  EXPECT_EQ(answer.text, withNuls(text(folder.path()), names));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Win32FileDialogsTest, CurrentFolderStaysWhereverTheUserGoes) {
  const std::filesystem::path before = std::filesystem::current_path();
  EXPECT_EQ(choose({make("a.avi")}).text, folder.file("a.avi"));
  EXPECT_EQ(std::filesystem::current_path(), before);
  std::filesystem::current_path(before);  // for the other tests
}

TEST_F(Win32FileDialogsTest, BeginsInTheVideosUntilSomethingWasChosen) {
  PWSTR videos = nullptr;
  ASSERT_EQ(SHGetKnownFolderPath(FOLDERID_Videos, 0, nullptr, &videos), S_OK);
  // What the system itself remembers is not needed.
  RegDeleteTreeW(HKEY_CURRENT_USER,
                 L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\ComDlg32");
  request.beginsInVideos = true;
  std::wstring begins;
  const auto look = [&](HWND dialog) { begins = folderOf(dialog); };
  lookAt(look);
  EXPECT_EQ(begins, videos);
  lookAt(look);  // cancelled: nothing was chosen
  EXPECT_EQ(begins, videos);
  EXPECT_EQ(choose({make("a.avi")}).outcome, FileDialogOutcome::chosen);
  lookAt(look);
  EXPECT_EQ(begins, folder.path().wstring());
  // Several at once, after one elsewhere.
  const TempFolder other;
  EXPECT_EQ(chooseIn(other.path(), {"none.avi"}).outcome, FileDialogOutcome::chosen);
  EXPECT_EQ(chooseIn(folder.path(), {make("b.avi"), make("c.avi")}).outcome,
            FileDialogOutcome::chosen);
  lookAt(look);
  EXPECT_EQ(begins, folder.path().wstring());
  CoTaskMemFree(videos);
}

TEST_F(Win32FileDialogsTest, DialogIsModalOverItsOwnerWithTheTitleAndNoName) {
  lookAt([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
    EXPECT_FALSE(IsWindowEnabled(owner));
    EXPECT_EQ(titleOf(dialog), kTitle);
    EXPECT_EQ(GetWindowTextLengthW(nameBox(dialog)), 0);
  });
  EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Win32FileDialogsTest, FlagsDecideOnTheReadOnlyBox) {
  bool visible = true;
  const auto look = [&](HWND dialog) {
    visible = (GetWindowLongPtrW(GetDlgItem(dialog, chx1), GWL_STYLE) & WS_VISIBLE) != 0;
  };
  lookAt(look);
  EXPECT_FALSE(visible);
  request.flags &= ~static_cast<std::uint32_t>(OFN_HIDEREADONLY);
  lookAt(look);
  EXPECT_TRUE(visible);
}

TEST_F(Win32FileDialogsTest, TypesAreTheFiltersNamesInTheirOrder) {
  request.filter = "影片(*.avi)|*.avi|QuickTime文件(*.mov; *.qt)|*.mov; *.qt|所有文件(*.*)|*.*";
  request.filterIndex = 2;
  std::vector<std::string> types;
  LRESULT chosen = -1;
  lookAt([&](HWND dialog) {
    const HWND combo = GetDlgItem(dialog, cmb1);
    chosen = SendMessageW(combo, CB_GETCURSEL, 0, 0);
    const auto count = static_cast<WPARAM>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
      wchar_t type[100] = {};
      SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(type));
      types.push_back(fromWide(type));
    }
  });
  EXPECT_EQ(types, (std::vector<std::string>{"影片(*.avi)", "QuickTime文件(*.mov; *.qt)",
                                             "所有文件(*.*)"}));
  EXPECT_EQ(chosen, 1);
}

TEST_F(Win32FileDialogsTest, WhatTheSystemCannotShowFailsAndIsLogged) {
  request.flags = OFN_ENABLETEMPLATE;  // there is none
  const OpenFilesAnswer answer = ask({});
  EXPECT_EQ(answer.outcome, FileDialogOutcome::failed);
  EXPECT_EQ(answer.text, "");
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with("error the open-file dialog broke off, error "));
}

}  // namespace
}  // namespace tessivo
