#include "data/DataError.h"
#include "data/MoveIn.h"
#include "data/PlayList.h"
#include "data/SysConfig.h"
#include "fakes/FaultyDisk.h"
#include "fakes/KilledProcess.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"
#include "unit/data/WriteProtected.h"

namespace tessivo {
namespace {

/// What a file of Microsoft Access begins with.
const std::string kAccessFile =
    std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4076, 'x');
/// The same of Access 2007 and later.
const std::string kNewerAccessFile =
    std::string("\0\1\0\0Standard ACE DB\0", 20) + std::string(4076, 'x');

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
      list += "[" + name + "]\nDriver=" + library + "\nDontDLClose=0\n";
      std::filesystem::remove(toFilePath(library));
      if (std::ranges::count(names, name) == 0) continue;
      std::filesystem::create_symlink(TESSIVO_TEST_ACCESS_DRIVER, toFilePath(library));
    }
    writeFile(folder.file("odbcinst.ini"), list);
  }
};

/// The rows of the Access file, as far as the driver of the tests is concerned, lie beside it.
class AccessRowsTest : public AccessFileTest {
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

  /// One more connection that the driver of that name ("mdb" or "accdb") refuses.
  void refuse(const std::string& driver, const std::string& state, int number) {
    std::ofstream(toFilePath(path + ".refuses"), std::ios::app)
        << driver << ' ' << state << ' ' << number << '\n';
  }
  /// What the drivers were asked for, of that kind.
  std::vector<std::string> calls(const std::string& kind) {
    std::ifstream file(toFilePath(path + ".calls"));
    std::vector<std::string> found;
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with(kind)) found.push_back(line);
    }
    return found;
  }

  const std::string rows = path + ".rows";
  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
};

class WithDriverTest : public AccessRowsTest, public testing::WithParamInterface<const char*> {
  const Drivers drivers_{{GetParam()}};
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
    database->query("select from");
    FAIL() << "no exception";
  } catch (const DataError& error) {
    EXPECT_EQ(error.fault(), DataFault::failed);
    EXPECT_NE(std::string(error.what()).find("syntax error"), std::string::npos) << error.what();
  }
  try {
    database->query("select * from no_such_table");
    FAIL() << "no exception";
  } catch (const DataError& error) {
    EXPECT_EQ(error.fault(), DataFault::noTable);
    EXPECT_NE(std::string(error.what()).find("no_such_table"), std::string::npos) << error.what();
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
  EXPECT_EQ(working.state, DatabaseState::ready);
  EXPECT_TRUE(working.notConverted);
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

TEST_P(WithDriverTest, AFileThatMayNotBeWrittenIsReadAndSaidToBeSo) {
  const WriteProtected protection(path);
  const WorkingDatabase working = chooseDatabase(path, log);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::notWritable);
}

TEST_P(WithDriverTest, WhatIsSaidOfTheNewDatabaseIsWhatBecameOfIt) {
  runSql(rows, "drop table sys");
  std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::remove);
  {
    const WriteProtected protection(path);
    const WorkingDatabase working = chooseDatabase(path, log);
    EXPECT_EQ(working.path, own);
    EXPECT_EQ(working.state, DatabaseState::notWritable);
  }
  std::filesystem::permissions(folder.path(), std::filesystem::perms::owner_write,
                               std::filesystem::perm_options::add);
}

// A conversion

TEST_P(WithDriverTest, TheRestOfAConversionThatBrokeOffIsNotInTheWay) {
  writeFile(own + ".new", "half a database");
  EXPECT_EQ(convertDatabase(path, log).state, DatabaseState::converted);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own + ".new")));
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own + ".new.damaged-1")));
}

TEST_P(WithDriverTest, AConversionThatFailsInTheMidstLeavesNothingHalfMade) {
  // A table that can be looked at but not read.
  runSql(rows, "drop table file_association_config");
  runSql(rows, "create view file_association_config as select abs(-9223372036854775808) as a");
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_TRUE(working.notConverted);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::accessInUse);
  EXPECT_NE(log.errors.at(0).find("integer overflow"), std::string::npos) << log.errors.at(0);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own + ".new")));
}

