#include "data/PlayList.h"

#include <algorithm>

#include "base/ClearQuickly.h"

namespace tessivo {

bool PlayList::addAItem(const MoviePtr& movie) {
  if (!movie || items_.contains(movie)) return false;
  keys_.reserve(movie->strKey);
  // A film that there is no memory for leaves the list and its marks as they were.
  append(movie, movie->boolIsPlayItem || playItems_.empty());
  if (actItem_) actItem_->boolIsActItem = false;
  movie->boolIsActItem = true;
  actItem_ = movie;
  return true;
}

void PlayList::append(const MoviePtr& movie, bool isPlayItem) {
  if (isPlayItem && playItems_.size() == playItems_.capacity()) {
    playItems_.reserve(2 * playItems_.size() + 1);
  }
  items_.append(movie);
  if (!isPlayItem) return;
  movie->boolIsPlayItem = true;
  playItems_.push_back(movie);
}

bool PlayList::deleteAItem(const std::string& key) {
  MoviePtr ignored;
  return deleteAItem(key, ignored);
}

bool PlayList::deleteAItem(const std::string& key, MoviePtr& neighbour) {
  neighbour = nullptr;
  const auto index = items_.indexOfKey(key);
  if (!index) return false;
  const auto movie = items_.at(*index);
  items_.erase(*index);
  std::erase(playItems_, movie);
  if (actItem_ == movie) actItem_ = nullptr;
  movie->boolIsPlayItem = false;
  movie->boolIsActItem = false;
  if (!items_.empty()) neighbour = items_.at(std::min(*index, items_.size() - 1));
  return true;
}

void PlayList::clearList() {
  clearPlayMarks();
  if (actItem_) actItem_->boolIsActItem = false;
  actItem_ = nullptr;
  clearQuickly(items_);
}

MoviePtr PlayList::objPeekNextItem(bool recycle) const {
  if (items_.empty()) return nullptr;
  const auto present = objGetPlayItem();
  const auto* following = present ? items_.next(present) : nullptr;
  if (following) return *following;
  return present && !recycle ? nullptr : items_.at(0);
}

MoviePtr PlayList::objGetNextPalyItem(bool recycle, MoviePtr& previous, std::int32_t& code) {
  previous = objGetPlayItem();
  code = items_.empty() ? kListEmpty : kStepped;
  auto chosen = objPeekNextItem(recycle);
  if (chosen) {
    moveFirstPlayMark(chosen);
  } else if (!items_.empty()) {
    code = kEndReached;
  }
  return chosen;
}

MoviePtr PlayList::objGetPreviousPalyItem(bool recycle, MoviePtr& previous, std::int32_t& code) {
  previous = objGetPlayItem();
  code = items_.empty() ? kListEmpty : kStepped;
  if (items_.empty()) return nullptr;
  const auto* preceding = previous ? items_.previous(previous) : nullptr;
  if (previous && !preceding && !recycle) {
    code = kStartReached;
    return nullptr;
  }
  auto chosen = preceding ? *preceding : items_.at(items_.size() - 1);
  moveFirstPlayMark(chosen);
  return chosen;
}

/// Takes the mark from the first marked item, if any, and gives it to `to`.
void PlayList::moveFirstPlayMark(const MoviePtr& to) {
  if (!playItems_.empty()) {
    playItems_.front()->boolIsPlayItem = false;
    playItems_.erase(playItems_.begin());
  }
  if (to->boolIsPlayItem) return;
  to->boolIsPlayItem = true;
  // Only a step back from the first item over its start lands behind other marked items.
  const bool last = !playItems_.empty() && items_.at(items_.size() - 1) == to;
  playItems_.insert(last ? playItems_.end() : playItems_.begin(), to);
}

void PlayList::clearPlayMarks() {
  for (const auto& movie : playItems_) movie->boolIsPlayItem = false;
  playItems_.clear();
}

void PlayList::setPlayItemByFlag(const std::string& key) {
  const auto movie = objGetItemByFlag(key);
  clearPlayMarks();
  if (!movie) return;
  movie->boolIsPlayItem = true;
  playItems_.push_back(movie);
}

void PlayList::setActItemByFlag(const std::string& key) {
  if (actItem_) actItem_->boolIsActItem = false;
  actItem_ = objGetItemByFlag(key);
  if (actItem_) actItem_->boolIsActItem = true;
}

MoviePtr PlayList::objGetAItem(std::int32_t index) const {
  if (index < 1 || index > lngListCount()) return nullptr;
  return items_.at(static_cast<std::size_t>(index) - 1);
}

MoviePtr PlayList::objGetPlayItem() const {
  return playItems_.empty() ? nullptr : playItems_.front();
}

MoviePtr PlayList::objGetItemByFlag(const std::string& key) const {
  const auto* movie = items_.find(key);
  return movie ? *movie : nullptr;
}

std::int32_t PlayList::lngGetIndexByItemFlag(const std::string& key) const {
  const auto index = items_.indexOfKey(key);
  return index ? static_cast<std::int32_t>(*index + 1) : 0;
}

bool PlayList::moveAItemUpDown(std::int32_t direction, const std::string& key,
                               MoviePtr& neighbour) {
  constexpr std::int32_t kUp = 1;
  constexpr std::int32_t kDown = 2;
  neighbour = nullptr;
  const auto index = items_.indexOfKey(key);
  if (!index) return false;
  const bool up = direction == kUp && *index > 0;
  const bool down = direction == kDown && *index + 1 < items_.size();
  if (!up && !down) return false;
  const auto upper = up ? *index - 1 : *index;
  const auto one = items_.at(upper);
  const auto other = items_.at(upper + 1);
  neighbour = up ? one : other;
  items_.swapWithNext(upper);
  if (one->boolIsPlayItem && other->boolIsPlayItem) {
    const auto place = std::find(playItems_.begin(), playItems_.end(), one);
    std::iter_swap(place, place + 1);
  }
  return true;
}

}  // namespace tessivo
