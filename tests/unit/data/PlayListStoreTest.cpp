// Loading and saving of the playlist.

#include <chrono>

#include "data/PlayList.h"
#include "fakes/SmallDisk.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

class PlayListStoreTest : public DatabaseTest {
 protected:
  PlayListStoreTest() { list.strPLDBFilePath(path); }

  void add(const std::string& key) {
    auto movie = std::make_shared<Movie>(key);
    movie->strFileName = key + ".mp4";
    movie->strFilePath = "D:\\" + key + ".mp4";
    list.addAItem(movie);
  }
  void store(const std::string& values) {
    runSql(path,
           "insert into play_list(item_order, flag_for_play_list, file_name, file_path,"
           " is_play_item) values " +
               values);
  }
  std::vector<std::string> stored() {
    return runSql(path,
                  "select item_order, flag_for_play_list, file_name, file_path, is_play_item"
                  " from play_list order by item_order");
  }
  std::string shown() const {
    std::string text;
    for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
      const auto movie = list.objGetAItem(i);
      text += (i > 1 ? " " : "") + movie->strKey + (movie->boolIsPlayItem ? "*" : "") +
              (movie->boolIsActItem ? "+" : "");
    }
    return text;
  }
  std::string next() {
    MoviePtr previous;
    std::int32_t code = 0;
    const auto movie = list.objGetNextPalyItem(true, previous, code);
    return movie ? movie->strKey : "nothing";
  }
  std::string back() {
    MoviePtr previous;
    std::int32_t code = 0;
    const auto movie = list.objGetPreviousPalyItem(true, previous, code);
    return movie ? movie->strKey : "nothing";
  }

  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
};

TEST_F(PlayListStoreTest, AnEmptyTableLoadsAsAnEmptyList) {
  add("a");
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 0);
  EXPECT_EQ(list.objGetPlayItem(), nullptr);
}

TEST_F(PlayListStoreTest, RowsLoadInTheStoredOrder) {
  store("(3,'c','','',0), (1,'a','','',0), (2,'b','','',1)");
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(shown(), "a b* c");
}

TEST_F(PlayListStoreTest, ARowBecomesAMovie) {
  store("(1,'F1','片名.mp4','D:\\电影\\片名.mp4',1)");
  list.boolGetPlayListFromPLDB();
  const auto movie = list.objGetAItem(1);
  ASSERT_NE(movie, nullptr);
  EXPECT_EQ(movie->strKey, "F1");
  EXPECT_EQ(movie->strFileName, "片名.mp4");
  EXPECT_EQ(movie->strFilePath, "D:\\电影\\片名.mp4");
  EXPECT_TRUE(movie->boolIsPlayItem);
  EXPECT_FALSE(movie->boolIsActItem);
}

