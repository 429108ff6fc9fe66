#include "data/PrepareDatabase.h"

#include <random>

#include "data/PlayList.h"
#include "fakes/FaultyDisk.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"
#include "unit/data/WriteProtected.h"

namespace tessivo {
namespace {

class PrepareDatabaseTest : public testing::Test {
 protected:
  DatabaseState prepare() { return prepareDatabase(path, log); }

  /// A good database with some rows, several pages long.
  std::string storeAList(int count) {
    prepare();
    for (int i = 0; i < count; ++i) {
      auto movie = std::make_shared<Movie>(keys);
      movie->strFilePath = "D:\\Media\\" + std::string(200, 'f') + std::to_string(i);
      list.addAItem(movie);
    }
    list.strPLDBFilePath(path);
    EXPECT_TRUE(list.boolSavePlayListToPLDB());
    log = {};
    return contentOf(path);
  }
  std::vector<std::string> tables() {
    return runSql(path, "select name from sqlite_schema where type='table' order by name");
  }
  std::string columnsOf(const std::string& table) {
    std::string all;
    for (const auto& column :
         runSql(path, "select name || ' ' || type from pragma_table_info('" + table + "')")) {
      all += (all.empty() ? "" : ", ") + column;
    }
    return all;
  }
  void expectReplaced(const std::string& damaged) {
    EXPECT_EQ(prepare(), DatabaseState::replaced);
    EXPECT_EQ(contentOf(folder.file("SysConfig.damaged-1")), damaged);
    EXPECT_EQ(tables().size(), 4u);
    EXPECT_EQ(log.errors.size(), 2u);
  }
  void expectLeftAlone(const std::string& content, DatabaseState state) {
    EXPECT_EQ(prepare(), state);
    EXPECT_EQ(contentOf(path), content);
    EXPECT_EQ(folder.fileCount(), 1u);
    EXPECT_EQ(log.infos.size() + log.errors.size(), 1u);
  }

