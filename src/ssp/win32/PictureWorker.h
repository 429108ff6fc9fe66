#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// Reads pictures on a thread of its own, one at a time, so that input ends the program at once
/// whatever a file or a disk does. The thread is not waited for at the end.
class PictureWorker {
 public:
  /// Pictures become as large as the area; the window gets the message when one is done.
  PictureWorker(Size area, HWND window, UINT message);
  ~PictureWorker();
  PictureWorker(const PictureWorker&) = delete;
  PictureWorker& operator=(const PictureWorker&) = delete;

  /// Not before the answer to the request before was taken.
  void request(const std::string& path);
  /// The answer, once; a null bitmap for a picture that cannot be read.
  std::optional<UniqueGdi<HBITMAP>> takeAnswer();

 private:
  struct Shared;
  static void work(const std::shared_ptr<Shared>& shared);

  std::shared_ptr<Shared> shared_;
};

}  // namespace tessivo::ssp
