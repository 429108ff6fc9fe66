#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The names of a folder's files; nothing when it cannot be opened.
using FileNames = std::optional<std::vector<std::string>>;
/// What was read: a null bitmap for a picture that cannot be.
using WorkerAnswer = std::variant<UniqueGdi<HBITMAP>, FileNames>;

/// Lists folders and reads pictures on a thread of its own, one at a time, so that input ends the
/// program at once whatever a file, a disk or a network does. The thread is not waited for at the
/// end.
class PictureWorker {
 public:
  /// Pictures become as large as the area; the window gets the message when one is done.
  PictureWorker(Size area, HWND window, UINT message);
  ~PictureWorker();
  PictureWorker(const PictureWorker&) = delete;
  PictureWorker& operator=(const PictureWorker&) = delete;

  /// Neither before the answer to the request before was taken.
  void requestPicture(const std::string& path);
  void requestList(const std::string& folder);
  /// The answer, once.
  std::optional<WorkerAnswer> takeAnswer();

 private:
  struct Request {
    bool isList;
    std::string path;
  };
  struct Shared;
  void request(Request request);
  static WorkerAnswer answerTo(const Request& request, Size area);
  static void work(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;
};

}  // namespace tessivo::ssp
