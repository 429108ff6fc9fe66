// The controller's operations on the playlist.
#include <algorithm>
#include <utility>

#include "app/Controler.h"
#include "base/Quotes.h"
#include "base/Text.h"

namespace tessivo {
namespace {

/// UTF-16 units; the system knows no longer one.
constexpr std::size_t kLongestPath = 32767;
constexpr std::size_t kMostBytesAUnit = 3;  // of UTF-8

constexpr std::size_t kLooksAtOnce = 64;

/// The last path of a selection in shared memory comes with the zero bytes that fill it up.
std::string plainPath(const std::string& path) {
  return std::string(unquoted(path.substr(0, path.find('\0'))));
}

bool isTooLong(const std::string& plain) {
  return plain.size() > kLongestPath * kMostBytesAUnit || toUtf16(plain).size() > kLongestPath;
}

bool isAddress(const std::string& plain) {
  return containsNoCase(plain, "http");
}

/// The file to look for, or nothing where no look is needed.
std::string fileOf(const std::string& plain) {
  return isTooLong(plain) || isAddress(plain) ? "" : plain;
}

}  // namespace

MoviePtr Controler::AddAMovieToPL(const std::string& path) {
  const std::string plain = plainPath(path);
  return addPlain(plain, services_.files.fileExists(fileOf(plain)));
}

void Controler::lookAhead(Batch& batch, const Files& files) {
  const std::size_t end = std::min(batch.paths.size(), batch.next + kLooksAtOnce);
  std::vector<std::string> paths;
  for (std::size_t i = batch.next; i < end; ++i) paths.push_back(fileOf(plainPath(batch.paths[i])));
  batch.areFiles = files.firstFilesExist(paths);
  batch.lookedFrom = batch.next;
}

MoviePtr Controler::addPlain(const std::string& plain, bool isFile) {
  if (isTooLong(plain)) {
    services_.log.error("not added, too long: " + plain.substr(0, kLongestPath / 100) + "…");
    return nullptr;
  }
  if (!isFile && !isAddress(plain)) {
    services_.log.error("not added, not a file: " + plain);
    return nullptr;
  }
  auto movie = std::make_shared<Movie>(services_.movieKeys);
  movie->strFileName = fileNameOf(plain);
  movie->strFilePath = plain;
  if (!playList_->addAItem(movie)) return nullptr;
  if (movie->boolIsPlayItem) screen_->strFilePath(plain);
  return movie;
}

void Controler::BatchAddMovie(std::vector<std::string> paths, bool play) {
  if (exiting_) return;
  if (!paths.empty()) pathsTotal_ += static_cast<std::int32_t>(paths.size() - 1);
  auto batch = std::make_shared<Batch>();
  batch->paths = std::move(paths);
  batch->play = play;
  adding_.run([this, batch] { return addNext(*batch); });
}

/// The end is a step of its own: exitSys, called by a message loop that an engine runs while it is
/// handed the first path, completes the batch from inside.
bool Controler::addNext(Batch& batch) {
  if (batch.next >= batch.paths.size()) {
    endBatch(batch);
    return false;
  }
  if (batch.next - batch.lookedFrom >= batch.areFiles.size()) {
    lookAhead(batch, services_.files);
  }
  ++pathsDone_;
  const bool isFile = batch.areFiles[batch.next - batch.lookedFrom];
  const auto movie = addPlain(plainPath(batch.paths[batch.next++]), isFile);
  if (!isListed(movie)) return true;
  panel_->AddAMovieToFaceList(*movie);
  batch.added.push_back(movie);
  return true;
}

bool Controler::isListed(const MoviePtr& movie) const {
  return movie && playList_->objGetItemByFlag(movie->strKey) == movie;
}

void Controler::endBatch(const Batch& batch) {
  const bool play = batch.play && !exiting_;
  const auto first =
      std::ranges::find_if(batch.added, [this](const MoviePtr& movie) { return isListed(movie); });
  if (first != batch.added.end()) {
    play ? startBatch(**first) : selectAItem((*first)->strKey);
    if (!play) panel_->selectPLItemByKey((*first)->strKey);
  } else if (play) {
    stopPlay();
    panel_->setFaceToAPlayState(panelState::kStopped, false);
  }
}

void Controler::showAddingProgress() {
  if (adding_.isRunning()) {
    addingShown_ = true;
    panel_->showAdding(pathsDone_, pathsTotal_);
    return;
  }
  pathsDone_ = pathsTotal_ = 0;
  if (std::exchange(addingShown_, false)) panel_->showAdding(0, 0);
}

void Controler::finishAdding() {
  if (!adding_.isRunning()) return;
  panel_->hideFace();
  adding_.finish();
}

void Controler::startBatch(const Movie& first) {
  playList_->setPlayItemByFlag(first.strKey);
  playList_->setActItemByFlag(first.strKey);
  panel_->setPLItemStateByKey(first.strKey, 1);
  const bool plays = PlayAMovieByFlag(first.strKey);
  panel_->setFaceToAPlayState(plays ? panelState::kPlaying : panelState::kStopped, false);
}

bool Controler::deleteAItemFromPL(const std::string& key, MoviePtr& next) {
  const auto gone = playList_->objGetItemByFlag(key);
  const bool wasPlayItem = gone && gone == playList_->objGetPlayItem();
  if (!playList_->deleteAItem(key, next)) return false;
  if (next) playList_->setActItemByFlag(next->strKey);
  if (!wasPlayItem) return true;
  if (next) playList_->setPlayItemByFlag(next->strKey);
  screen_->prepareNext("");  // nothing plays: what comes next is not known to come
  screen_->strFilePath(next ? next->strFilePath : "");
  return true;
}

void Controler::deleteAllItemFromPL() {
  adding_.cancel();
  playList_->clearList();
  screen_->strFilePath("");
}

bool Controler::moveAItemUpDown(int direction, const std::string& key, MoviePtr& neighbour) {
  return playList_->moveAItemUpDown(direction, key, neighbour);
}

void Controler::selectAItem(const std::string& key) {
  playList_->setActItemByFlag(key);
}

MoviePtr Controler::objGetPlayItem() const {
  return playList_->objGetPlayItem();
}

std::int32_t Controler::lngGetIndexByItemFlag(const std::string& key) const {
  return playList_->lngGetIndexByItemFlag(key);
}

std::int32_t Controler::lngGetPlayListItemCount() const {
  return playList_->lngListCount();
}

bool Controler::PlayAMovieByFlag(const std::string& key) {
  const auto movie = playList_->objGetItemByFlag(key);
  if (!movie) return false;
  playList_->setPlayItemByFlag(key);
  screen_->strFilePath(movie->strFilePath);
  return screen_->play();
}

void Controler::playNextPreviousPlayItem(int direction, bool recycle, MoviePtr& previous,
                                         MoviePtr& now) {
  previous = nullptr;
  now = nullptr;
  std::int32_t code = 0;
  if (direction == stepDirection::kNext) {
    now = playList_->objGetNextPalyItem(recycle, previous, code);
  } else if (direction == stepDirection::kPrevious) {
    now = playList_->objGetPreviousPalyItem(recycle, previous, code);
  }
  if (!now) return screen_->prepareNext("");
  playList_->setActItemByFlag(now->strKey);
  screen_->strFilePath(now->strFilePath);
}

}  // namespace tessivo
