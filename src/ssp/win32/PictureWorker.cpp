#include "ssp/win32/PictureWorker.h"

#include <objbase.h>

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include "ssp/win32/PictureReader.h"

namespace tessivo::ssp {

/// What both threads use, locked, but for the first three, which never change.
struct PictureWorker::Shared {
  Size area;
  HWND window;
  UINT message;
  std::mutex mutex;
  std::condition_variable changed;
  std::optional<std::string> request;
  std::optional<UniqueGdi<HBITMAP>> answer;
  bool ends = false;

  Shared(Size theArea, HWND theWindow, UINT theMessage)
      : area(theArea), window(theWindow), message(theMessage) {}
};

PictureWorker::PictureWorker(Size area, HWND window, UINT message)
    : shared_(std::make_shared<Shared>(area, window, message)) {
  std::thread([shared = shared_] { work(shared); }).detach();
}

PictureWorker::~PictureWorker() {
  const std::lock_guard lock(shared_->mutex);
  shared_->ends = true;
  shared_->changed.notify_one();
}

void PictureWorker::request(const std::string& path) {
  const std::lock_guard lock(shared_->mutex);
  shared_->request = path;
  shared_->changed.notify_one();
}

std::optional<UniqueGdi<HBITMAP>> PictureWorker::takeAnswer() {
  const std::lock_guard lock(shared_->mutex);
  return std::exchange(shared_->answer, std::nullopt);
}

void PictureWorker::work(const std::shared_ptr<Shared>& shared) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  std::unique_lock lock(shared->mutex);
  for (;;) {
    shared->changed.wait(lock, [&] { return shared->ends || shared->request; });
    if (shared->ends) break;
    const std::string path = *std::exchange(shared->request, std::nullopt);
    lock.unlock();
    UniqueGdi<HBITMAP> picture;
    try {
      picture = readPicture(path, shared->area);
    } catch (const std::bad_alloc&) {
      picture = nullptr;  // as one that is too large
    }
    lock.lock();
    shared->answer = std::move(picture);
    PostMessageW(shared->window, shared->message, 0, 0);
  }
  lock.unlock();
  CoUninitialize();
}

}  // namespace tessivo::ssp