TEST_P(WithDriverTest, ColumnsAreTheSameInAnyCase) {
  runSql(rows, "drop table play_list");
  runSql(rows, "create table PLAY_LIST(Item_Order integer, FILE_PATH text, more text)");
  runSql(rows, "insert into play_list values(1, 'D:\\a.avi', 'x'), (2, 'D:\\b.avi', 'y')");
  EXPECT_EQ(convertDatabase(path, log).state, DatabaseState::converted);
  EXPECT_EQ(runSql(own, "select item_order, file_path, file_name from play_list"),
            (std::vector<std::string>{"1|D:\\a.avi|NULL", "2|D:\\b.avi|NULL"}));
}

TEST_P(WithDriverTest, AConversionWritesAllRowsAtOnce) {
  storeAList(50);
  EXPECT_EQ(convertDatabase(path, log).state, DatabaseState::converted);
  // SQLite counts the transactions of a file there.
  const std::string content = contentOf(own);
  const auto at = [&](std::size_t place) { return static_cast<unsigned char>(content.at(place)); };
  EXPECT_LT(at(24) * 0x1000000 + at(25) * 0x10000 + at(26) * 0x100 + at(27), 40);
}

class KilledConversionTest : public AccessRowsTest {
  const Drivers drivers_{{kDriver}};
};

/// What is there afterwards is the own database that was there before or the new one, whole, and
/// another attempt comes through.
TEST_F(KilledConversionTest, HasDoneAllOrNothing) {
  storeAList(150);
  runSql(rows, "insert into sys(volume_value) values(77)");
  const std::string before = folder.file("before");
  prepareDatabase(before, log);
  runSql(before, "insert into sys(volume_value) values(12)");
  int changes = 0;
  for (bool ended = false; !ended; ++changes) {
    SCOPED_TRACE(changes);
    for (const std::string end : {"", "-journal", ".new", ".new-journal", ".old-1", ".old-2"}) {
      std::filesystem::remove(toFilePath(own + end));
    }
    std::filesystem::copy_file(toFilePath(before), toFilePath(own));
    const auto convert = [this] {
      return convertDatabase(path, log).state == DatabaseState::converted;
    };
    ended = endsBeforeKill(changes, convert);
    const WorkingDatabase working = chooseDatabase(path, log);
    ASSERT_EQ(working.path, own);
    ASSERT_EQ(working.state, DatabaseState::ready);
    const auto volume = runSql(own, "select volume_value from sys");
    const auto count = runSql(own, "select count(*) from play_list");
    if (volume == std::vector<std::string>{"12"}) {
      ASSERT_FALSE(ended);
      ASSERT_EQ(count, std::vector<std::string>{"0"});
    } else {
      ASSERT_EQ(volume, std::vector<std::string>{"77"});
      ASSERT_EQ(count, std::vector<std::string>{"150"});
      ASSERT_EQ(runSql(own + ".old-1", "select volume_value from sys"),
                std::vector<std::string>{"12"});
    }
    if (changes % 4 != 0) continue;
    ASSERT_TRUE(convert()) << testing::PrintToString(log.errors);
    ASSERT_EQ(runSql(own, "select volume_value from sys"), std::vector<std::string>{"77"});
  }
  EXPECT_GT(changes, 20) << "too few moments";
}

