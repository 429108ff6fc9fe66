// Ten thousand random operations on a PlayList and on a list that does everything by scanning.

#include <random>

#include "data/PlayList.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

struct PlainItem {
  std::string key;
  bool play = false;
  bool act = false;
};

/// The rules word for word, over an array that counts from 1.
class PlainList {
 public:
  int count() const { return static_cast<int>(items.size()) - 1; }

  int indexOf(const std::string& key) const {
    for (int i = 1; i <= count(); ++i) {
      if (toUpper(at(i).key) == toUpper(key)) return i;
    }
    return 0;
  }
  int playItem() const {
    for (int i = 1; i <= count(); ++i) {
      if (at(i).play) return i;
    }
    return 0;
  }
  int actItem() const {
    for (int i = 1; i <= count(); ++i) {
      if (at(i).act) return i;
    }
    return 0;
  }

  void add(const std::string& key) {
    PlainItem added{key, playItem() == 0, true};
    if (actItem() > 0) at(actItem()).act = false;
    items.push_back(added);
  }
  std::string remove(const std::string& key) {
    const int index = indexOf(key);
    if (index == 0) return "no";
    items.erase(items.begin() + index);
    if (count() == 0) return "yes nothing";
    return "yes " + at(std::min(index, count())).key;
  }
  void setPlay(const std::string& key) {
    const int chosen = indexOf(key);
    for (int i = 1; i <= count(); ++i) at(i).play = i == chosen;
  }
  void setAct(const std::string& key) {
    const int chosen = indexOf(key);
    for (int i = 1; i <= count(); ++i) at(i).act = i == chosen;
  }
  std::string next(bool recycle) {
    if (count() == 0) return "nothing nothing 2";
    const int play = playItem();
    if (play == 0) return step(0, 1);
    if (play < count()) return step(play, play + 1);
    return recycle ? step(play, 1) : "nothing " + at(play).key + " 1";
  }
  std::string back(bool recycle) {
    if (count() == 0) return "nothing nothing 2";
    const int play = playItem();
    if (play == 0) return step(0, count());
    if (play > 1) return step(play, play - 1);
    return recycle ? step(play, count()) : "nothing " + at(play).key + " 3";
  }
  std::string move(int direction, const std::string& key) {
    const int index = indexOf(key);
    const int other = direction == 1 ? index - 1 : index + 1;
    if (index == 0 || other < 1 || other > count()) return "no nothing";
    std::swap(at(index), at(other));
    return "yes " + at(index).key;
  }
  /// What loading of the saved list gives.
  void reload() {
    for (int i = 1; i <= count(); ++i) at(i).act = false;
    if (count() > 0 && playItem() == 0) at(1).play = true;
  }
  void spread(int every) {
    for (int i = 1; i <= count(); ++i) {
      if (i % every == 0) at(i).play = true;
    }
  }
  std::string shown() const {
    std::string text;
    for (int i = 1; i <= count(); ++i) {
      text += at(i).key + (at(i).play ? "*" : "") + (at(i).act ? "+ " : " ");
    }
    return text;
  }
  const PlainItem& at(int index) const { return items[static_cast<std::size_t>(index)]; }

 private:
  PlainItem& at(int index) { return items[static_cast<std::size_t>(index)]; }
  std::string step(int from, int to) {
    const auto previous = from > 0 ? at(from).key : "nothing";
    if (from > 0) at(from).play = false;
    at(to).play = true;
    return at(to).key + " " + previous + " 0";
  }
  std::vector<PlainItem> items = std::vector<PlainItem>(1);
};

class PlayListWalk : public DatabaseTest {
 protected:
  PlayListWalk() { list.strPLDBFilePath(path); }

  static std::string keyOf(const MoviePtr& movie) { return movie ? movie->strKey : "nothing"; }

  /// Few keys, so that some are unknown and a stored list can hold one twice.
  std::string anyKey() {
    const auto key = "k" + std::to_string(random() % 40);
    return random() % 2 == 0 ? key : toUpper(key);
  }

  void add() {
    const auto key = "k" + std::to_string(random() % 40);
    plain.add(key);
    ASSERT_TRUE(list.addAItem(std::make_shared<Movie>(key)));
  }
  void remove() {
    const auto key = anyKey();
    MoviePtr neighbour;
    const bool removed = list.deleteAItem(key, neighbour);
    ASSERT_EQ(removed ? "yes " + keyOf(neighbour) : "no", plain.remove(key));
  }
  void step() {
    const bool recycle = random() % 2 == 0;
    MoviePtr previous;
    std::int32_t code = -1;
    if (random() % 2 == 0) {
      const auto movie = list.objGetNextPalyItem(recycle, previous, code);
      ASSERT_EQ(keyOf(movie) + " " + keyOf(previous) + " " + std::to_string(code),
                plain.next(recycle));
    } else {
      const auto movie = list.objGetPreviousPalyItem(recycle, previous, code);
      ASSERT_EQ(keyOf(movie) + " " + keyOf(previous) + " " + std::to_string(code),
                plain.back(recycle));
    }
  }
  void move() {
    const auto key = anyKey();
    const int direction = 1 + static_cast<int>(random() % 2);
    MoviePtr neighbour;
    const bool moved = list.moveAItemUpDown(direction, key, neighbour);
    ASSERT_EQ((moved ? "yes " : "no ") + keyOf(neighbour), plain.move(direction, key));
  }
  void mark() {
    const auto key = anyKey();
    if (random() % 2 == 0) {
      list.setPlayItemByFlag(key);
      plain.setPlay(key);
    } else {
      list.setActItemByFlag(key);
      plain.setAct(key);
    }
  }
  /// Saves, lets the stored list have several play items, loads.
  void store() {
    ASSERT_TRUE(list.boolSavePlayListToPLDB());
    const int every = 2 + static_cast<int>(random() % 5);
    runSql(path,
           "update play_list set is_play_item=1 where item_order%" + std::to_string(every) + "=0");
    plain.spread(every);
    ASSERT_TRUE(list.boolGetPlayListFromPLDB());
    plain.reload();
  }
  void takeAStep() {
    switch (random() % 8) {
      case 0:
      case 1:
        return add();
      case 2:
        return remove();
      case 3:
        return mark();
      case 4:
      case 5:
        return move();
      default:
        return step();
    }
  }

  std::string shown() const {
    std::string text;
    for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
      const auto movie = list.objGetAItem(i);
      text +=
          movie->strKey + (movie->boolIsPlayItem ? "*" : "") + (movie->boolIsActItem ? "+ " : " ");
    }
    return text;
  }
  void compare() {
    ASSERT_EQ(shown(), plain.shown());
    const auto key = anyKey();
    ASSERT_EQ(list.lngGetIndexByItemFlag(key), plain.indexOf(key));
    ASSERT_EQ(list.objGetPlayItem(), list.objGetAItem(plain.playItem()));
    ASSERT_EQ(list.objGetActItem(), list.objGetAItem(plain.actItem()));
  }

  std::mt19937 random{20261120};
  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
  PlainList plain;
};

TEST_F(PlayListWalk, EqualsAScanningListOverTenThousandSteps) {
  for (int i = 0; i < 10000; ++i) {
    ASSERT_NO_FATAL_FAILURE(i % 200 == 199 ? store() : takeAStep()) << "step " << i;
    ASSERT_NO_FATAL_FAILURE(compare()) << "step " << i;
  }
}

}  // namespace
}  // namespace tessivo
