#include "data/SysConfig.h"

#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

std::string describe(const SysConfig& config) {
  return std::to_string(config.lngRecyclePlayType()) + " " +
         std::to_string(config.intVolumeValue()) + " " + std::to_string(config.lngPlayRuler()) +
         " " + (config.boolScreenSaver() ? "T" : "F") + " [" + config.strScrSavProcName() + "] " +
         std::to_string(config.lngSSDelayMinute()) + " " +
         (config.boolPopuMainFaceForErr() ? "T" : "F") + (config.boolPlayNextOnErr() ? "T" : "F") +
         (config.boolSavePlayList() ? "T" : "F") + " " +
         std::to_string(config.lngCurrentPlayPosition()) + "/" +
         std::to_string(config.lngCurrentPlayItemLen());
}

constexpr const char* kDefaults = "3 30 2 F [] 5 FFT 0/100";

class SysConfigTest : public DatabaseTest {
 protected:
  SysConfigTest() { config.strDBFilePath(path); }

  /// One row that is fine, but for one column. No value is the default.
  void store(const std::string& column, const std::string& sqlValue) {
    runSql(path,
           "delete from sys; insert into sys (recycle_play, volume_value, play_ruler, screen_saver,"
           " scr_sav_proc_name, screen_saver_delay_minute, popu_main_face_for_err,"
           " play_next_item_on_err, save_play_list, current_play_position, current_play_item_len)"
           " values (1, 40, 3, 1, 'stars', 7, 1, 1, 0, 11, 99)");
    runSql(path, "update sys set " + column + "=" + sqlValue);
  }
  std::string loadedWith(const std::string& column, const std::string& sqlValue) {
    store(column, sqlValue);
    EXPECT_TRUE(config.boolGetData());
    return describe(config);
  }
  std::string stored() { return runSql(path, "select * from sys")[0]; }

  SysConfig config;
};

TEST_F(SysConfigTest, AFreshOneHoldsTheDefaults) {
  EXPECT_EQ(describe(config), kDefaults);
}

TEST_F(SysConfigTest, AnEmptyTableLeavesTheDefaults) {
  EXPECT_FALSE(config.boolGetData());
  EXPECT_EQ(describe(config), kDefaults);
}

TEST_F(SysConfigTest, AnEmptyTableLeavesWhatWasSetBefore) {
  config.intVolumeValue(77);
  config.boolGetData();
  EXPECT_EQ(config.intVolumeValue(), 77);
}

TEST_F(SysConfigTest, SettingsThatCouldNotBeReadStayExceptWhatWasChangedSince) {
  store("volume_value", "77");
  const std::string before = stored();
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(config.boolGetData());
    EXPECT_NE(config.strReport().find("another program holds the file"), std::string::npos);
  }
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(stored(), before);

  SysConfig changed;
  changed.strDBFilePath(path);
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(changed.boolGetData());
  }
  changed.intVolumeValue(12);
  EXPECT_TRUE(changed.boolSaveData());
  EXPECT_EQ(stored(), "1|12|3|1|stars|7|1|1|0|11|99");
}

TEST_F(SysConfigTest, WhatCouldNotBeReadIsNotTakenOnBySavingWhatWasChanged) {
  store("volume_value", "77");
  {
    OtherProgram other(path);
    other.run("begin exclusive");
    EXPECT_FALSE(config.boolGetData());
  }
  config.boolPlayNextOnErr(true);
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(describe(config), "3 30 2 F [] 5 FTT 0/100");  // as the panel shows it

  config.intVolumeValue(12);
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(stored(), "1|12|3|1|stars|7|1|1|0|11|99");
  config.intVolumeValue(30);  // back to the default, but changed since the save before
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(stored(), "1|30|3|1|stars|7|1|1|0|11|99");
}

TEST_F(SysConfigTest, SettingsThatWereReadAreWrittenAsTheyAre) {
  store("volume_value", "77");
  EXPECT_TRUE(config.boolGetData());
  EXPECT_EQ(config.strReport(), "");
  config.intVolumeValue(30);
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(stored(), "1|30|3|1|stars|7|1|1|0|11|99");
}

TEST_F(SysConfigTest, TheFirstSaveAppendsTheRow) {
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(runSql(path, "select * from sys").size(), 1u);
  EXPECT_EQ(stored(), "3|30|2|0| |5|0|0|1|0|100");
}