TEST_F(PlayListStoreTest, WithoutAStoredPlayItemTheFirstBecomesIt) {
  store("(1,'a','','',0), (2,'b','','',2), (3,'c','','',null)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(shown(), "a* b c");
}

TEST_F(PlayListStoreTest, LoadingReplacesTheListAndItsMarks) {
  add("old");
  store("(1,'a','','',0), (2,'b','','',1)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(shown(), "a b*");
  EXPECT_EQ(list.objGetActItem(), nullptr);
}

TEST_F(PlayListStoreTest, NullColumnsCountAsEmptyTexts) {
  store("(null,null,null,null,null), (1,'b',null,null,null)");
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  ASSERT_EQ(list.lngListCount(), 2);
  const auto movie = list.objGetAItem(1);
  EXPECT_EQ(movie->strKey + movie->strFileName + movie->strFilePath, "");
  EXPECT_EQ(list.lngGetIndexByItemFlag(""), 1);
}

TEST_F(PlayListStoreTest, ColumnsOfTheWrongTypeAreTakenAsText) {
  store("('x', 12, 3.5, x'414243', '1'), (2, 'b', '', '', 'yes')");
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(shown(), "b 12*");
  EXPECT_EQ(list.objGetAItem(2)->strFileName, "3.5");
  EXPECT_EQ(list.objGetAItem(2)->strFilePath, "ABC");
}

TEST_F(PlayListStoreTest, SeveralStoredPlayItemsKeepTheirMarks) {
  store("(1,'a','','',0), (2,'b','','',1), (3,'c','','',0), (4,'d','','',1)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(shown(), "a b* c d*");
  EXPECT_EQ(list.objGetPlayItem()->strKey, "b");
}

TEST_F(PlayListStoreTest, SteppingForwardRunsIntoTheOtherMarkedItems) {
  store("(1,'a','','',1), (2,'b','','',0), (3,'c','','',1), (4,'d','','',0)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(next(), "b");
  EXPECT_EQ(shown(), "a b* c* d");
  EXPECT_EQ(next(), "c");
  EXPECT_EQ(shown(), "a b c* d");
  EXPECT_EQ(next(), "d");
  EXPECT_EQ(shown(), "a b c d*");
}

TEST_F(PlayListStoreTest, SteppingBackOverTheStartLeavesTheOtherMarkedItemsFirst) {
  store("(1,'a','','',1), (2,'b','','',1), (3,'c','','',0)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(back(), "c");
  EXPECT_EQ(shown(), "a b* c*");
  EXPECT_EQ(list.objGetPlayItem()->strKey, "b");
}

TEST_F(PlayListStoreTest, MarkingOneTakesTheMarkFromAllOthers) {
  store("(1,'a','','',1), (2,'b','','',1), (3,'c','','',0)");
  list.boolGetPlayListFromPLDB();
  list.setPlayItemByFlag("c");
  EXPECT_EQ(shown(), "a b c*");
}

TEST_F(PlayListStoreTest, AMarkedItemMovedBehindAnotherIsNoLongerTheFirst) {
  store("(1,'a','','',1), (2,'b','','',1)");
  list.boolGetPlayListFromPLDB();
  MoviePtr neighbour;
  list.moveAItemUpDown(2, "a", neighbour);
  EXPECT_EQ(list.objGetPlayItem()->strKey, "b");
}

TEST_F(PlayListStoreTest, OfItemsWithOneKeyTheFirstIsMeant) {
  store("(1,'x','one','',0), (2,'same','two','',0), (3,'same','three','',0)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(list.lngGetIndexByItemFlag("same"), 2);
  list.setPlayItemByFlag("same");
  EXPECT_EQ(shown(), "x same* same");
  list.deleteAItem("same");
  EXPECT_EQ(list.objGetItemByFlag("same")->strFileName, "three");
}

TEST_F(PlayListStoreTest, LoadedKeysAreNotMadeAgain) {
  time.setDate({2007, 8, 15, 5});
  store("(1,'F200781500000005','','',1)");
  list.boolGetPlayListFromPLDB();
  EXPECT_EQ(Movie(keys).strKey, "F200781500000006");
}

TEST_F(PlayListStoreTest, SavingWritesTheRowsInListOrder) {
  for (const char* key : {"a", "b", "c"}) add(key);
  list.setPlayItemByFlag("b");
  MoviePtr neighbour;
  list.moveAItemUpDown(1, "c", neighbour);
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(stored(), (std::vector<std::string>{"1|a|a.mp4|D:\\a.mp4|0", "2|c|c.mp4|D:\\c.mp4|0",
                                                "3|b|b.mp4|D:\\b.mp4|1"}));
}

TEST_F(PlayListStoreTest, SavingReplacesWhatWasStored) {
  store("(1,'old','','',1), (2,'older','','',0)");
  add("new");
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(stored(), std::vector<std::string>{"1|new|new.mp4|D:\\new.mp4|1"});
}

TEST_F(PlayListStoreTest, AnEmptyListSavesAsAnEmptyTable) {
  store("(1,'old','','',1)");
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_TRUE(stored().empty());
}

TEST_F(PlayListStoreTest, SavingLeavesTheListAndItsMarks) {
  add("a");
  add("b");
  list.boolSavePlayListToPLDB();
  EXPECT_EQ(shown(), "a* b+");
}

TEST_F(PlayListStoreTest, AnyTextComesBack) {
  const std::string nasty = "'; drop table play_list; --\"\xff\xfe 泰思维 \xf0\x9f\x8e\xac\r\n";
  auto movie = std::make_shared<Movie>("key");
  movie->strFileName = nasty;
  movie->strFilePath = std::string(5000, 'p') + nasty;
  list.addAItem(movie);
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.objGetAItem(1)->strFileName, nasty);
  EXPECT_EQ(list.objGetAItem(1)->strFilePath, std::string(5000, 'p') + nasty);
}

TEST_F(PlayListStoreTest, AMissingDatabaseLoadsAsFailureAndAnEmptyList) {
  add("a");
  list.strPLDBFilePath(folder.file("elsewhere"));
  EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 0);
}

TEST_F(PlayListStoreTest, AMissingDatabaseIsNotSavedAndTheListStays) {
  add("a");
  list.strPLDBFilePath(folder.file("elsewhere"));
  EXPECT_FALSE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(shown(), "a*+");
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(PlayListStoreTest, AFailedSaveLeavesTheStoredList) {
  store("(1,'old','','',1)");
  runSql(path,
         "create trigger t before insert on play_list when new.item_order = 2"
         " begin select raise(abort, 'disk full'); end");
  add("a");
  add("b");
  EXPECT_FALSE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(stored(), std::vector<std::string>{"1|old|||1"});
}

TEST_F(PlayListStoreTest, AHeldDatabaseIsNeitherLoadedNorSavedAndStaysAsItIs) {
  store("(1,'old','','',1)");
  add("a");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
    EXPECT_EQ(shown(), "a*+");
    EXPECT_FALSE(list.boolGetPlayListFromPLDB());
    EXPECT_EQ(list.lngListCount(), 0);
  }
  EXPECT_EQ(stored(), std::vector<std::string>{"1|old|||1"});
}

TEST_F(PlayListStoreTest, AListThatCouldNotBeReadIsKeptAsideBeforeItIsReplaced) {
  store("(1,'old','','',1)");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  }
  add("new");
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(runSql(folder.file("SysConfig.unread-1"), "select flag_for_play_list from play_list"),
            std::vector<std::string>{"old"});
  EXPECT_EQ(folder.fileCount(), 2u);
}

TEST_F(PlayListStoreTest, AnEmptyListDoesNotReplaceOneThatCouldNotBeRead) {
  store("(1,'old','','',1)");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(list.boolGetPlayListFromPLDB());
    EXPECT_NE(list.strReport().find("another program holds the file"), std::string::npos);
  }
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(stored(), std::vector<std::string>{"1|old|||1"});
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(PlayListStoreTest, TheCopyOfAListThatCouldNotBeReadIsReported) {
  store("(1,'old','','',1)");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    list.boolGetPlayListFromPLDB();
  }
  add("new");
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_NE(list.strReport().find("SysConfig.unread-1"), std::string::npos);
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(list.strReport(), "");
}

TEST_F(PlayListStoreTest, TheCopyOfAListThatAnotherProgramWasWritingIsWhole) {
  for (int i = 0; i < 300; ++i) add(std::string(400, 'k') + std::to_string(i));
  ASSERT_TRUE(list.boolSavePlayListToPLDB());
  std::string journal;
  std::string halfWritten;
  {
    // Too large for its page cache: the file is written to before the end. It is killed then.
    OtherProgram other(path);
    other.run("pragma cache_size=2; begin exclusive; update play_list set file_name='broken'");
    EXPECT_FALSE(list.boolGetPlayListFromPLDB());
    journal = contentOf(path + "-journal");
    halfWritten = contentOf(path);
  }
  ASSERT_NE(contentOf(path), halfWritten);
  writeFile(path, halfWritten);
  writeFile(path + "-journal", journal);
  add("new");
  EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  EXPECT_EQ(runSql(path + ".unread-1",
                   "select count(*) from play_list where file_name='broken' union all"
                   " select count(*) from play_list"),
            (std::vector<std::string>{"0", "300"}));
  EXPECT_EQ(folder.fileCount(), 2U);
}

#ifndef _WIN32
TEST_F(PlayListStoreTest, OnAFullDiskNoHalfACopyIsMade) {
  store("(1,'old','','',1)");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  }
  add("new");
  {
    const SmallDisk full(20000);
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
  }
  EXPECT_EQ(folder.fileCount(), 1U);
  EXPECT_EQ(stored(), std::vector<std::string>{"1|old|||1"});
  EXPECT_EQ(shown(), "new*+");
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(contentOf(path + ".unread-1").size(), contentOf(path).size());
}
#endif

TEST_F(PlayListStoreTest, AListThatWasReadIsReplacedWithoutACopy) {
  store("(1,'old','','',1)");
  list.boolGetPlayListFromPLDB();
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(PlayListStoreTest, AnAccessFileThatCannotBeReadStaysAsItWas) {
  const std::string content = std::string("\0\1\0\0Standard ACE DB\0", 20) + std::string(4000, 'x');
  writeFile(path, content);
  EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  add("a");
  EXPECT_FALSE(list.boolSavePlayListToPLDB());
  EXPECT_EQ(contentOf(path), content);
  EXPECT_EQ(contentOf(path + ".unread-1"), content);
}

TEST_F(PlayListStoreTest, AMissingColumnMakesLoadingFailWithAnEmptyList) {
  store("(1,'a','','',1), (2,'b','','',0)");
  runSql(path, "alter table play_list drop column is_play_item");
  EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 0);
}

TEST_F(PlayListStoreTest, AHundredThousandItemsComeBack) {
  time.setDate({2026, 11, 20, 1000});
  for (int i = 1; i <= 100000; ++i) list.addAItem(std::make_shared<Movie>(keys));
  list.setPlayItemByFlag(list.objGetAItem(77777)->strKey);
  ASSERT_TRUE(list.boolSavePlayListToPLDB());
  PlayList loaded(keys);
  loaded.strPLDBFilePath(path);
  ASSERT_TRUE(loaded.boolGetPlayListFromPLDB());
  ASSERT_EQ(loaded.lngListCount(), 100000);
  EXPECT_EQ(loaded.lngGetIndexByItemFlag(loaded.objGetPlayItem()->strKey), 77777);
  EXPECT_EQ(loaded.objGetAItem(100000)->strKey, list.objGetAItem(100000)->strKey);
}

}  // namespace
}  // namespace tessivo