/// The own database stays as it was, and when the disk is well again the conversion comes through,
/// whatever was left behind.
TEST_F(KilledConversionTest, OnADiskThatFailsHasDoneNothing) {
  FaultyDisk disk;
  storeAList(50);
  prepareDatabase(own, log);
  runSql(own, "insert into sys(volume_value) values(12)");
  using enum FaultyDisk::Left;
  int steps = 0;
  for (bool happened = true; happened; steps += 4) {
    SCOPED_TRACE(steps);
    disk.failAt(steps + 1, FaultyDisk::Error::full, FaultyDisk::Lasts::untilMended);
    convertDatabase(path, log);
    happened = disk.happened();
    disk.mend();
    if (!happened) break;
    ASSERT_EQ(runSql(own, "select volume_value from sys"), std::vector<std::string>{"12"});
    ASSERT_FALSE(std::filesystem::exists(toFilePath(own + ".new")));
    for (const auto left : {all, nothing, sectors}) {
      disk.losePowerAt(steps + 1, left);
      convertDatabase(path, log);
      ASSERT_TRUE(disk.happened());
      disk.powerOn();
      ASSERT_EQ(runSql(own, "select volume_value from sys"), std::vector<std::string>{"12"});
    }
  }
  EXPECT_GT(steps, 20) << "too few moments";
  EXPECT_EQ(runSql(own, "select count(*) from play_list"), std::vector<std::string>{"50"});
  EXPECT_EQ(runSql(own + ".old-1", "select volume_value from sys"), std::vector<std::string>{"12"});
}

// A file that cannot be opened now

class HeldAccessFileTest : public AccessRowsTest {
 protected:
  void expectKept() {
    const WorkingDatabase working = chooseDatabase(path, log);
    EXPECT_EQ(working.path, path);
    EXPECT_EQ(working.state, DatabaseState::accessHeld);
    EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
    EXPECT_EQ(log.errors.size(), 1U);
  }
  void expectGivenUp() {
    const WorkingDatabase working = chooseDatabase(path, log);
    EXPECT_EQ(working.path, own);
    EXPECT_EQ(working.state, DatabaseState::accessFile);
  }
  const Drivers drivers{{kDriver}};
};

TEST_F(HeldAccessFileTest, WhatAnotherProgramHoldsIsKeptAndNotWritten) {
  storeAList(2);
  refuse("mdb", "HY000", -1032);
  expectKept();
  EXPECT_FALSE(list.boolGetPlayListFromPLDB());
  std::filesystem::remove(toFilePath(path + ".refuses"));
  EXPECT_TRUE(list.boolSavePlayListToPLDB());  // the list that could not be read is empty
  EXPECT_EQ(runSql(rows, "select count(*) from play_list"), std::vector<std::string>{"2"});
}

TEST_F(HeldAccessFileTest, AFileWithAPasswordIsKept) {
  refuse("mdb", "42000", -1905);
  expectKept();
}

TEST_F(HeldAccessFileTest, AFileThatNobodyUnderstandsIsGivenUp) {
  refuse("mdb", "HY000", -1028);
  expectGivenUp();
}

TEST_F(HeldAccessFileTest, ADamagedFileIsGivenUp) {
  refuse("mdb", "HY000", -1206);
  expectGivenUp();
}

TEST_F(HeldAccessFileTest, ADriverThatCannotBeLoadedIsNone) {
  refuse("mdb", "IM003", 160);
  expectGivenUp();
}

TEST_F(HeldAccessFileTest, AConversionThatFailsSaysBoth) {
  refuse("mdb", "HY000", -1032);
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::accessHeld);
  EXPECT_TRUE(working.notConverted);
}

// Which driver

class BothDriversTest : public AccessRowsTest {
 protected:
  std::vector<std::string> triedFor(const std::string& content) {
    writeFile(path, content);
    std::filesystem::remove(toFilePath(path + ".calls"));
    openDatabase(connectionStringFor(path));
    return calls("connect");
  }
  const Drivers drivers{{kDriver, kNewerDriver}};
};

TEST_F(BothDriversTest, EachFileHasItsDriver) {
  EXPECT_EQ(triedFor(kAccessFile), std::vector<std::string>{"connect mdb"});
  EXPECT_EQ(triedFor(kNewerAccessFile), std::vector<std::string>{"connect accdb"});
}

TEST_F(BothDriversTest, WhatOneRefusesTheOtherIsAskedFor) {
  refuse("mdb", "HY000", -1028);
  EXPECT_EQ(triedFor(kAccessFile), (std::vector<std::string>{"connect mdb", "connect accdb"}));
  writeFile(path + ".refuses", "accdb HY000 -1032\n");
  EXPECT_EQ(triedFor(kNewerAccessFile), (std::vector<std::string>{"connect accdb", "connect mdb"}));
}