TEST_F(SysConfigTest, SavingTwiceMakesNoSecondRow) {
  config.boolSaveData();
  config.intVolumeValue(31);
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(runSql(path, "select volume_value from sys"), std::vector<std::string>{"31"});
}

TEST_F(SysConfigTest, SavingTheSameTwiceSucceeds) {
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(runSql(path, "select * from sys").size(), 1u);
}

TEST_F(SysConfigTest, EveryPropertyComesBack) {
  config.lngRecyclePlayType(2);
  config.intVolumeValue(-32768);
  config.lngPlayRuler(0);
  config.boolScreenSaver(true);
  config.strScrSavProcName("星空 'stars'");
  config.lngSSDelayMinute(2147483647);
  config.boolPopuMainFaceForErr(true);
  config.boolPlayNextOnErr(true);
  config.boolSavePlayList(false);
  config.lngCurrentPlayPosition(-5);
  config.lngCurrentPlayItemLen(3600);
  EXPECT_TRUE(config.boolSaveData());
  SysConfig other;
  other.strDBFilePath(path);
  EXPECT_TRUE(other.boolGetData());
  EXPECT_EQ(describe(other), "2 -32768 0 T [星空 'stars'] 2147483647 TTF -5/3600");
}

TEST_F(SysConfigTest, PropertiesAreKeptAsGiven) {
  config.lngRecyclePlayType(9);
  config.lngPlayRuler(-4);
  EXPECT_EQ(config.lngRecyclePlayType(), 9);
  EXPECT_EQ(config.lngPlayRuler(), -4);
}

TEST_F(SysConfigTest, AnUnknownRecycleTypeIsSavedAsSequential) {
  config.lngRecyclePlayType(9);
  config.boolSaveData();
  EXPECT_EQ(runSql(path, "select recycle_play from sys")[0], "3");
}

TEST_F(SysConfigTest, AnUnknownRecycleTypeLoadsAsSequential) {
  for (const char* unknown : {"0", "4", "-1", "null", "''", "'x'", "1.5"}) {
    EXPECT_EQ(loadedWith("recycle_play", unknown), "3 40 3 T [stars] 7 TTF 11/99") << unknown;
  }
  EXPECT_EQ(loadedWith("recycle_play", "2"), "2 40 3 T [stars] 7 TTF 11/99");
}

TEST_F(SysConfigTest, AnUnknownPlayRuleLoadsAsRealPlayerOnly) {
  for (const char* unknown : {"7", "4", "-1", "null", "'x'", "3000000000"}) {
    EXPECT_EQ(loadedWith("play_ruler", unknown), "1 40 2 T [stars] 7 TTF 11/99") << unknown;
  }
  EXPECT_EQ(loadedWith("play_ruler", "0"), "1 40 0 T [stars] 7 TTF 11/99");
}

TEST_F(SysConfigTest, AVolumeThatIsNoneLoadsAsTheDefault) {
  for (const char* wrong : {"null", "'loud'", "32768", "-32769", "1e300", "x'31'", "''"}) {
    EXPECT_EQ(loadedWith("volume_value", wrong), "1 30 3 T [stars] 7 TTF 11/99") << wrong;
  }
  EXPECT_EQ(loadedWith("volume_value", "12.5"), "1 12 3 T [stars] 7 TTF 11/99");
}

TEST_F(SysConfigTest, ADelayThatIsNoneLoadsAsTheDefault) {
  EXPECT_EQ(loadedWith("screen_saver_delay_minute", "'soon'"), "1 40 3 T [stars] 5 TTF 11/99");
  EXPECT_EQ(loadedWith("screen_saver_delay_minute", "2147483648"), "1 40 3 T [stars] 5 TTF 11/99");
  EXPECT_EQ(loadedWith("screen_saver_delay_minute", "null"), "1 40 3 T [stars] 5 TTF 11/99");
}

