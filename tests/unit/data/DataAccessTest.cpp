#include "data/DataAccess.h"

#include <chrono>

#include "data/DataError.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

class DataAccessTest : public DatabaseTest {
 protected:
  std::shared_ptr<Recordset> openRows(int count) {
    std::string insert = "insert into play_list(item_order) values (1)";
    for (int i = 2; i <= count; ++i) insert += ",(" + std::to_string(i) + ")";
    if (count > 0) runSql(path, insert);
    return access.objrsGetRecordSet("select * from play_list order by item_order", path);
  }
  std::string results() const {
    return std::to_string(access.lngGetPageCount()) + " pages, page " +
           std::to_string(access.lngGetPresentPageNum()) + " of " +
           std::to_string(access.lngGetPresentPageRecordCount()) + " rows";
  }

  DataAccess access;
  std::string error = "from before";
};

TEST(ConnectionString, NamesFileAndDriver) {
  EXPECT_EQ(connectionStringFor("C:\\T\\SysConfig"),
            "DBQ=C:\\T\\SysConfig;DRIVER={Microsoft Access Driver (*.mdb)};");
}

TEST(ConnectionString, AnythingElseIsRefused) {
  EXPECT_THROW(openDatabase("SysConfig"), DataError);
  EXPECT_THROW(openDatabase("DBQ=SysConfig"), DataError);
}

TEST_F(DataAccessTest, ARecordsetKeepsItsConnectionAlive) {
  const auto rows = DataAccess().objrsGetRecordSet1("select * from sys", path, error);
  ASSERT_NE(rows, nullptr);
  EXPECT_EQ(error, "");
  rows->addNew();
  rows->setValue("volume_value", std::int64_t{7});
  rows->update();
  EXPECT_EQ(runSql(path, "select volume_value from sys")[0], "7");
}

TEST_F(DataAccessTest, AMissingFileGivesNothingAndAReasonAndIsNotMade) {
  const auto missing = folder.file("elsewhere");
  EXPECT_EQ(access.objrsGetRecordSet1("select * from sys", missing, error), nullptr);
  EXPECT_NE(error.find("unable to open database file"), std::string::npos) << error;
  EXPECT_FALSE(std::filesystem::exists(toFilePath(missing)));
}

TEST_F(DataAccessTest, WithoutAnErrorTextTheFailureIsThrown) {
  EXPECT_THROW(access.objrsGetRecordSet("select * from sys", folder.file("elsewhere")), DataError);
  EXPECT_THROW(access.objrsGetRecordSet("select * from nowhere", path), DataError);
}

TEST_F(DataAccessTest, AWrongStatementGivesNothingAndAReason) {
  EXPECT_EQ(access.objrsGetRecordSet1("select * from nowhere", path, error), nullptr);
  EXPECT_NE(error.find("no such table: nowhere"), std::string::npos) << error;
}

TEST_F(DataAccessTest, AnApostropheInAnAssociationTypeBreaksTheStatement) {
  const std::string type = ".m'p3";
  EXPECT_EQ(access.objrsGetRecordSet1(
                "select * from file_association where app_association='" + type + "'", path, error),
            nullptr);
  EXPECT_NE(error, "");
}

TEST_F(DataAccessTest, ADeleteGivesARecordsetAndHasHappened) {
  openRows(3);
  EXPECT_NE(access.objrsGetRecordSet1("delete from play_list", path, error), nullptr);
  EXPECT_TRUE(runSql(path, "select * from play_list").empty());
}

TEST_F(DataAccessTest, WritesThatCountTogetherAreUndoneWithoutACommit) {
  openRows(3);
  DataAccess(DataAccess::Commit::together).objrsGetRecordSet1("delete from play_list", path, error);
  EXPECT_EQ(runSql(path, "select * from play_list").size(), 3u);
}

TEST_F(DataAccessTest, WritesThatCountTogetherStayAfterACommit) {
  openRows(3);
  DataAccess(DataAccess::Commit::together)
      .objrsGetRecordSet1("delete from play_list", path, error)
      ->connection()
      ->commit();
  EXPECT_TRUE(runSql(path, "select * from play_list").empty());
}