TEST_F(BothDriversTest, WhenBothRefuseTheReasonsAreThere) {
  refuse("mdb", "HY000", -1032);
  refuse("accdb", "HY000", -1028);
  try {
    openDatabase(connectionStringFor(path));
    FAIL() << "no exception";
  } catch (const DataError& error) {
    const std::string text = error.what();
    EXPECT_NE(text.find("-1032"), std::string::npos) << text;
    EXPECT_NE(text.find("-1028"), std::string::npos) << text;
    EXPECT_EQ(error.fault(), DataFault::failed);  // of the file's own driver
  }
}

TEST_F(HeldAccessFileTest, WhatTheOldDriverSaysOfANewerFileDoesNotCount) {
  writeFile(path, kNewerAccessFile);
  refuse("mdb", "HY000", -1032);
  try {
    openDatabase(connectionStringFor(path));
    FAIL() << "no exception";
  } catch (const DataError& error) {
    EXPECT_EQ(error.fault(), DataFault::accessFile);
  }
}

// What is bound and read

class OdbcValuesTest : public AccessRowsTest {
 protected:
  void SetUp() override {
    runSql(rows, "create table [odd name]([a b] integer, [order] text, big bigint, bytes blob)");
    database = openDatabase(connectionStringFor(path));
  }
  static std::string characters(std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += static_cast<char>('a' + i % 26);
    return text;
  }
  /// How the driver gets a value, but for its length.
  std::string boundAs(const Value& value) {
    std::filesystem::remove(toFilePath(path + ".calls"));
    database->insertRow("odd name", {{"order", &value}});
    const std::string line = calls("bind").at(0);
    return line.substr(0, line.find(", length"));
  }
  const Drivers drivers{{kDriver}};
  std::shared_ptr<Database> database;
};

TEST_F(OdbcValuesTest, ATextOfAnyLengthComesBack) {
  for (const std::size_t length : {0U, 1U, 255U, 256U, 2045U, 2046U, 2047U, 2048U, 2049U, 4093U,
                                   4094U, 4095U, 4096U, 4097U, 9000U}) {
    const Value stored = characters(length);
    database->query("delete from [odd name]");
    database->insertRow("odd name", {{"order", &stored}});
    const ResultSet result = database->query("select [order] from [odd name]");
    ASSERT_EQ(result.cells.size(), 1U);
    EXPECT_TRUE(result.cells.front() == stored) << length;
  }
}

TEST_F(OdbcValuesTest, BytesOfAnyLengthComeBack) {
  for (const std::size_t length : {1U, 4094U, 4095U, 4096U, 4097U, 4098U, 9000U}) {
    const Value stored = Blob{characters(length)};
    database->query("delete from [odd name]");
    database->insertRow("odd name", {{"bytes", &stored}});
    const ResultSet result = database->query("select bytes from [odd name]");
    ASSERT_EQ(result.cells.size(), 1U);
    EXPECT_TRUE(result.cells.front() == stored) << length;
  }
}

TEST_F(OdbcValuesTest, ALongTextIsBoundAsOne) {
  EXPECT_EQ(boundAs(characters(255)), "bind 1: C type -8, SQL type -9, size 255");
  EXPECT_EQ(boundAs(characters(256)), "bind 1: C type -8, SQL type -10, size 256");
  EXPECT_EQ(boundAs(std::string()), "bind 1: C type -8, SQL type -9, size 1");
}

TEST_F(OdbcValuesTest, WholeNumbersThatAccessHasNotAreBoundAsNumbers) {
  EXPECT_EQ(boundAs(std::int64_t{2147483647}), "bind 1: C type -16, SQL type 4, size 10");
  EXPECT_EQ(boundAs(std::int64_t{-2147483648}), "bind 1: C type -16, SQL type 4, size 10");
  EXPECT_EQ(boundAs(std::int64_t{2147483648}), "bind 1: C type 8, SQL type 8, size 15");
  EXPECT_EQ(boundAs(std::int64_t{-2147483649}), "bind 1: C type 8, SQL type 8, size 15");
}