  TempFolder folder;
  const std::string path = folder.file("SysConfig");
  RecordingLog log;
  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
};

TEST_F(PrepareDatabaseTest, AMissingFileBecomesADatabaseWithFourTables) {
  EXPECT_EQ(prepare(), DatabaseState::created);
  EXPECT_EQ(tables(), (std::vector<std::string>{"file_association", "file_association_config",
                                                "play_list", "sys"}));
  for (const std::string table : {"play_list", "sys"}) {
    EXPECT_TRUE(runSql(path, "select * from " + table).empty()) << table;
  }
  EXPECT_EQ(log.infos.size(), 1u);
}

TEST_F(PrepareDatabaseTest, ANewDatabaseHasTheShippedAssociations) {
  prepare();
  EXPECT_EQ(runSql(path, "select * from file_association_config"),
            std::vector<std::string>{"Tessivo.exe|TessivoMedia.ico||"});
  EXPECT_EQ(runSql(path, "select * from file_association where app_association='.mp3'"),
            std::vector<std::string>{".mp3|MP3 音频|Tessivo.mp3||WMP11.AssocFile.MP3|mp3file"});
  EXPECT_GT(runSql(path, "select * from file_association").size(), 40u);
  // Each extension once, with an identifier of its own; none that breaks what reads them.
  EXPECT_TRUE(runSql(path,
                     "select app_association from file_association group by app_association"
                     " having count(*) > 1")
                  .empty());
  EXPECT_TRUE(runSql(path,
                     "select app_association from file_association where app_id <>"
                     " 'Tessivo' || app_association or app_association not like '._%'"
                     " or instr(app_association, '''') > 0 or description_info = ''"
                     " or old_app_id <> ''")
                  .empty());
  // What the desktop itself needs is nobody's to take.
  EXPECT_TRUE(runSql(path,
                     "select app_association from file_association where app_association in"
                     " ('.lnk', '.url', '.dat', '.exe', '.htm', '.jpg', '.gif', '.png')")
                  .empty());
}

TEST_F(PrepareDatabaseTest, ADatabaseWithoutAssociationsGetsTheShippedOnes) {
  prepare();
  runSql(path, "delete from file_association");
  runSql(path, "delete from file_association_config");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_GT(runSql(path, "select * from file_association").size(), 40u);
}

TEST_F(PrepareDatabaseTest, AssociationsThatAreThereStayAsTheyAre) {
  prepare();
  runSql(path, "delete from file_association where app_association <> '.mp3'");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_EQ(runSql(path, "select * from file_association").size(), 1u);
  runSql(path, "delete from file_association");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_TRUE(runSql(path, "select * from file_association").empty());
}

TEST_F(PrepareDatabaseTest, TheTablesHaveTheirColumns) {
  prepare();
  EXPECT_EQ(columnsOf("play_list"),
            "item_order INTEGER, flag_for_play_list TEXT, file_name TEXT, file_path TEXT, "
            "is_play_item SMALLINT");
  EXPECT_EQ(columnsOf("sys"),
            "recycle_play SMALLINT, volume_value SMALLINT, play_ruler INTEGER, screen_saver "
            "SMALLINT, scr_sav_proc_name TEXT, screen_saver_delay_minute INTEGER, "
            "popu_main_face_for_err SMALLINT, play_next_item_on_err SMALLINT, save_play_list "
            "SMALLINT, current_play_position INTEGER, current_play_item_len INTEGER");
  EXPECT_EQ(columnsOf("file_association"),
            "app_association TEXT, description_info TEXT, app_id TEXT, old_app_id TEXT, "
            "default_app_id_1 TEXT, default_app_id_2 TEXT");
  EXPECT_EQ(columnsOf("file_association_config"),
            "main_app_file_name TEXT, main_default_ico_file_name TEXT, menu_handler_guid TEXT, "
            "menu_handler_name TEXT");
}

TEST_F(PrepareDatabaseTest, AnEmptyFileBecomesADatabase) {
  writeFile(path, "");
  EXPECT_EQ(prepare(), DatabaseState::created);
  EXPECT_EQ(tables().size(), 4u);
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(PrepareDatabaseTest, AGoodDatabaseIsNotTouched) {
  const auto content = storeAList(50);
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_EQ(contentOf(path), content);
  EXPECT_EQ(folder.fileCount(), 1u);
  EXPECT_TRUE(log.errors.empty());
}

TEST_F(PrepareDatabaseTest, AMissingTableIsAddedAndTheOthersKeepTheirRows) {
  storeAList(3);
  runSql(path, "drop table sys");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_EQ(tables().size(), 4u);
  EXPECT_EQ(runSql(path, "select * from play_list").size(), 3u);
}

TEST_F(PrepareDatabaseTest, AMissingColumnIsAddedAndTheRowsStay) {
  storeAList(3);
  runSql(path, "alter table play_list drop column is_play_item");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 3);
}

TEST_F(PrepareDatabaseTest, ASettingsColumnThatIsAddedReadsAsTheDefault) {
  for (const char* column :
       {"recycle_play", "volume_value", "play_ruler", "screen_saver", "scr_sav_proc_name",
        "screen_saver_delay_minute", "popu_main_face_for_err", "play_next_item_on_err",
        "save_play_list", "current_play_position", "current_play_item_len"}) {
    prepare();
    runSql(path, "insert into sys values (3, 30, 2, 0, ' ', 5, 0, 0, 1, 0, 100)");
    runSql(path, std::string("alter table sys drop column ") + column);
    EXPECT_EQ(prepare(), DatabaseState::ready) << column;
    EXPECT_EQ(runSql(path,
                     "select recycle_play, volume_value, play_ruler, screen_saver,"
                     " scr_sav_proc_name, screen_saver_delay_minute, popu_main_face_for_err,"
                     " play_next_item_on_err, save_play_list, current_play_position,"
                     " current_play_item_len from sys"),
              std::vector<std::string>{"3|30|2|0| |5|0|0|1|0|100"})
        << column;
    std::filesystem::remove(toFilePath(path));
  }
}

TEST_F(PrepareDatabaseTest, TablesAreRecognisedWithoutRegardToCase) {
  runSql(path,
         "create table PLAY_LIST(Item_Order integer, flag_for_play_list text, file_name text,"
         " file_path text, is_play_item smallint)");
  EXPECT_EQ(prepare(), DatabaseState::ready);
  EXPECT_EQ(tables().size(), 4u);
}

TEST_F(PrepareDatabaseTest, RandomBytesAreKeptAside) {
  std::mt19937 random(7);
  std::string bytes(20000, ' ');
  for (auto& byte : bytes) byte = static_cast<char>(random());
  writeFile(path, bytes);
  expectReplaced(bytes);
}

TEST_F(PrepareDatabaseTest, AFewBytesAreKeptAside) {
  writeFile(path, "hello");
  expectReplaced("hello");
}

TEST_F(PrepareDatabaseTest, ATextFileIsKeptAside) {
  writeFile(path, std::string(3000, 'a'));
  expectReplaced(std::string(3000, 'a'));
}

TEST_F(PrepareDatabaseTest, ATruncatedDatabaseIsKeptAside) {
  const FaultyDisk quick;  // which need not wait for the system's
  const auto whole = storeAList(100);
  std::vector<std::size_t> lengths{50, 99, 16385, whole.size() - 1};
  for (std::size_t length = 512; length < whole.size(); length += 512) lengths.push_back(length);
  for (const std::size_t length : lengths) {
    SCOPED_TRACE(length);
    std::filesystem::remove(toFilePath(folder.file("SysConfig.damaged-1")));
    log = {};
    writeFile(path, whole.substr(0, length));
    expectReplaced(whole.substr(0, length));
  }
}

TEST_F(PrepareDatabaseTest, ADatabaseWithAViewForATableIsKeptAside) {
  // Without the limit it would never end.
  runSql(
      path,
      "create view Play_List as with recursive c(n) as (select 1 union all select n+1 from c"
      " limit 3) select n as item_order, n as flag_for_play_list, n as file_name, n as file_path,"
      " 0 as is_play_item from c");
  expectReplaced(contentOf(path));
  list.strPLDBFilePath(path);
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 0);
}

TEST_F(PrepareDatabaseTest, DamageInTheMiddleIsFound) {
  auto content = storeAList(500);
  std::fill_n(content.begin() + static_cast<std::ptrdiff_t>(content.size() / 2), 2000, '\xa5');
  content.replace(content.size() / 16384 / 2 * 16384, 100, std::string(100, '\x77'));
  writeFile(path, content);
  expectReplaced(content);
}

TEST_F(PrepareDatabaseTest, WhatWasKeptAsideBeforeIsNotOverwritten) {
  writeFile(path, "first");
  prepare();
  writeFile(path, "second");
  EXPECT_EQ(prepare(), DatabaseState::replaced);
  EXPECT_EQ(contentOf(folder.file("SysConfig.damaged-1")), "first");
  EXPECT_EQ(contentOf(folder.file("SysConfig.damaged-2")), "second");
}

TEST_F(PrepareDatabaseTest, TheJournalOfADamagedDatabaseGoesAlong) {
  writeFile(path, "not a database");
  const std::string journal("\0old journal", 12);
  writeFile(path + "-journal", journal);
  EXPECT_EQ(prepare(), DatabaseState::replaced);
  EXPECT_EQ(contentOf(folder.file("SysConfig.damaged-1-journal")), journal);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(path + "-journal")));
}

