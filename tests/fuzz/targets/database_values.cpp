// A sound database whose fields hold anything. The first byte says whether the columns have their
// types (bit 0). Then rows: a byte for the table, and for each of its fields a byte for the kind (0
// Null, 1 a whole number, 2 a number, 3 a text, 4 bytes) and the value: eight bytes, or a length
// and so many bytes.
//
// The program starts with it, works on the list, saves when it is left, and starts again.
#include <array>
#include <bit>
#include <filesystem>

#include "app/StartUp.h"
#include "config/FileAsocaList.h"
#include "data/SqliteDatabase.h"
#include "fakes/FakeRegistry.h"
#include "fakes/FakeSharedMemory.h"
#include "fuzz/Panel.h"
#include "fuzz/SmallDatabase.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 40;

namespace {

struct Table {
  const char* name;
  std::vector<const char*> columns;
};

const std::array<Table, 4>& tables() {
  static const std::array<Table, 4> kTables{{
      {"sys",
       {"recycle_play", "volume_value", "play_ruler", "screen_saver", "scr_sav_proc_name",
        "screen_saver_delay_minute", "popu_main_face_for_err", "play_next_item_on_err",
        "save_play_list", "current_play_position", "current_play_item_len"}},
      {"play_list", {"item_order", "flag_for_play_list", "file_name", "file_path", "is_play_item"}},
      {"file_association",
       {"app_association", "description_info", "app_id", "old_app_id", "default_app_id_1",
        "default_app_id_2"}},
      {"file_association_config",
       {"main_app_file_name", "main_default_ico_file_name", "menu_handler_guid",
        "menu_handler_name"}},
  }};
  return kTables;
}

/// Empty; the columns as the program makes them, or without types, so that any value stays as it
/// is.
const std::string& emptyDatabase(bool typed) {
  static const std::string plain = [] {
    std::vector<std::string> statements;
    for (const Table& table : tables()) {
      std::string columns;
      for (const char* column : table.columns) {
        columns += (columns.empty() ? "" : ",") + std::string(column);
      }
      statements.push_back("create table " + std::string(table.name) + "(" + columns + ")");
    }
    return databaseOf(statements);
  }();
  static const std::string usual = [] {
    const TempFolder folder;
    FakeLog log;
    prepareDatabase(folder.file("made"), log);
    for (const Table& table : tables()) {
      DataAccess().objrsGetRecordSet("delete from " + std::string(table.name), folder.file("made"));
    }
    return bytesOf(folder.file("made"));
  }();
  return typed ? usual : plain;
}

Value valueOf(Input& input) {
  constexpr std::uint8_t kKinds = 5;
  switch (input.byte() % kKinds) {
    case 1:
      return input.integer<std::int64_t>();
    case 2:
      return std::bit_cast<double>(input.integer<std::int64_t>());
    case 3:
      return input.text(input.byte());
    case 4:
      return Blob{input.text(input.byte())};
    default:
      return {};
  }
}

void insertRow(SqliteDatabase& database, Input& input) {
  const Table& table = tables()[input.byte() % tables().size()];
  std::vector<Value> values;
  std::vector<FieldValue> fields;
  values.reserve(table.columns.size());
  for (const char* column : table.columns) {
    values.push_back(valueOf(input));
    fields.push_back({column, &values.back()});
  }
  database.insertRow(table.name, fields);
}

void fill(const std::string& path, Input& input) {
  const bool typed = (input.byte() & 1) != 0;
  writeBytes(path, emptyDatabase(typed));
  SqliteDatabase database(path, SqliteDatabase::Missing::fails);
  database.begin();
  constexpr int kMostRows = 40;
  for (int row = 0; row < kMostRows && !input.atEnd(); ++row) insertRow(database, input);
  database.commit();
}

/// The list as text, to be compared.
std::string textOf(const PlayList& list) {
  std::string text;
  for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
    const MoviePtr item = list.objGetAItem(i);
    text += item->strKey + '|' + item->strFileName + '|' + item->strFilePath + '|' +
            (item->boolIsPlayItem ? "*\n" : "\n");
  }
  return text;
}