TEST_F(OdbcValuesTest, LargeWholeNumbersAreRead) {
  runSql(rows, "insert into [odd name](big) values(5000000000)");
  const ResultSet result = database->query("select big from [odd name]");
  EXPECT_EQ(asInteger<std::int64_t>(result.cells.at(0), 0), 5000000000);
}

TEST_F(OdbcValuesTest, NullIsReadAndWrittenAsSuch) {
  const Value null;
  database->insertRow("odd name", {{"a b", &null}, {"order", &null}, {"big", &null}});
  EXPECT_EQ(runSql(rows, "select * from [odd name]"),
            std::vector<std::string>{"NULL|NULL|NULL|NULL"});
  const ResultSet result = database->openTable("odd name");
  ASSERT_EQ(result.cells.size(), 4U);
  for (const Value& cell : result.cells) EXPECT_TRUE(isNull(cell)) << asText(cell);
}

TEST_F(OdbcValuesTest, ARowWithNullsIsFoundAgain) {
  runSql(rows, "insert into [odd name]([a b], [order]) values(1, null), (null, 'x'), (1, 'x')");
  const Value one = std::int64_t{1};
  const Value null;
  const Value changed = std::string("changed");
  database->updateRow("odd name", {{"order", &changed}}, {{"a b", &one}, {"order", &null}});
  EXPECT_EQ(runSql(rows, "select [a b], [order] from [odd name]"),
            (std::vector<std::string>{"1|changed", "NULL|x", "1|x"}));
}

TEST_F(OdbcValuesTest, MoreThanOneRowIsNotChanged) {
  runSql(rows, "insert into [odd name]([a b]) values(1), (1), (2)");
  const Value one = std::int64_t{1};
  const Value three = std::int64_t{3};
  EXPECT_THROW(database->updateRow("odd name", {{"a b", &three}}, {{"a b", &one}}), DataError);
  EXPECT_EQ(runSql(rows, "select [a b] from [odd name]"),
            (std::vector<std::string>{"1", "1", "2"}));
  // And the connection goes on as before.
  const Value two = std::int64_t{2};
  database->updateRow("odd name", {{"a b", &three}}, {{"a b", &two}});
  database->insertRow("odd name", {{"a b", &one}});
  EXPECT_EQ(runSql(rows, "select [a b] from [odd name]"),
            (std::vector<std::string>{"1", "1", "3", "1"}));
}

TEST_F(OdbcValuesTest, ANameWithABracketIsRefused) {
  const Value one = std::int64_t{1};
  EXPECT_THROW(database->insertRow("odd name", {{"a] b", &one}}), DataError);
  EXPECT_THROW(database->openTable("odd[name"), DataError);
}

TEST_F(OdbcValuesTest, AfterACommitEachWriteCountsAtOnceAgain) {
  const Value one = std::int64_t{1};
  database->begin();
  database->insertRow("odd name", {{"a b", &one}});
  database->commit();
  database->insertRow("odd name", {{"a b", &one}});
  EXPECT_EQ(runSql(rows, "select count(*) from [odd name]"), std::vector<std::string>{"2"});
}

TEST_F(OdbcValuesTest, WhatIsNotCommittedIsTakenBackByAWord) {
  const Value one = std::int64_t{1};
  database->begin();
  database->insertRow("odd name", {{"a b", &one}});
  EXPECT_TRUE(calls("rollback").empty());
  database.reset();
  EXPECT_EQ(calls("rollback").size(), 1U);
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
  EXPECT_EQ(working.state, DatabaseState::accessFile);
  EXPECT_TRUE(working.notConverted);
  EXPECT_EQ(log.errors.size(), 2U);
  EXPECT_EQ(contentOf(path), kAccessFile);
}

class OwnDatabaseBesideTest : public AccessFileTest {
 protected:
  void SetUp() override {
    prepareDatabase(own, log);
    runSql(own, "insert into sys(volume_value) values(12)");
  }
  void expectTheOwnOne() {
    const WorkingDatabase working = chooseDatabase(path, log);
    EXPECT_EQ(working.path, own);
    EXPECT_EQ(working.state, DatabaseState::ready);
    EXPECT_EQ(runSql(own, "select volume_value from sys"), std::vector<std::string>{"12"});
  }
};

