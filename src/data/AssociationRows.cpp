#include "data/AssociationRows.h"

#include <array>
#include <string>

namespace tessivo {
namespace {

/// A type of media. The fall-backs are the identifiers that Windows' own player and Windows itself
/// have used for it.
struct Type {
  const char* extension;
  const char* description;
  const char* fallBack1;
  const char* fallBack2;
};

// What the dialog for adding files offers and the engines play, and the containers of today. Not
// its pictures, shortcuts, "*.dat" and the like: they belong to programs that are no players.
constexpr std::array kTypes{
    Type{".3gp", "3GP 视频", "WMP11.AssocFile.3GP", ""},
    Type{".aac", "AAC 音频", "WMP11.AssocFile.ADTS", ""},
    Type{".acp", "ACP 音频", "", ""},
    Type{".aif", "AIFF 音频", "WMP11.AssocFile.AIFF", "AIFFFile"},
    Type{".aifc", "AIFF 压缩音频", "WMP11.AssocFile.AIFF", "AIFFFile"},
    Type{".aiff", "AIFF 音频", "WMP11.AssocFile.AIFF", "AIFFFile"},
    Type{".asf", "Windows Media 流媒体", "WMP11.AssocFile.ASF", "ASFFile"},
    Type{".asx", "Windows Media 播放列表", "WMP11.AssocFile.ASX", "ASXFile"},
    Type{".au", "AU 音频", "WMP11.AssocFile.AU", "AUFile"},
    Type{".avi", "AVI 视频", "WMP11.AssocFile.AVI", "avifile"},
    Type{".flac", "FLAC 无损音频", "WMP11.AssocFile.FLAC", ""},
    Type{".flv", "Flash 视频", "", ""},
    Type{".m1v", "MPEG-1 视频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".m4a", "MPEG-4 音频", "WMP11.AssocFile.M4A", ""},
    Type{".m4p", "MPEG-4 受保护音频", "", ""},
    Type{".m4v", "MPEG-4 视频", "WMP11.AssocFile.MP4", ""},
    Type{".mid", "MIDI 音乐", "WMP11.AssocFile.MIDI", "midfile"},
    Type{".midi", "MIDI 音乐", "WMP11.AssocFile.MIDI", "midfile"},
    Type{".mkv", "Matroska 视频", "WMP11.AssocFile.MKV", ""},
    Type{".mov", "QuickTime 视频", "WMP11.AssocFile.MOV", "QuickTime.mov"},
    Type{".mp", "MPEG 音频", "", ""},
    Type{".mp1", "MPEG 第一层音频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mp2", "MPEG 第二层音频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mp3", "MP3 音频", "WMP11.AssocFile.MP3", "mp3file"},
    Type{".mp4", "MPEG-4 视频", "WMP11.AssocFile.MP4", ""},
    Type{".mpa", "MPEG 音频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mpe", "MPEG 视频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mpeg", "MPEG 视频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mpg", "MPEG 视频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".mpga", "MPEG 音频", "WMP11.AssocFile.MPEG", "mpegfile"},
    Type{".ogg", "Ogg 音频", "", ""},
    Type{".qt", "QuickTime 视频", "WMP11.AssocFile.MOV", "QuickTime.qt"},
    Type{".ra", "RealAudio 音频", "", ""},
    Type{".ram", "RealMedia 播放列表", "", ""},
    Type{".rax", "RealAudio 受保护音频", "", ""},
    Type{".rm", "RealMedia 视频", "", ""},
    Type{".rmi", "MIDI 音乐", "WMP11.AssocFile.MIDI", "midfile"},
    Type{".rmj", "RealMedia 音乐", "", ""},
    Type{".rmm", "RealMedia 播放列表", "", ""},
    Type{".rms", "RealMedia 受保护媒体", "", ""},
    Type{".rmvb", "RealMedia 可变码率视频", "", ""},
    Type{".rmx", "RealMedia 受保护媒体", "", ""},
    Type{".rp", "RealPix 演示", "", ""},
    Type{".rt", "RealText 字幕", "", ""},
    Type{".rtx", "RealText 字幕", "", ""},
    Type{".rv", "RealVideo 视频", "", ""},
    Type{".rvx", "RealVideo 受保护视频", "", ""},
    Type{".smi", "SMIL 演示", "", ""},
    Type{".smil", "SMIL 演示", "", ""},
    Type{".snd", "AU 音频", "WMP11.AssocFile.AU", "AUFile"},
    Type{".ts", "MPEG 传输流", "WMP11.AssocFile.TTS", ""},
    Type{".wav", "WAV 音频", "WMP11.AssocFile.WAV", "soundrec"},
    Type{".wax", "Windows Media 音频列表", "WMP11.AssocFile.WAX", "WAXFile"},
    Type{".webm", "WebM 视频", "", ""},
    Type{".wm", "Windows Media 媒体", "WMP11.AssocFile.ASF", "ASFFile"},
    Type{".wma", "Windows Media 音频", "WMP11.AssocFile.WMA", "WMAFile"},
    Type{".wmd", "Windows Media 下载包", "WMP11.AssocFile.WMD", "WMDFile"},
    Type{".wmv", "Windows Media 视频", "WMP11.AssocFile.WMV", "WMVFile"},
    Type{".wmx", "Windows Media 播放列表", "WMP11.AssocFile.ASX", "ASXFile"},
    Type{".wvx", "Windows Media 视频列表", "WMP11.AssocFile.WVX", "WVXFile"},
};

void insert(Database& database, const std::string& table,
            const std::vector<std::pair<std::string, Value>>& fields) {
  std::vector<FieldValue> values;
  values.reserve(fields.size());
  for (const auto& [column, value] : fields) values.push_back({column, &value});
  database.insertRow(table, values);
}

bool isEmpty(Database& database, const std::string& table) {
  return database.query("select * from " + table + " limit 1").rowCount() == 0;
}

}  // namespace

bool addShippedAssociations(Database& database) {
  if (!isEmpty(database, "file_association") || !isEmpty(database, "file_association_config")) {
    return false;
  }
  database.begin();
  // There is no menu handler of the shell's.
  insert(database, "file_association_config",
         {{"main_app_file_name", "Tessivo.exe"},
          {"main_default_ico_file_name", "TessivoMedia.ico"},
          {"menu_handler_guid", ""},
          {"menu_handler_name", ""}});
  for (const Type& type : kTypes) {
    insert(database, "file_association",
           {{"app_association", type.extension},
            {"description_info", type.description},
            {"app_id", std::string("Tessivo") + type.extension},
            {"old_app_id", ""},
            {"default_app_id_1", type.fallBack1},
            {"default_app_id_2", type.fallBack2}});
  }
  database.commit();
  return true;
}

}  // namespace tessivo