TEST_F(SysConfigTest, OnlyOneIsTrue) {
  for (const char* other : {"0", "-1", "2", "null", "'true'"}) {
    EXPECT_EQ(loadedWith("screen_saver", other), "1 40 3 F [stars] 7 TTF 11/99") << other;
    EXPECT_EQ(loadedWith("popu_main_face_for_err", other), "1 40 3 T [stars] 7 FTF 11/99");
    EXPECT_EQ(loadedWith("play_next_item_on_err", other), "1 40 3 T [stars] 7 TFF 11/99");
    EXPECT_EQ(loadedWith("save_play_list", other), "1 40 3 T [stars] 7 TTF 11/99");
  }
  EXPECT_EQ(loadedWith("save_play_list", "1"), "1 40 3 T [stars] 7 TTT 11/99");
}

TEST_F(SysConfigTest, AnEmptyOrBlankProgramNameLoadsAsOneBlank) {
  for (const char* blank : {"''", "'   '", "null", "' '"}) {
    EXPECT_EQ(loadedWith("scr_sav_proc_name", blank), "1 40 3 T [ ] 7 TTF 11/99") << blank;
  }
}

TEST_F(SysConfigTest, AnEmptyOrBlankProgramNameIsSavedAsOneBlank) {
  for (const char* blank : {"''", "'   '"}) {
    loadedWith("scr_sav_proc_name", blank);
    EXPECT_TRUE(config.boolSaveData());
    EXPECT_EQ(stored(), "1|40|3|1| |7|1|1|0|11|99");
  }
}

TEST_F(SysConfigTest, AProgramNameIsNotTrimmed) {
  EXPECT_EQ(loadedWith("scr_sav_proc_name", "' stars '"), "1 40 3 T [ stars ] 7 TTF 11/99");
}

TEST_F(SysConfigTest, AnEmptyResumePointIsZero) {
  EXPECT_EQ(loadedWith("current_play_position", "null"), "1 40 3 T [stars] 7 TTF 0/99");
  EXPECT_EQ(loadedWith("current_play_item_len", "''"), "1 40 3 T [stars] 7 TTF 11/0");
}

TEST_F(SysConfigTest, AResumePointThatIsNoNumberLoadsAsTheDefault) {
  EXPECT_EQ(loadedWith("current_play_position", "'x'"), "1 40 3 T [stars] 7 TTF 0/99");
  EXPECT_EQ(loadedWith("current_play_item_len", "9999999999"), "1 40 3 T [stars] 7 TTF 11/100");
}

TEST_F(SysConfigTest, AMalformedRowIsMendedBySaving) {
  loadedWith("volume_value", "x'00ff'");
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(stored(), "1|30|3|1|stars|7|1|1|0|11|99");
}

TEST_F(SysConfigTest, OfSeveralRowsTheFirstCounts) {
  store("volume_value", "12");
  runSql(path, "insert into sys(volume_value) values (55)");
  EXPECT_TRUE(config.boolGetData());
  EXPECT_EQ(config.intVolumeValue(), 12);
  config.intVolumeValue(13);
  config.boolSaveData();
  EXPECT_EQ(runSql(path, "select volume_value from sys"), (std::vector<std::string>{"13", "55"}));
}

TEST_F(SysConfigTest, WithoutADatabaseEverythingStaysAndNothingIsMade) {
  config.strDBFilePath(folder.file("elsewhere"));
  EXPECT_FALSE(config.boolGetData());
  EXPECT_FALSE(config.boolSaveData());
  EXPECT_EQ(describe(config), kDefaults);
  EXPECT_EQ(folder.fileCount(), 1u);
}

TEST_F(SysConfigTest, AMissingColumnChangesNothing) {
  store("volume_value", "12");
  runSql(path, "alter table sys drop column current_play_item_len");
  EXPECT_FALSE(config.boolGetData());
  EXPECT_EQ(describe(config), kDefaults);
  EXPECT_FALSE(config.boolSaveData());
  EXPECT_EQ(stored(), "1|12|3|1|stars|7|1|1|0|11");
}

TEST_F(SysConfigTest, AHeldDatabaseIsNotSaved) {
  config.boolSaveData();
  OtherProgram other(path);
  other.run("begin; select * from sys; update sys set volume_value=1");
  config.intVolumeValue(99);
  EXPECT_FALSE(config.boolSaveData());
  other.run("rollback");
  EXPECT_TRUE(config.boolSaveData());
  EXPECT_EQ(other.run("select volume_value from sys")[0], "99");
}

}  // namespace
}  // namespace tessivo