TEST_F(OwnDatabaseBesideTest, StaysInUseWhenTheAccessFileIsGone) {
  expectTheOwnOne();
  std::filesystem::remove(toFilePath(path));
  expectTheOwnOne();
  EXPECT_FALSE(std::filesystem::exists(toFilePath(path)));
  writeFile(path, "");
  expectTheOwnOne();
}

TEST_F(OwnDatabaseBesideTest, GivesWayToADatabaseOfOurs) {
  std::filesystem::remove(toFilePath(path));
  EXPECT_EQ(prepareDatabase(path, log), DatabaseState::created);
  EXPECT_EQ(chooseDatabase(path, log).path, path);
}

TEST_F(AccessFileTest, WithNeitherOfTheTwoThereIsANewDatabase) {
  std::filesystem::remove(toFilePath(path));
  EXPECT_EQ(chooseDatabase(path, log).path, path);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
}

TEST_F(AccessFileTest, WhatIsPutInPlaceKeepsWhatWasThere) {
  writeFile(own, "old");
  writeFile(own + "-journal", "journal");
  writeFile(own + ".new", "new");
  EXPECT_EQ(putInPlace(own + ".new", own, ".old-"), own + ".old-1");
  EXPECT_EQ(contentOf(own), "new");
  EXPECT_EQ(contentOf(own + ".old-1"), "old");
  EXPECT_EQ(contentOf(own + ".old-1-journal"), "journal");
  writeFile(path + ".new", "more");
  EXPECT_EQ(putInPlace(path + ".new", folder.file("free"), ".old-"), "");
}

TEST_F(AccessFileTest, AJournalThatIsLeftIsNotTakenForThatOfWhatIsPutInPlace) {
  writeFile(own + "-journal", "of one that is gone");
  writeFile(own + ".new", "new");
  EXPECT_EQ(putInPlace(own + ".new", own, ".old-"), "");
  EXPECT_EQ(contentOf(own), "new");
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own + "-journal")));
  EXPECT_EQ(contentOf(own + ".old-1-journal"), "of one that is gone");
}

TEST_F(AccessFileTest, WhatIsPutInPlaceOfADatabaseAloneKeepsIt) {
  writeFile(own, "old");
  writeFile(own + ".new", "new");
  EXPECT_EQ(putInPlace(own + ".new", own, ".old-"), own + ".old-1");
  EXPECT_EQ(contentOf(own), "new");
  EXPECT_EQ(contentOf(own + ".old-1"), "old");
  EXPECT_EQ(folder.fileCount(), 3U);
}

TEST_F(AccessFileTest, WhatCannotBePutInPlaceOfADatabaseChangesNothing) {
  writeFile(own, "old");
  EXPECT_THROW(putInPlace(folder.file("missing"), own, ".old-"), std::filesystem::filesystem_error);
  EXPECT_EQ(contentOf(own), "old");
  EXPECT_EQ(folder.fileCount(), 2U);
}

TEST_F(AccessFileTest, WhatCannotBePutInPlaceChangesNothing) {
  writeFile(own, "old");
  writeFile(own + "-journal", "journal");
  EXPECT_THROW(putInPlace(folder.file("missing"), own, ".old-"), std::filesystem::filesystem_error);
  EXPECT_EQ(contentOf(own), "old");
  EXPECT_EQ(contentOf(own + "-journal"), "journal");
  EXPECT_EQ(folder.fileCount(), 3U);
}

TEST_F(AccessFileTest, WhatIsNoAccessFileIsNotConverted) {
  std::filesystem::remove(toFilePath(path));
  prepareDatabase(path, log);
  const WorkingDatabase working = convertDatabase(path, log);
  EXPECT_EQ(working.path, path);
  EXPECT_EQ(working.state, DatabaseState::ready);
  EXPECT_TRUE(working.notConverted);
  EXPECT_FALSE(std::filesystem::exists(toFilePath(own)));
}

}  // namespace
}  // namespace tessivo
