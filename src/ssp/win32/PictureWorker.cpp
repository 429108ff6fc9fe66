#include "ssp/win32/PictureWorker.h"

#include <objbase.h>

#include <condition_variable>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "platform/win32/Win32Files.h"
#include "ssp/win32/PictureReader.h"

namespace tessivo::ssp {

/// What both threads use, locked, but for the first three, which never change.
struct PictureWorker::Shared {
  Size area;
  HWND window;
  UINT message;
  std::mutex mutex;
  std::condition_variable changed;
  std::optional<Request> request;
  std::optional<WorkerAnswer> answer;
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

void PictureWorker::requestPicture(const std::string& path) {
  request({false, path});
}

void PictureWorker::requestList(const std::string& folder) {
  request({true, folder});
}

void PictureWorker::request(Request request) {
  const std::lock_guard lock(shared_->mutex);
  shared_->request = std::move(request);
  shared_->changed.notify_one();
}

std::optional<WorkerAnswer> PictureWorker::takeAnswer() {
  const std::lock_guard lock(shared_->mutex);
  return std::exchange(shared_->answer, std::nullopt);
}

WorkerAnswer PictureWorker::answerTo(const Request& request, Size area) {
  try {
    if (request.isList) return Win32Files().filesIn(request.path);
    return readPicture(request.path, area);
  } catch (const std::bad_alloc&) {
    // As a folder that cannot be opened, or a picture that is too large.
    return request.isList ? WorkerAnswer(FileNames()) : WorkerAnswer(UniqueGdi<HBITMAP>());
  }
}

void PictureWorker::work(const std::shared_ptr<Shared>& shared) {
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  std::unique_lock lock(shared->mutex);
  for (;;) {
    shared->changed.wait(lock, [&] { return shared->ends || shared->request; });
    if (shared->ends) break;
    const Request request = *std::exchange(shared->request, std::nullopt);
    lock.unlock();
    WorkerAnswer answer = answerTo(request, shared->area);
    lock.lock();
    shared->answer = std::move(answer);
    PostMessageW(shared->window, shared->message, 0, 0);
  }
  lock.unlock();
  CoUninitialize();
}

}  // namespace tessivo::ssp
