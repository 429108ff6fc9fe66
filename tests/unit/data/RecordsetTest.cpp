#include "data/Recordset.h"

#include "data/DataError.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

class RecordsetTest : public DatabaseTest {
 protected:
  Recordset open(const std::string& sql) {
    return Recordset(openDatabase(connectionStringFor(path)), sql);
  }
  Recordset openThree() {
    runSql(path,
           "insert into file_association(app_association, app_id) values"
           " ('.avi', 'a'), ('.mp3', 'b'), ('.wmv', null)");
    return open("select * from file_association order by app_association");
  }
  std::vector<std::string> stored() {
    return runSql(path, "select app_association, app_id, old_app_id from file_association");
  }
};

TEST_F(RecordsetTest, StandsOnTheFirstRowWhenOpened) {
  auto rows = openThree();
  EXPECT_FALSE(rows.bof());
  EXPECT_FALSE(rows.eof());
  EXPECT_EQ(rows.recordCount(), 3);
  EXPECT_EQ(rows.absolutePosition(), 1);
  EXPECT_EQ(asText(rows.value("app_association")), ".avi");
}

TEST_F(RecordsetTest, AnEmptyOneIsAtBothEnds) {
  auto rows = open("select * from sys");
  EXPECT_TRUE(rows.bof());
  EXPECT_TRUE(rows.eof());
  EXPECT_EQ(rows.recordCount(), 0);
  EXPECT_EQ(rows.pageCount(), 0);
  EXPECT_THROW(rows.moveFirst(), DataError);
  EXPECT_THROW(rows.moveLast(), DataError);
  EXPECT_THROW(rows.moveNext(), DataError);
  EXPECT_THROW(rows.movePrevious(), DataError);
  EXPECT_THROW(rows.value("volume_value"), DataError);
}

TEST_F(RecordsetTest, MovesOverTheLastRowToItsEndAndNoFurther) {
  auto rows = openThree();
  rows.moveLast();
  EXPECT_EQ(asText(rows.value("app_association")), ".wmv");
  rows.moveNext();
  EXPECT_TRUE(rows.eof());
  EXPECT_EQ(rows.absolutePosition(), Recordset::kAtEof);
  EXPECT_THROW(rows.value("app_id"), DataError);
  EXPECT_THROW(rows.moveNext(), DataError);
}

TEST_F(RecordsetTest, MovesOverTheFirstRowToItsBeginningAndNoFurther) {
  auto rows = openThree();
  rows.movePrevious();
  EXPECT_TRUE(rows.bof());
  EXPECT_EQ(rows.absolutePosition(), Recordset::kAtBof);
  EXPECT_THROW(rows.movePrevious(), DataError);
  rows.moveNext();
  EXPECT_EQ(rows.absolutePosition(), 1);
}

TEST_F(RecordsetTest, MovesToAPosition) {
  auto rows = openThree();
  rows.setAbsolutePosition(2);
  EXPECT_EQ(asText(rows.value("app_association")), ".mp3");
  EXPECT_THROW(rows.setAbsolutePosition(0), DataError);
  EXPECT_THROW(rows.setAbsolutePosition(4), DataError);
  EXPECT_EQ(rows.absolutePosition(), 2);
}