TEST_F(PrepareDatabaseTest, AnAccessFileIsLeftAlone) {
  for (const char* format : {"Standard Jet DB", "Standard ACE DB"}) {
    const auto content = std::string("\0\1\0\0", 4) + format + std::string(5000, '\0');
    writeFile(path, content);
    log = {};
    expectLeftAlone(content, DatabaseState::accessFile);
  }
}

TEST_F(PrepareDatabaseTest, ADatabaseHeldByAnotherProgramIsLeftAlone) {
  const auto content = storeAList(3);
  OtherProgram other(path);
  other.run("begin exclusive");
  EXPECT_EQ(prepare(), DatabaseState::leftAlone);
  other.run("rollback");
  EXPECT_EQ(contentOf(path), content);
  EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(PrepareDatabaseTest, AFolderInThePlaceOfTheFileIsLeftAlone) {
  std::filesystem::create_directory(toFilePath(path));
  EXPECT_EQ(prepare(), DatabaseState::notWritable);
  EXPECT_TRUE(std::filesystem::is_directory(toFilePath(path)));
}

TEST_F(PrepareDatabaseTest, AMissingProgramFolderIsLogged) {
  EXPECT_EQ(prepareDatabase(folder.file("no/such/folder/SysConfig"), log),
            DatabaseState::notWritable);
  EXPECT_EQ(log.errors.size(), 1u);
}

TEST_F(PrepareDatabaseTest, AReadOnlyDatabaseIsLeftAsItIsAndCanBeLoadedButNotSaved) {
  const auto content = storeAList(3);
  {
    const WriteProtected protection(path);
    EXPECT_EQ(prepare(), DatabaseState::notWritable);
    EXPECT_TRUE(list.boolGetPlayListFromPLDB());
    EXPECT_EQ(list.lngListCount(), 3);
    list.deleteAItem(list.objGetAItem(1)->strKey);
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
  }
  EXPECT_EQ(contentOf(path), content);
  EXPECT_EQ(folder.fileCount(), 1u);
}

#ifndef _WIN32
TEST_F(PrepareDatabaseTest, InAFolderThatMayNotBeWrittenADatabaseCanBeLoadedButNotSaved) {
  const auto content = storeAList(3);
  std::filesystem::permissions(toFilePath(path), std::filesystem::perms(0666));
  {
    const ActsAsNobody nobody;
    EXPECT_EQ(prepare(), DatabaseState::notWritable);
    EXPECT_TRUE(list.boolGetPlayListFromPLDB());
    EXPECT_EQ(list.lngListCount(), 3);
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
    EXPECT_EQ(list.lngListCount(), 3);
  }
  EXPECT_EQ(contentOf(path), content);
  EXPECT_EQ(folder.fileCount(), 1u);
}
#endif

/// While the program runs.
TEST_F(PrepareDatabaseTest, ADatabaseThatComesToBeReadOnlyIsNotSavedUntilItIsNot) {
  storeAList(3);
  list.deleteAItem(list.objGetAItem(1)->strKey);
  const auto content = contentOf(path);
  {
    const WriteProtected protection(path);
    EXPECT_FALSE(list.boolSavePlayListToPLDB());
    EXPECT_NE(list.strReport(), "");
  }
  EXPECT_EQ(contentOf(path), content);
  EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  EXPECT_EQ(runSql(path, "select count(*) from play_list"), std::vector<std::string>{"2"});
}

TEST_F(PrepareDatabaseTest, ADatabaseThatIsTakenAwayIsNotMadeBySaving) {
  storeAList(3);
  std::filesystem::rename(toFilePath(path), toFilePath(path + ".away"));
  EXPECT_FALSE(list.boolSavePlayListToPLDB());
  EXPECT_NE(list.strReport(), "");
  EXPECT_EQ(list.lngListCount(), 3);
  EXPECT_EQ(folder.fileCount(), 1u);
  // Brought back, it is the same as ever.
  std::filesystem::rename(toFilePath(path + ".away"), toFilePath(path));
  EXPECT_TRUE(list.boolSavePlayListToPLDB());
}

TEST_F(PrepareDatabaseTest, ADatabaseThatIsExchangedHasTheListThatIsSavedNext) {
  storeAList(3);
  const std::string other = folder.file("other");
  ASSERT_EQ(prepareDatabase(other, log), DatabaseState::created);
  runSql(other, "insert into play_list(item_order, flag_for_play_list) values(1, 'else')");
  std::filesystem::rename(toFilePath(other), toFilePath(path));
  EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  EXPECT_EQ(runSql(path, "select count(*) from play_list"), std::vector<std::string>{"3"});
}

/// By a tool that keeps a log of its own beside a database, and was killed.
TEST_F(PrepareDatabaseTest, ALogThatAToolLeftBesideTheDatabaseIsTakenIn) {
  storeAList(3);
  std::string database;
  std::string toolsLog;
  {
    OtherProgram tool(path);
    tool.run("pragma journal_mode=wal; delete from play_list where item_order = 3");
    database = contentOf(path);
    toolsLog = contentOf(path + "-wal");
  }
  ASSERT_GT(toolsLog.size(), 0u);
  writeFile(path, database);
  writeFile(path + "-wal", toolsLog);
  EXPECT_EQ(prepare(), DatabaseState::ready) << testing::PrintToString(log.errors);
  EXPECT_TRUE(list.boolGetPlayListFromPLDB());
  EXPECT_EQ(list.lngListCount(), 2);
  EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  EXPECT_EQ(folder.fileCount(), 1u);
}

/// Nobody can tell it from the database's own. What comes of it is a whole database all the same.
TEST_F(PrepareDatabaseTest, AJournalOfAnotherDatabaseLeavesAWholeOne) {
  storeAList(1000);
  std::string journal;
  {
    OtherProgram other(path);
    other.run("pragma cache_size=2; begin; update play_list set file_name='broken'");
    journal = contentOf(path + "-journal");
    other.run("rollback");
  }
  list.clearList();
  storeAList(3);
  writeFile(path + "-journal", journal);
  const auto state = prepare();
  EXPECT_TRUE(state == DatabaseState::ready || state == DatabaseState::replaced);
  EXPECT_EQ(runSql(path, "pragma integrity_check"), std::vector<std::string>{"ok"});
  EXPECT_EQ(folder.fileCount(), state == DatabaseState::ready ? 1u : 2u);
}

TEST_F(PrepareDatabaseTest, AReadOnlyDatabaseThatLacksATableIsLeftAlone) {
  storeAList(3);
  runSql(path, "drop table sys");
  const auto content = contentOf(path);
  {
    const WriteProtected protection(path);
    expectLeftAlone(content, DatabaseState::notWritable);
  }
}

TEST_F(PrepareDatabaseTest, ADamagedFileThatIsReadOnlyIsLeftAlone) {
  writeFile(path, "not a database");
  // The folder would allow the renaming.
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  {
    const WriteProtected protection(path);
    EXPECT_EQ(prepare(), DatabaseState::notWritable);
  }
  EXPECT_EQ(contentOf(path), "not a database");
  EXPECT_EQ(folder.fileCount(), 1u);
}

/// Bytes anywhere are changed. Whatever that did: nothing crashes, and what lay there before is
/// either still the database or kept aside, byte for byte.
TEST_F(PrepareDatabaseTest, NoDamageCrashesOrLosesTheFile) {
  const auto good = storeAList(300);
  std::mt19937 random(20261120);
  int replaced = 0;
  for (int round = 0; round < 100; ++round) {
    auto content = good;
    const auto changes = 1 + random() % 20;
    for (std::size_t i = 0; i < changes; ++i) {
      // Half of them where pages have their headers, where it hurts.
      const auto page = random() % (content.size() / 16384) * 16384;
      const auto place = random() % 2 == 0 ? page + random() % 120 : random() % content.size();
      content[place] = static_cast<char>(random());
    }
    writeFile(path, content);
    const auto state = prepare();
    const auto aside = folder.file("SysConfig.damaged-1");
    ASSERT_EQ(contentOf(state == DatabaseState::replaced ? aside : path).size(), content.size());
    if (state == DatabaseState::replaced) {
      ++replaced;
      ASSERT_EQ(contentOf(aside), content) << "round " << round;
      std::filesystem::remove(toFilePath(aside));
    }
    PlayList loaded(keys);
    loaded.strPLDBFilePath(path);
    if (loaded.boolGetPlayListFromPLDB() && state == DatabaseState::ready) {
      ASSERT_GT(loaded.lngListCount(), 0) << "round " << round;
    }
    loaded.boolSavePlayListToPLDB();
  }
  EXPECT_GT(replaced, 30);
}

}  // namespace
}  // namespace tessivo
