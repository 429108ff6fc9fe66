#include "data/DataError.h"
#include "data/MoveIn.h"
#include "data/PlayList.h"
#include "data/SysConfig.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

/// What a file of Microsoft Access begins with.
const std::string kAccessFile =
    std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4076, 'x');

class AccessFileTest : public testing::Test {
 protected:
  AccessFileTest() { writeFile(path, kAccessFile); }

  // Linux's driver manager hands a driver of 8-bit characters, as the test's is, no Chinese path,
  // and SQLite's driver takes neither ';' nor braces in one.
  TempFolder folder{"tessivo access "};
  const std::string path = folder.file("SysConfig");
  const std::string own = path + ".db";
  RecordingLog log;
};

#ifdef _WIN32
using WithoutDriverTest = AccessFileTest;
#else
constexpr const char* kDriver = "Microsoft Access Driver (*.mdb)";
constexpr const char* kNewerDriver = "Microsoft Access Driver (*.mdb, *.accdb)";

/// The machine's drivers of the two names: both are registered, those given have their library. The
/// driver manager keeps what it has read of the list for a while, so that the list itself stays.
class Drivers {
 public:
  explicit Drivers(const std::vector<std::string>& names) {
    static const TempFolder folder("drivers-");
    setenv("ODBCSYSINI", folder.path().c_str(), 1);
    std::string list;
    for (const std::string name : {kDriver, kNewerDriver}) {
      const std::string library = folder.file(name == kDriver ? "mdb.so" : "accdb.so");
      list += "[" + name + "]\nDriver=" + library + "\n";
      std::filesystem::remove(toFilePath(library));
      if (std::ranges::count(names, name) == 0) continue;
      std::filesystem::create_symlink(TESSIVO_TEST_ACCESS_DRIVER, toFilePath(library));
    }
    writeFile(folder.file("odbcinst.ini"), list);
  }
};

/// The rows of the Access file, as far as the driver of the tests is concerned, lie beside it.
class WithDriverTest : public AccessFileTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    EXPECT_EQ(prepareDatabase(rows, log), DatabaseState::created);
    runSql(rows, "delete from file_association; delete from file_association_config");
    runSql(rows, "insert into file_association values('.mp3','MP3','Tessivo.mp3','Other','a','b')");
    log = {};
  }
  void storeAList(int count) {
    for (int i = 0; i < count; ++i) {
      auto movie = std::make_shared<Movie>(keys);
      movie->strFilePath = "D:\\影片\\" + std::string(300, 'f') + std::to_string(i) + ".avi";
      list.addAItem(movie);
    }
    list.strPLDBFilePath(path);
    EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  }

  const Drivers drivers{{GetParam()}};
  const std::string rows = path + ".rows";
  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
};

TEST_P(WithDriverTest, TheFileIsUsedAsItIs) {
  const WorkingDatabase working = chooseDatabase(path, log);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::accessInUse) << testing::PrintToString(log.errors);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
  EXPECT_EQ(contentOf(path), kAccessFile);
}

TEST_P(WithDriverTest, TheListIsSavedAndLoadedThroughTheDriver) {
  storeAList(3);
  EXPECT_EQ(runSql(rows, "select count(*), min(item_order), max(item_order) from play_list"),
            std::vector<std::string>{"3|1|3"});
  PlayList loaded{keys};
  loaded.strPLDBFilePath(path);
  ASSERT_TRUE(loaded.boolGetPlayListFromPLDB()) << loaded.strReport();
  ASSERT_EQ(loaded.lngListCount(), 3);
  EXPECT_EQ(loaded.objGetAItem(3)->strFilePath, list.objGetAItem(3)->strFilePath);
  // A second save takes the place of the first.
  loaded.deleteAItem(loaded.objGetAItem(1)->strKey);
  EXPECT_TRUE(loaded.boolSavePlayListToPLDB());
  EXPECT_EQ(runSql(rows, "select count(*) from play_list"), std::vector<std::string>{"2"});
}