TEST_F(RecordsetTest, DividesIntoPages) {
  auto rows = openThree();
  EXPECT_EQ(rows.pageSize(), 10);
  EXPECT_EQ(rows.pageCount(), 1);
  rows.setPageSize(2);
  EXPECT_EQ(rows.pageCount(), 2);
  rows.setAbsolutePage(2);
  EXPECT_EQ(rows.absolutePosition(), 3);
  EXPECT_EQ(rows.absolutePage(), 2);
  EXPECT_THROW(rows.setAbsolutePage(3), DataError);
  EXPECT_THROW(rows.setPageSize(0), DataError);
  rows.setPageSize(std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(rows.pageCount(), 1);
}

TEST_F(RecordsetTest, FieldNamesHaveNoCase) {
  auto rows = openThree();
  EXPECT_EQ(asText(rows.value("APP_Id")), "a");
  EXPECT_THROW(rows.value("no_such_field"), DataError);
}

TEST_F(RecordsetTest, ReadsNull) {
  auto rows = openThree();
  rows.moveLast();
  EXPECT_TRUE(isNull(rows.value("app_id")));
}

TEST_F(RecordsetTest, AChangeIsWrittenByUpdateAndNotBefore) {
  auto rows = openThree();
  rows.moveNext();
  rows.setValue("old_app_id", std::string("it's"));
  EXPECT_EQ(asText(rows.value("old_app_id")), "it's");
  EXPECT_EQ(stored()[1], ".mp3|b|NULL");
  rows.update();
  EXPECT_EQ(stored(), (std::vector<std::string>{".avi|a|NULL", ".mp3|b|it's", ".wmv|NULL|NULL"}));
  EXPECT_EQ(asText(rows.value("old_app_id")), "it's");
}

TEST_F(RecordsetTest, NullCanBeWritten) {
  auto rows = openThree();
  rows.setValue("app_id", Value());
  rows.updateBatch();
  EXPECT_EQ(stored()[0], ".avi|NULL|NULL");
}

TEST_F(RecordsetTest, AChangedRowCanBeChangedAgain) {
  auto rows = openThree();
  rows.setValue("app_id", std::string("x"));
  rows.update();
  rows.setValue("app_id", std::string("y"));
  rows.update();
  EXPECT_EQ(stored()[0], ".avi|y|NULL");
}

TEST_F(RecordsetTest, MovingWritesThePendingChange) {
  auto rows = openThree();
  rows.setValue("app_id", std::string("x"));
  rows.moveNext();
  EXPECT_EQ(stored()[0], ".avi|x|NULL");
  EXPECT_EQ(asText(rows.value("app_id")), "b");
}

TEST_F(RecordsetTest, ANewRowHasNullWhereNothingWasSet) {
  auto rows = openThree();
  rows.addNew();
  EXPECT_TRUE(isNull(rows.value("app_id")));
  rows.setValue("app_association", std::string(".ogg"));
  rows.update();
  EXPECT_EQ(stored()[3], ".ogg|NULL|NULL");
  EXPECT_EQ(rows.recordCount(), 4);
  EXPECT_EQ(rows.absolutePosition(), 4);
  EXPECT_EQ(asText(rows.value("app_association")), ".ogg");
}

TEST_F(RecordsetTest, AddingAgainWritesTheNewRowBefore) {
  auto rows = openThree();
  rows.addNew();
  rows.setValue("app_association", std::string(".one"));
  rows.addNew();
  rows.setValue("app_association", std::string(".two"));
  rows.updateBatch();
  EXPECT_EQ(stored().size(), 5u);
}

TEST_F(RecordsetTest, ClosingDropsWhatWasNotUpdated) {
  auto rows = openThree();
  rows.setValue("app_id", std::string("x"));
  rows.close();
  rows.close();
  EXPECT_EQ(stored()[0], ".avi|a|NULL");
  EXPECT_EQ(rows.connection(), nullptr);
  EXPECT_THROW(rows.value("app_id"), DataError);
  EXPECT_THROW(rows.addNew(), DataError);
}

TEST_F(RecordsetTest, ARowThatSomebodyElseChangedIsNotOverwritten) {
  auto rows = openThree();
  runSql(path, "update file_association set app_id='theirs' where app_association='.avi'");
  rows.setValue("app_id", std::string("ours"));
  EXPECT_THROW(rows.update(), DataError);
  EXPECT_EQ(stored()[0], ".avi|theirs|NULL");
  EXPECT_TRUE(rows.editing());
}

TEST_F(RecordsetTest, OfTwoEqualRowsOnlyOneIsChanged) {
  runSql(path, "insert into file_association(app_association) values ('.x'), ('.x')");
  auto rows = open("select * from file_association");
  rows.setValue("app_id", std::string("y"));
  rows.update();
  EXPECT_EQ(stored(), (std::vector<std::string>{".x|y|NULL", ".x|NULL|NULL"}));
}

TEST_F(RecordsetTest, ARowWithBytesAndFractionsInItCanBeChanged) {
  runSql(path,
         "insert into file_association(app_association, app_id, description_info)"
         " values (x'00ff', 1.5, cast(x'41000042' as text))");
  auto rows = open("select * from file_association");
  EXPECT_EQ(asText(rows.value("description_info")), std::string("A\0\0B", 4));
  rows.setValue("app_id", std::string("y"));
  rows.update();
  EXPECT_EQ(runSql(path, "select app_id from file_association")[0], "y");
}

TEST_F(RecordsetTest, ATextWithZeroBytesIsStoredWhole) {
  auto rows = open("select * from file_association");
  rows.addNew();
  rows.setValue("app_id", std::string("A\0B", 3));
  rows.update();
  EXPECT_EQ(runSql(path, "select hex(app_id) from file_association")[0], "410042");
}

TEST_F(RecordsetTest, ATableOpensByNameOnTheSameConnection) {
  const auto first = open("select * from sys");
  Recordset rows(first.connection(), "play_list", CommandType::table);
  rows.addNew();
  rows.setValue("item_order", std::int64_t{1});
  rows.update();
  EXPECT_EQ(runSql(path, "select item_order from play_list")[0], "1");
  EXPECT_THROW(Recordset(first.connection(), "no_table", CommandType::table), DataError);
}

TEST_F(RecordsetTest, AStatementWithoutRowsGivesARecordsetWithoutFields) {
  openThree();
  const auto rows = open("delete from file_association");
  EXPECT_TRUE(rows.bof());
  EXPECT_TRUE(rows.eof());
  EXPECT_NE(rows.connection(), nullptr);
  EXPECT_TRUE(stored().empty());
}

TEST_F(RecordsetTest, RowsOfSeveralTablesCannotBeWrittenBack) {
  openThree();
  auto rows = open("select * from file_association, (select 1 as one)");
  EXPECT_THROW(rows.setValue("app_id", std::string("x")), DataError);
  EXPECT_THROW(rows.addNew(), DataError);
}

TEST_F(RecordsetTest, OneOfSeveralStatementsIsNotRunAlone) {
  openThree();
  EXPECT_THROW(open("delete from file_association; delete from sys"), DataError);
  EXPECT_THROW(open(""), DataError);
  EXPECT_EQ(stored().size(), 3u);
}

TEST_F(RecordsetTest, WhatIsChangedLaterDoesNotShow) {
  auto rows = openThree();
  runSql(path, "delete from file_association");
  EXPECT_EQ(rows.recordCount(), 3);
}

}  // namespace
}  // namespace tessivo