TEST_F(DataAccessTest, AClosedDatabaseIsOneFile) {
  openRows(3)->close();
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(DataAccessTest, ADatabaseHeldByAnotherProgramFailsSoonWithAReason) {
  OtherProgram other(path);
  other.run("begin exclusive");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(access.objrsGetRecordSet1("select * from sys", path, error), nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  EXPECT_NE(error.find("another program holds the file"), std::string::npos) << error;
}

TEST_F(DataAccessTest, ADatabaseReadByAnotherProgramIsNotWrittenAndFailsSoon) {
  OtherProgram other(path);
  other.run("begin; select * from sys");
  other.run("select * from play_list");
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(access.objrsGetRecordSet1("delete from play_list", path, error), nullptr);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
  EXPECT_NE(error, "");
}

TEST_F(DataAccessTest, AnAccessFileIsRefusedAndStaysAsItIs) {
  const auto access97 = folder.file("jet");
  const std::string content = std::string("\0\1\0\0Standard Jet DB\0", 20) + std::string(4000, 'x');
  writeFile(access97, content);
  EXPECT_EQ(access.objrsGetRecordSet1("select * from sys", access97, error), nullptr);
  EXPECT_NE(error.find("Microsoft Access"), std::string::npos) << error;
  EXPECT_EQ(contentOf(access97), content);
}

TEST_F(DataAccessTest, ADamagedFileGivesNothingAndAReason) {
  writeFile(path, std::string(5000, '\x5a'));
  EXPECT_EQ(access.objrsGetRecordSet1("select * from sys", path, error), nullptr);
  EXPECT_NE(error.find("not a database"), std::string::npos) << error;
}

TEST_F(DataAccessTest, DividePageMovesToTheFirstRowOfThePage) {
  const auto rows = openRows(10);
  access.DividePage(*rows, 4, 2);
  EXPECT_EQ(results(), "3 pages, page 2 of 4 rows");
  EXPECT_EQ(asText(rows->value("item_order")), "5");
}

TEST_F(DataAccessTest, TheLastPageHasWhatIsLeft) {
  const auto rows = openRows(10);
  access.DividePage(*rows, 4, 3);
  EXPECT_EQ(results(), "3 pages, page 3 of 2 rows");
}

TEST_F(DataAccessTest, AFullLastPageHasAllItsRows) {
  const auto rows = openRows(8);
  access.DividePage(*rows, 4, 2);
  EXPECT_EQ(results(), "2 pages, page 2 of 4 rows");
}

TEST_F(DataAccessTest, APageBeyondTheLastIsTheLast) {
  const auto rows = openRows(10);
  access.DividePage(*rows, 4, 99);
  EXPECT_EQ(results(), "3 pages, page 3 of 2 rows");
  EXPECT_EQ(rows->absolutePosition(), 9);
}

TEST_F(DataAccessTest, DividingAnEmptyRecordsetChangesNothing) {
  access.DividePage(*openRows(10), 4, 2);
  runSql(path, "delete from play_list");
  access.DividePage(*openRows(0), 5, 1);
  EXPECT_EQ(results(), "3 pages, page 2 of 4 rows");
}

TEST_F(DataAccessTest, DividingAtTheEndChangesNothing) {
  const auto rows = openRows(2);
  rows->moveLast();
  rows->moveNext();
  access.DividePage(*rows, 1, 1);
  EXPECT_EQ(results(), "0 pages, page 0 of 0 rows");
}

TEST_F(DataAccessTest, SizesAndPagesBelowOneFailAndChangeNothing) {
  const auto rows = openRows(10);
  access.DividePage(*rows, 4, 2);
  EXPECT_THROW(access.DividePage(*rows, 0, 1), DataError);
  EXPECT_THROW(access.DividePage(*rows, 3, 0), DataError);
  EXPECT_EQ(results(), "3 pages, page 2 of 4 rows");
}

}  // namespace
}  // namespace tessivo