TEST_P(WithDriverTest, TheSettingsAreSavedAndLoadedThroughTheDriver) {
  for (const int volume : {44, 55}) {  // the row is made, then changed
    SysConfig config;
    config.strDBFilePath(path);
    config.boolGetData();
    config.intVolumeValue(static_cast<std::int16_t>(volume));
    EXPECT_TRUE(config.boolSaveData());
    EXPECT_EQ(runSql(rows, "select count(*), volume_value from sys"),
              std::vector<std::string>{"1|" + std::to_string(volume)});
  }
}

TEST_P(WithDriverTest, WhatIsNotCommittedIsNotThere) {
  storeAList(2);
  {
    const auto database = openDatabase(connectionStringFor(path));
    database->begin();
    database->query("delete from play_list");
  }
  EXPECT_EQ(runSql(rows, "select count(*) from play_list"), std::vector<std::string>{"2"});
}

TEST_P(WithDriverTest, ARowThatHasChangedMeanwhileIsNotOverwritten) {
  const auto database = openDatabase(connectionStringFor(path));
  Recordset row(database, "select * from file_association where app_association='.mp3'");
  runSql(rows, "update file_association set old_app_id='Meanwhile'");
  row.setValue("old_app_id", std::string("Mine"));
  EXPECT_THROW(row.update(), DataError);
  EXPECT_EQ(runSql(rows, "select old_app_id from file_association"),
            std::vector<std::string>{"Meanwhile"});
}

TEST_P(WithDriverTest, AStatementThatTheDriverRefusesIsAFailureWithItsReason) {
  const auto database = openDatabase(connectionStringFor(path));
  try {
    database->query("select * from no_such_table");
    FAIL() << "no exception";
  } catch (const DataError& error) {
    EXPECT_EQ(error.fault(), DataFault::failed);
    EXPECT_NE(std::string(error.what()).find("no_such_table"), std::string::npos);
  }
}

TEST_P(WithDriverTest, ConvertingCopiesEverythingAndTheNextStartTakesTheCopy) {
  storeAList(3);
  runSql(rows, "insert into sys(volume_value, scr_sav_proc_name) values(77, '时钟')");
  const WorkingDatabase converted = convertDatabase(path, log);
  EXPECT_EQ(converted.path, own);
  EXPECT_EQ(converted.state, DatabaseState::converted) << testing::PrintToString(log.errors);
  EXPECT_EQ(runSql(own, "select file_path from play_list order by item_order"),
            runSql(rows, "select file_path from play_list order by item_order"));
  EXPECT_EQ(runSql(own, "select volume_value, scr_sav_proc_name from sys"),
            std::vector<std::string>{"77|时钟"});
  EXPECT_EQ(runSql(own, "select * from file_association"),
            std::vector<std::string>{".mp3|MP3|Tessivo.mp3|Other|a|b"});
  // The file has no row for it: what a new database brings along.
  EXPECT_EQ(runSql(own, "select main_app_file_name from file_association_config"),
            std::vector<std::string>{"Tessivo.exe"});
  EXPECT_EQ(contentOf(path), kAccessFile);
  const WorkingDatabase working = chooseDatabase(path, log);
  EXPECT_EQ(working.path, own);
  EXPECT_EQ(working.state, DatabaseState::ready);
}

TEST_P(WithDriverTest, ConvertingAgainKeepsWhatIsInTheWay) {
  EXPECT_EQ(convertDatabase(path, log).state, DatabaseState::converted);
  storeAList(2);
  runSql(own, "insert into sys(volume_value) values(12)");
  EXPECT_EQ(convertDatabase(path, log).state, DatabaseState::converted);
  EXPECT_EQ(runSql(own, "select count(*) from play_list"), std::vector<std::string>{"2"});
  EXPECT_EQ(runSql(own + ".old-1", "select volume_value from sys"), std::vector<std::string>{"12"});
}

