#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, which it needs:
#include <ole2.h>

#include <filesystem>
#include <functional>

#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "platform/win32/Win32FileDialogs.h"
#include "win32/platform/ThreadDialogs.h"

namespace tessivo {
namespace {

constexpr const char* kTitle = "选择图片文件夹";

class ChooseFolderTest : public testing::Test {
 protected:
  ChooseFolderTest() {
    OleInitialize(nullptr);
    owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                            nullptr, nullptr, nullptr);
  }
  ~ChooseFolderTest() override {
    DestroyWindow(owner);
    OleUninitialize();
  }

  /// Asks from that folder on; once the dialog is up the user does something to it, once.
  std::optional<std::string> ask(const std::string& from, const std::function<void(HWND)>& act) {
    bool acted = false;
    bool overdue = false;
    const ULONGLONG deadline = GetTickCount64() + 20000;
    const Ticks user([&] {
      overdue = overdue || GetTickCount64() >= deadline;
      if (overdue) return cancelDialogsOfThisThread();
      for (HWND dialog : dialogsOfThisThread()) {
        if (acted || titleOf(dialog) != kTitle || !IsWindowEnabled(dialog)) continue;
        acted = true;
        act(dialog);
      }
    });
    auto answer = dialogs.chooseFolder({kTitle, from, reinterpret_cast<WindowHandle>(owner)});
    EXPECT_TRUE(acted);
    EXPECT_FALSE(overdue) << "the dialog did not close by itself";
    return answer;
  }
  static void press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, static_cast<WPARAM>(button), 0);
  }

  static BOOL CALLBACK takeEdit(HWND window, LPARAM into) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    const bool isEdit = lstrcmpiW(name, L"Edit") == 0 && IsWindowVisible(window);
    if (isEdit) *reinterpret_cast<HWND*>(into) = window;
    return !isEdit;
  }
  static HWND nameBox(HWND dialog) {
    HWND found = nullptr;
    EnumChildWindows(dialog, takeEdit, reinterpret_cast<LPARAM>(&found));
    return found;
  }

  TempFolder folder;
  FakeLog log;
  Win32FileDialogs dialogs{log};
  HWND owner = nullptr;
};

TEST_F(ChooseFolderTest, FolderThatTheUserNamesIsTheAnswer) {
  std::filesystem::create_directories(folder.path() / toFilePath("照 片"));
  const auto answer = ask(folder.file(""), [](HWND dialog) {
    SendMessageW(nameBox(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"照 片"));
    press(dialog, IDOK);
  });
  EXPECT_EQ(answer.value_or("nothing"), folder.file("照 片"));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(ChooseFolderTest, CancelGivesNothing) {
  EXPECT_FALSE(ask(folder.file(""), [](HWND dialog) { press(dialog, IDCANCEL); }));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(ChooseFolderTest, FolderThatIsNotThereDoesNotHinderTheDialog) {
  EXPECT_FALSE(ask(folder.file("gone"), [](HWND dialog) { press(dialog, IDCANCEL); }));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(ChooseFolderTest, DialogIsModalOverItsOwnerAndTheCurrentFolderStays) {
  const auto before = std::filesystem::current_path();
  ask(folder.file(""), [this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
    EXPECT_FALSE(IsWindowEnabled(owner));
    press(dialog, IDCANCEL);
  });
  EXPECT_TRUE(IsWindowEnabled(owner));
  EXPECT_EQ(std::filesystem::current_path(), before);
}

}  // namespace
}  // namespace tessivo
