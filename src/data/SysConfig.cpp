#include "data/SysConfig.h"

#include <exception>

#include "base/Text.h"
#include "data/DataAccess.h"

namespace tessivo {
namespace {

constexpr const char* kSettings = "select * from sys";
constexpr const char* kNoScreenSaver = " ";

std::int32_t recycleTypeOf(const Value& stored) {
  const auto number = asNumber(stored);
  if (number == 1.0) return 1;
  return number == 2.0 ? 2 : 3;
}

std::int32_t playRulerOf(const Value& stored, std::int32_t fallback) {
  const auto ruler = asInteger<std::int32_t>(stored, fallback);
  return ruler >= 0 && ruler <= 3 ? ruler : fallback;
}

/// A place on the progress slider; an empty field stands for 0.
std::int32_t placeOf(const Value& stored, std::int32_t fallback) {
  return asText(stored).empty() ? 0 : asInteger<std::int32_t>(stored, fallback);
}

std::string nameOrBlank(const std::string& name) {
  return trim(name).empty() ? kNoScreenSaver : name;
}

Value number(std::int64_t value) {
  return value;
}
Value flag(bool on) {
  return std::int64_t{on ? 1 : 0};
}

}  // namespace

bool SysConfig::boolGetData() {
  unread_ = true;
  seen_ = Values{};
  report_.clear();
  try {
    const auto row = DataAccess().objrsGetRecordSet1(kSettings, path_, report_);
    if (!row) return false;
    unread_ = false;
    if (row->bof() || row->eof()) return false;
    values_ = read(*row);
    return true;
  } catch (const std::exception& error) {  // no memory, too
    report_ = error.what();
    return false;
  }
}

bool SysConfig::boolSaveData() {
  report_.clear();
  try {
    const auto row = DataAccess().objrsGetRecordSet1(kSettings, path_, report_);
    if (!row) return false;
    const bool isFirst = row->bof() || row->eof();
    if (isFirst) row->addNew();
    write(*row, unread_ && !isFirst ? storedWhereUnchanged(*row) : values_);
    row->updateBatch();
    row->close();
    unread_ = unread_ && !isFirst;
    seen_ = values_;
    return true;
  } catch (const std::exception& error) {  // no memory, too
    report_ = error.what();
    return false;
  }
}

SysConfig::Values SysConfig::storedWhereUnchanged(const Recordset& row) const {
  const Values stored = read(row);
  Values merged = values_;
  const auto take = [&](auto property) {
    if (values_.*property == seen_.*property) merged.*property = stored.*property;
  };
  take(&Values::recyclePlayType);
  take(&Values::volume);
  take(&Values::playRuler);
  take(&Values::screenSaver);
  take(&Values::screenSaverName);
  take(&Values::delayMinutes);
  take(&Values::panelOnError);
  take(&Values::nextOnError);
  take(&Values::savePlayList);
  take(&Values::position);
  take(&Values::itemLength);
  return merged;
}

SysConfig::Values SysConfig::read(const Recordset& row) {
  const Values defaults;
  Values values;
  values.recyclePlayType = recycleTypeOf(row.value("recycle_play"));
  values.volume = asInteger(row.value("volume_value"), defaults.volume);
  values.playRuler = playRulerOf(row.value("play_ruler"), defaults.playRuler);
  values.screenSaver = isOne(row.value("screen_saver"));
  values.screenSaverName = nameOrBlank(asText(row.value("scr_sav_proc_name")));
  values.delayMinutes = asInteger(row.value("screen_saver_delay_minute"), defaults.delayMinutes);
  values.panelOnError = isOne(row.value("popu_main_face_for_err"));
  values.nextOnError = isOne(row.value("play_next_item_on_err"));
  values.savePlayList = isOne(row.value("save_play_list"));
  values.position = placeOf(row.value("current_play_position"), defaults.position);
  values.itemLength = placeOf(row.value("current_play_item_len"), defaults.itemLength);
  return values;
}

void SysConfig::write(Recordset& row, const Values& values) {
  const auto type = values.recyclePlayType;
  row.setValue("volume_value", number(values.volume));
  row.setValue("play_ruler", number(values.playRuler));
  row.setValue("recycle_play", number(type == 1 || type == 2 ? type : 3));
  row.setValue("screen_saver", flag(values.screenSaver));
  row.setValue("scr_sav_proc_name", nameOrBlank(values.screenSaverName));
  row.setValue("screen_saver_delay_minute", number(values.delayMinutes));
  row.setValue("popu_main_face_for_err", flag(values.panelOnError));
  row.setValue("play_next_item_on_err", flag(values.nextOnError));
  row.setValue("save_play_list", flag(values.savePlayList));
  row.setValue("current_play_position", number(values.position));
  row.setValue("current_play_item_len", number(values.itemLength));
}

}  // namespace tessivo