TEST_P(WithDriverTest, ConvertingLeavesNothingBehindWhenItFails) {
  runSql(rows, "drop table sys");
  const std::string half = own + ".new";
  writeFile(half, "of an attempt that broke off");
  prepareDatabase(own, log);
  runSql(own, "insert into sys(volume_value) values(12)");
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_EQ(working.path, own);
  EXPECT_EQ(working.state, DatabaseState::notConverted);
  EXPECT_EQ(runSql(own, "select volume_value from sys"), std::vector<std::string>{"12"});
  EXPECT_FALSE(std::filesystem::exists(toFilePath(half)));
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own + ".old-1")));
}

TEST_P(WithDriverTest, AFileThatLacksATableIsNotUsed) {
  runSql(rows, "drop table sys");
  const WorkingDatabase working = chooseDatabase(path, log);
  EXPECT_EQ(working.path, own);
  EXPECT_EQ(working.state, DatabaseState::accessFile);
}

INSTANTIATE_TEST_SUITE_P(Names, WithDriverTest, testing::Values(kDriver, kNewerDriver));

class WithoutDriverTest : public AccessFileTest {
  const Drivers drivers_{{}};
};
#endif

TEST_F(WithoutDriverTest, ThereIsANewDatabaseBesideTheFile) {
  const WorkingDatabase working = chooseDatabase(path, log);
  EXPECT_EQ(working.path, own);
  EXPECT_EQ(working.state, DatabaseState::accessFile);
  EXPECT_EQ(contentOf(path), kAccessFile);
  EXPECT_EQ(log.errors.size(), 1U);
  EXPECT_EQ(runSql(own, "select main_app_file_name from file_association_config"),
            std::vector<std::string>{"Tessivo.exe"});
  // The next start goes on with it and says nothing more.
  const WorkingDatabase next = chooseDatabase(path, log);
  EXPECT_EQ(next.path, own);
  EXPECT_EQ(next.state, DatabaseState::ready);
  EXPECT_EQ(log.errors.size(), 1U);
}

TEST_F(WithoutDriverTest, AFileThatAccessWroteIsRecognisedAndStays) {
  const std::string content = contentOf(TESSIVO_TEST_ACCESS_FILE);
  ASSERT_GT(content.size(), 100000U);
  writeFile(path, content);
  EXPECT_EQ(chooseDatabase(path, log).state, DatabaseState::accessFile);
  EXPECT_EQ(contentOf(path), content);
}

TEST_F(WithoutDriverTest, OpeningTheFileSaysThatTheDriverIsMissing) {
  try {
    openDatabase(connectionStringFor(path));
    FAIL() << "no exception";
  } catch (const DataError& error) {
    EXPECT_EQ(error.fault(), DataFault::accessFile);
  }
}

TEST_F(WithoutDriverTest, APathThatOdbcWouldCutShortIsInBraces) {
  const std::string odd = folder.file("a;b{c}");
  writeFile(odd, kAccessFile);
  try {
    openDatabase(connectionStringFor(odd));
    FAIL() << "no exception";
  } catch (const DataError& error) {
    const std::string expected = "DBQ={" + folder.file("a;b{c}}") + "};DRIVER={";
    EXPECT_TRUE(std::string(error.what()).starts_with(expected)) << error.what();
  }
}

TEST_F(WithoutDriverTest, NothingCanBeConverted) {
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_EQ(working.path, own);
  EXPECT_EQ(working.state, DatabaseState::notConverted);
  EXPECT_EQ(log.errors.size(), 2U);
  EXPECT_EQ(contentOf(path), kAccessFile);
}

TEST_F(AccessFileTest, WhatIsNoAccessFileIsNotConverted) {
  std::filesystem::remove(toFilePath(path));
  prepareDatabase(path, log);
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::notConverted);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
}

}  // namespace
}  // namespace tessivo
