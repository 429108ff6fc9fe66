#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/KeyedSequence.h"
#include "data/Movie.h"

namespace tessivo {

class Recordset;

/// The ordered media items, counted from 1, with at most one play item (that is or will be played)
/// and at most one act item (selected in the panel). "Nothing" is a null pointer. Keys are compared
/// without regard to the case of ASCII letters; where two items share a key (only a stored list can
/// bring that about) the first is meant.
///
/// A stored list may mark several rows as play item. They keep their marks; the play item is then
/// the first marked one, and the next setPlayItemByFlag leaves one.
///
/// Adding, stepping and marking cost the same in a list of any length; deleting, moving and turning
/// a key into an index or an index into an item take O(log n); loading and saving are linear.
class PlayList {
 public:
  /// What a step found.
  static constexpr std::int32_t kStepped = 0;
  static constexpr std::int32_t kEndReached = 1;
  static constexpr std::int32_t kListEmpty = 2;
  static constexpr std::int32_t kStartReached = 3;

  /// `keys` learns every key that comes into the list.
  explicit PlayList(MovieKeys& keys) : keys_(keys) {}

  /// Puts the movie last and makes it the act item, and the play item if there is none. False for
  /// nothing and for an object that is in the list already.
  bool addAItem(const MoviePtr& movie);

  /// Takes out the item with this key, with its marks: a deleted play or act item leaves the list
  /// without one. False when there is no such item.
  bool deleteAItem(const std::string& key);
  /// The same, and tells which item the selection should go to: the one that followed, else the
  /// one before, else nothing.
  bool deleteAItem(const std::string& key, MoviePtr& neighbour);

  void clearList();

  /// Moves the play mark to the item after the play item (or to the first when none is marked) and
  /// returns the new play item. At the end the mark goes on to the first item with `recycle`;
  /// without it nothing changes, nothing is returned and the code is kEndReached.
  /// @param previous the play item before the step, or nothing
  /// @param code kStepped, kEndReached or kListEmpty
  MoviePtr objGetNextPalyItem(bool recycle, MoviePtr& previous, std::int32_t& code);
  /// Which item that would be; the mark stays.
  MoviePtr objPeekNextItem(bool recycle) const;
  /// The same backwards: to the last item when none is marked, and kStartReached at the start.
  MoviePtr objGetPreviousPalyItem(bool recycle, MoviePtr& previous, std::int32_t& code);

  /// Gives the mark to the item with this key and takes it from all others; with a key that no
  /// item has, no item keeps the mark.
  void setPlayItemByFlag(const std::string& key);
  void setActItemByFlag(const std::string& key);

  std::int32_t lngListCount() const { return static_cast<std::int32_t>(items_.size()); }
  /// The item at an index from 1; nothing for an index outside the list.
  MoviePtr objGetAItem(std::int32_t index) const;
  MoviePtr objGetPlayItem() const;
  MoviePtr objGetActItem() const { return actItem_; }
  /// The item with this key, or nothing.
  MoviePtr objGetItemByFlag(const std::string& key) const;
  /// Its index from 1; 0 when there is no such item.
  std::int32_t lngGetIndexByItemFlag(const std::string& key) const;

  /// Swaps the item with the one before (direction 1) or after it (direction 2), which is handed
  /// out. False, nothing handed out and nothing changed for any other direction, for an unknown
  /// key and at that end of the list.
  bool moveAItemUpDown(std::int32_t direction, const std::string& key, MoviePtr& neighbour);

  /// The database file.
  const std::string& strPLDBFilePath() const { return path_; }
  void strPLDBFilePath(const std::string& path);

  /// Replaces the list by the stored one; without a stored play item the first becomes it. False,
  /// and an empty list, when the database cannot be read.
  bool boolGetPlayListFromPLDB();

  /// Replaces the stored list by this one, all or nothing. False when that failed. If the last
  /// load could not read the database, an empty list leaves the stored one alone, and before any
  /// other is stored a copy of the file ("….unread-1" and so on) is made, so that a list that could
  /// not be shown is not lost.
  bool boolSavePlayListToPLDB();

  /// Why the last load or save failed, or which copy was made; empty when there is nothing to say.
  const std::string& strReport() const { return report_; }

 private:
  struct KeyOfMovie {
    const std::string& operator()(const MoviePtr& movie) const { return movie->strKey; }
  };

  void append(const MoviePtr& movie, bool isPlayItem);
  void appendStored(const Recordset& row);
  void appendRows(Recordset& rows) const;
  bool keepUnreadFile();
  void markFirst();
  void moveFirstPlayMark(const MoviePtr& to);
  void clearPlayMarks();

  MovieKeys& keys_;
  std::string path_;
  std::string report_;
  bool unread_ = false;  ///< the stored list exists but the last load could not read it
  KeyedSequence<MoviePtr, KeyOfMovie> items_;
  std::vector<MoviePtr> playItems_;  ///< all items with the play mark, in list order
  MoviePtr actItem_;
};

}  // namespace tessivo
