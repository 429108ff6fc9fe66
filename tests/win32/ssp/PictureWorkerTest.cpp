#include "ssp/win32/PictureWorker.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>

#include "fakes/TempFolder.h"

namespace tessivo::ssp {
namespace {

constexpr UINT kAnswered = WM_APP + 1;

struct PictureWorkerTest : testing::Test {
  ~PictureWorkerTest() override { DestroyWindow(window); }

  WorkerAnswer answer() {
    MSG message{};
    while (GetMessageW(&message, window, kAnswered, kAnswered) > 0) {
      if (auto taken = worker.takeAnswer()) return std::move(*taken);
    }
    return {};
  }

  TempFolder folder;
  HWND window =
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
  PictureWorker worker{{40, 30}, window, kAnswered};
};

TEST_F(PictureWorkerTest, ListsAFolder) {
  std::ofstream(toFilePath(folder.file("图.jpg"))) << "x";
  const std::string path = folder.file("图.jpg");
  worker.requestList(path.substr(0, path.find_last_of("/\\")));
  const WorkerAnswer answered = answer();
  ASSERT_TRUE(std::holds_alternative<FileNames>(answered));
  EXPECT_EQ(std::get<FileNames>(answered), FileNames({"图.jpg"}));
  EXPECT_FALSE(worker.takeAnswer());
}

TEST_F(PictureWorkerTest, FolderThatCannotBeOpenedIsNothing) {
  worker.requestList(folder.file("gone"));
  const WorkerAnswer answered = answer();
  ASSERT_TRUE(std::holds_alternative<FileNames>(answered));
  EXPECT_FALSE(std::get<FileNames>(answered));
}

TEST_F(PictureWorkerTest, PictureThatCannotBeReadIsANullBitmap) {
  worker.requestPicture(folder.file("gone.jpg"));
  const WorkerAnswer answered = answer();
  ASSERT_TRUE(std::holds_alternative<UniqueGdi<HBITMAP>>(answered));
  EXPECT_FALSE(std::get<UniqueGdi<HBITMAP>>(answered));
}

}  // namespace
}  // namespace tessivo::ssp
