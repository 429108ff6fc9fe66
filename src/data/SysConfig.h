#pragma once

#include <cstdint>
#include <string>

namespace tessivo {

class Recordset;

/// The user's settings and the resume point of the last run, one row of the table `sys`. The
/// controller owns the one instance. Each property has a get and a let of its name; a let keeps
/// the value as given.
class SysConfig {
 public:
  const std::string& strDBFilePath() const { return path_; }
  void strDBFilePath(const std::string& path) { path_ = path; }

  /// Reads the stored settings. False, and every property as it was, when the database cannot be
  /// read or holds no settings yet. A stored value that makes no sense (a text where a number
  /// belongs, a number out of range) gives that property its default.
  bool boolGetData();

  /// Stores the settings, all or nothing. False when that failed. If the last load could not read
  /// the database, only what has been changed since goes over what is stored; the properties stay
  /// as they are: the program shows them.
  bool boolSaveData();

  /// Why the last load or save failed; empty after one that did not.
  const std::string& strReport() const { return report_; }

  /// 1 repeats the item, 2 repeats the list, 3 plays the list once.
  std::int32_t lngRecyclePlayType() const { return values_.recyclePlayType; }
  void lngRecyclePlayType(std::int32_t type) { values_.recyclePlayType = type; }

  std::int16_t intVolumeValue() const { return values_.volume; }
  void intVolumeValue(std::int16_t volume) { values_.volume = volume; }

  /// 0 prefers RealPlayer, 1 prefers Media Player, 2 uses RealPlayer only, 3 Media Player only.
  std::int32_t lngPlayRuler() const { return values_.playRuler; }
  void lngPlayRuler(std::int32_t ruler) { values_.playRuler = ruler; }

  bool boolScreenSaver() const { return values_.screenSaver; }
  void boolScreenSaver(bool on) { values_.screenSaver = on; }

  /// " " (one blank) when none is chosen, "" until settings have been read.
  const std::string& strScrSavProcName() const { return values_.screenSaverName; }
  void strScrSavProcName(const std::string& name) { values_.screenSaverName = name; }

  std::int32_t lngSSDelayMinute() const { return values_.delayMinutes; }
  void lngSSDelayMinute(std::int32_t minutes) { values_.delayMinutes = minutes; }

  bool boolPopuMainFaceForErr() const { return values_.panelOnError; }
  void boolPopuMainFaceForErr(bool on) { values_.panelOnError = on; }

  bool boolPlayNextOnErr() const { return values_.nextOnError; }
  void boolPlayNextOnErr(bool on) { values_.nextOnError = on; }

  bool boolSavePlayList() const { return values_.savePlayList; }
  void boolSavePlayList(bool on) { values_.savePlayList = on; }

  /// Position and length of the current item at the last exit, in the progress slider's unit.
  std::int32_t lngCurrentPlayPosition() const { return values_.position; }
  void lngCurrentPlayPosition(std::int32_t position) { values_.position = position; }
  std::int32_t lngCurrentPlayItemLen() const { return values_.itemLength; }
  void lngCurrentPlayItemLen(std::int32_t length) { values_.itemLength = length; }

 private:
  struct Values {
    std::int32_t recyclePlayType = 3;
    std::int16_t volume = 30;
    std::int32_t playRuler = 2;
    bool screenSaver = false;
    std::string screenSaverName;
    std::int32_t delayMinutes = 5;
    bool panelOnError = false;
    bool nextOnError = false;
    bool savePlayList = true;
    std::int32_t position = 0;
    std::int32_t itemLength = 100;
  };
  static Values read(const Recordset& row);
  static void write(Recordset& row, const Values& values);
  Values storedWhereUnchanged(const Recordset& row) const;

  std::string path_;
  std::string report_;
  Values values_;
  Values
      seen_;  ///< at the load that could not read, then at each save: what is to count as unchanged
  bool unread_ = false;  ///< the last load could not read the database
};

}  // namespace tessivo
