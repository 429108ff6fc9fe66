// The controller's operations on the playlist.
#include "app/Controler.h"
#include "base/Quotes.h"
#include "base/Text.h"

namespace tessivo {

bool Controler::isAcceptable(const std::string& path) const {
  return containsNoCase(path, "http") || services_.files.fileExists(path);
}

MoviePtr Controler::AddAMovieToPL(const std::string& path) {
  const std::string plain(unquoted(path));
  if (!isAcceptable(plain)) {
    services_.log.error("not added, no such file: " + plain);
    return nullptr;
  }
  auto movie = std::make_shared<Movie>(services_.movieKeys);
  movie->strFileName = fileNameOf(plain);
  movie->strFilePath = plain;
  if (!playList_->addAItem(movie)) return nullptr;
  if (movie->boolIsPlayItem) screen_->strFilePath(plain);
  return movie;
}

void Controler::BatchAddMovie(const std::vector<std::string>& paths, bool play) {
  MoviePtr first;
  for (std::size_t i = 1; i < paths.size(); ++i) {
    const auto movie = AddAMovieToPL(paths[i]);
    if (!movie) continue;
    panel_->AddAMovieToFaceList(*movie);
    if (!first) first = movie;
  }
  if (first) {
    play ? startBatch(*first) : selectAItem(first->strKey);
    if (!play) panel_->selectPLItemByKey(first->strKey);
  } else if (play) {
    stopPlay();
    panel_->setFaceToAPlayState(panelState::kStopped, false);
  }
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
  const bool wasPlayItem = gone && gone->boolIsPlayItem;
  if (!playList_->deleteAItem(key, next)) return false;
  if (next) playList_->setActItemByFlag(next->strKey);
  if (!wasPlayItem) return true;
  if (next) playList_->setPlayItemByFlag(next->strKey);
  screen_->strFilePath(next ? next->strFilePath : "");
  return true;
}

void Controler::deleteAllItemFromPL() {
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
  if (!now) return;
  playList_->setActItemByFlag(now->strKey);
  screen_->strFilePath(now->strFilePath);
}

}  // namespace tessivo