std::string textOf(const SysConfig& config) {
  // Without a stored row it is empty; saved, no name is a blank.
  std::string text(trim(config.strScrSavProcName()));
  for (const std::int32_t number :
       {config.lngRecyclePlayType(), std::int32_t{config.intVolumeValue()}, config.lngPlayRuler(),
        std::int32_t{config.boolScreenSaver()}, config.lngSSDelayMinute(),
        std::int32_t{config.boolPopuMainFaceForErr()}, std::int32_t{config.boolPlayNextOnErr()},
        std::int32_t{config.boolSavePlayList()}}) {
    text += '|' + std::to_string(number);
  }
  return text;
}

/// One run of the program over the database.
class Run : public Panel {
 public:
  explicit Run(const std::string& path) {
    paths.database = path;
    paths.screenSaverFolder = "C:\\p\\SSP";
    files.existing.clear();
  }

  void start() {
    startUp({paths, "", displays, log, aimMonitor, playList, controler, screen, commandLines,
             requests, tray, main, [] {}, [] {}});
    time.advance(100);
    const SysConfig& config = controler.config();
    holds(config.lngRecyclePlayType() >= 1 && config.lngRecyclePlayType() <= 3, "loop mode");
    holds(config.lngPlayRuler() >= 0 && config.lngPlayRuler() <= 3, "rule");
    holds(screen.lngState() == playState::kStopped, "nothing plays by itself");
    checkScreenSaver(config.strScrSavProcName());
    const auto length = main.sldJinDu.max();
    holds(main.sldJinDu.value() >= 0 && main.sldJinDu.value() <= length, "a place in the item");
    checkRows();
  }
  /// Steps and deletes, whatever the keys are, until nothing is left.
  void clearByOne() {
    while (playList.lngListCount() > 0) {
      MoviePtr next;
      const std::int32_t before = playList.lngListCount();
      holds(controler.deleteAItemFromPL(playList.objGetAItem(1)->strKey, next), "deleted");
      holds(playList.lngListCount() == before - 1, "one item less");
    }
  }
  void play() {
    main.cmdPlay.click();
    time.advance(3000);
    main.cmdStop.click();
    time.advance(100);
    checkRows();
  }
  void leave() {
    controler.exitSys();
    for (const std::string& line : log.lines) {
      // At the beginning: a name from the database may say so, too.
      holds(!line.starts_with("error settings not saved") &&
                !line.starts_with("error playlist not saved"),
            "it can be saved");
    }
  }
  std::string settings() { return textOf(controler.config()); }
  std::string list() { return textOf(playList); }
  bool keepsList() { return controler.config().boolSavePlayList(); }

 private:
  void checkScreenSaver(const std::string& name) {
    controler.previewAScrSavProcByName(name);
    for (const auto& [program, arguments, style] : processes.started) {
      holds(program == paths.screenSaverFolder + "\\" + name + ".exe", "a program of the folder");
      holds(name.find_first_of("\\/:") == std::string::npos, "and of no other");
    }
    processes.started.clear();
  }
  void checkRows() {
    holds(main.lvPlayList.rowCount() == playList.lngListCount(), "a row for each item");
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      holds(main.lvPlayList.row(i - 1).key == playList.objGetAItem(i)->strKey, "in their order");
    }
  }

  ProgramPaths paths;
  FakeSharedMemory memory;
  CommandLine commandLines{controler, memory, log};
  RequestReceiver requests{controler, commandLines, log};
  AimMonitor aimMonitor{displays};
};

void loadTypes(const std::string& path) {
  FakeRegistry registry;
  FileAsocaList types(registry);
  types.strConfigFilePath = path;
  types.strMainAppFolderPath = "C:\\p";
  types.strDefaultIcoFolderPath = "C:\\p";
  types.getConfigInfoFromDB();
  types.getBaseAssocListFromDB();
  types.getInfoFromRegistry();
  types.InitializeRegistry();
  types.deleteAllFileAssocItemFromReg();
}

void run(Input input) {
  static const TempFolder folder("tessivo fuzz ");
  static const std::string path = folder.file("SysConfig");
  fill(path, input);
  loadTypes(path);
  std::string settings;
  std::string list;
  bool kept = false;
  {
    Run first(path);
    first.start();
    settings = first.settings();
    list = first.list();
    kept = first.keepsList();
    first.leave();
  }
  Run second(path);
  second.start();
  holds(second.settings() == settings, "saved settings read the same");
  holds(second.list() == (kept ? list : ""), "a saved list reads the same");
  second.play();
  second.clearByOne();
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
