// What lies where the database should be. The first byte says how it is told:
//
//   0  the rest is the file
//   1  a good database with changes, three bytes each: where (low byte first), and the byte there
//   2  the same, cut at the length that the two bytes before the changes say
//   3  a good database, and the rest is the journal beside it
//
// It is opened as at the start of the program; settings, playlist and file types are loaded and
// saved.
#include <filesystem>

#include "config/FileAsocaList.h"
#include "data/MoveIn.h"
#include "data/PlayList.h"
#include "data/SysConfig.h"
#include "fakes/FakeRegistry.h"
#include "fakes/VirtualTime.h"
#include "fuzz/SmallDatabase.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 60;

namespace {

/// The program's tables with a row in each, as small as can be.
const std::string& goodDatabase() {
  static const std::string bytes = databaseOf({
      "create table play_list(item_order INTEGER, flag_for_play_list TEXT, file_name TEXT,"
      " file_path TEXT, is_play_item SMALLINT)",
      "create table sys(recycle_play SMALLINT, volume_value SMALLINT, play_ruler INTEGER,"
      " screen_saver SMALLINT, scr_sav_proc_name TEXT, screen_saver_delay_minute INTEGER,"
      " popu_main_face_for_err SMALLINT, play_next_item_on_err SMALLINT, save_play_list SMALLINT,"
      " current_play_position INTEGER, current_play_item_len INTEGER)",
      "create table file_association(app_association TEXT, description_info TEXT, app_id TEXT,"
      " old_app_id TEXT, default_app_id_1 TEXT, default_app_id_2 TEXT)",
      "create table file_association_config(main_app_file_name TEXT, main_default_ico_file_name"
      " TEXT, menu_handler_guid TEXT, menu_handler_name TEXT)",
      "insert into play_list values(1,'F2026112200000001','a.avi','C:\\v\\a.avi',0),"
      "(2,'F2026112200000002','乙.avi','C:\\v\\乙.avi',1)",
      "insert into sys values(1,45,3,1,'时钟',7,1,0,1,65,200)",
      "insert into file_association values('.mp3','MP3','Tessivo.mp3','Other.mp3','First','')",
      "insert into file_association_config values('Tessivo.exe','TessivoMedia.ico','{1-2}','T')",
  });
  return bytes;
}

std::string changedDatabase(Input& input, std::size_t end) {
  std::string bytes = goodDatabase().substr(0, end);
  while (!input.atEnd()) {
    const auto at = input.integer<std::uint16_t>();
    const char byte = static_cast<char>(input.byte());
    if (at < bytes.size()) bytes[at] = byte;
  }
  return bytes;
}

/// What is in the folder before the program starts.
struct Found {
  std::string file;
  std::string journal;
};

Found foundIn(Input& input) {
  constexpr std::uint8_t kWays = 4;
  switch (input.byte() % kWays) {
    case 0:
      return {input.rest(), ""};
    case 1:
      return {changedDatabase(input, std::string::npos), ""};
    case 2: {
      const auto end = input.integer<std::uint16_t>();
      return {changedDatabase(input, end), ""};
    }
    default:
      return {goodDatabase(), input.rest()};
  }
}

void checkSettings(const SysConfig& config) {
  const auto type = config.lngRecyclePlayType();
  holds(type >= 1 && type <= 3, "a loop mode that there is");
  holds(config.lngPlayRuler() >= 0 && config.lngPlayRuler() <= 3, "a rule that there is");
}

/// Settings, playlist and file types of the program's life with that file.
class Life {
 public:
  explicit Life(const std::string& path) : keys_(time_), list(keys_) {
    config.strDBFilePath(path);
    list.strPLDBFilePath(path);
    loadedConfig = config.boolGetData();
    loadedList = list.boolGetPlayListFromPLDB();
    holds(loadedConfig || config.lngPlayRuler() == 2, "settings that cannot be read are usual");
    holds(loadedList == list.strReport().empty(), "a list that cannot be read says why");
    holds(loadedList || list.lngListCount() == 0, "and is empty");
    checkSettings(config);
  }

 private:
  VirtualTime time_;
  MovieKeys keys_;

 public:
  SysConfig config;
  PlayList list;
  bool loadedConfig = false;
  bool loadedList = false;
};

void loadTypes(const std::string& path) {
  FakeRegistry registry;
  FileAsocaList types(registry);
  types.strConfigFilePath = path;
  types.getConfigInfoFromDB();
  types.getBaseAssocListFromDB();
}

void saveAndLoadAgain(const std::string& path) {
  Life life(path);
  life.config.intVolumeValue(33);
  const bool savedConfig = life.config.boolSaveData();
  holds(savedConfig == life.config.strReport().empty(), "what is not saved says why");
  const bool savedList = life.list.boolSavePlayListToPLDB();
  holds(savedList || !life.list.strReport().empty(), "a list that is not saved says why");
  Life again(path);
  if (savedConfig) holds(again.config.intVolumeValue() == 33, "what is saved is there");
  if (savedList && life.loadedList) {
    holds(again.list.lngListCount() == life.list.lngListCount(), "the list is there again");
  }
}

bool isOfAccess(const std::string& file) {
  const std::string_view bytes(file);
  const auto format = bytes.size() < 19 ? "" : bytes.substr(4, 15);
  return format == "Standard Jet DB" || format == "Standard ACE DB";
}

/// What is damaged or of somebody else is still there, byte for byte.
void checkKept(const std::string& path, const Found& found, const WorkingDatabase& database) {
  if (isOfAccess(found.file)) {
    holds(bytesOf(path) == found.file, "an Access file is only read");
    holds(database.path != path || database.state == DatabaseState::accessHeld, "and not used");
  }
  if (database.state == DatabaseState::replaced && found.journal.empty()) {
    // One that is marked for a write-ahead log has its header changed when it is opened.
    constexpr std::size_t kHeader = 100;
    constexpr std::size_t kLogMark = 18;
    const bool marked = found.file.substr(0, kHeader).find('\2', kLogMark) != std::string::npos;
    const std::size_t from = marked ? kHeader : 0;
    const std::string kept = bytesOf(path + ".damaged-1");
    holds(kept.size() == found.file.size(), "a damaged file is kept whole");
    const bool same = kept.size() <= from || kept.substr(from) == found.file.substr(from);
    holds(same, "a damaged file is kept as it was");
  }
}

void run(Input input) {
  static const TempFolder top("tessivo fuzz ");
  static const std::string folder = top.file("f");
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  const std::string path = folder + "/SysConfig";
  const Found found = foundIn(input);
  if (!found.file.empty()) writeBytes(path, found.file);
  if (!found.journal.empty()) writeBytes(path + "-journal", found.journal);
  FakeLog log;
  const WorkingDatabase database = chooseDatabase(path, log);
  holds(!log.lines.empty() || database.state == DatabaseState::ready, "the log says what was done");
  checkKept(path, found, database);
  loadTypes(database.path);
  saveAndLoadAgain(database.path);
  checkKept(path, found, database);
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
