#include "panel/AddFilesDialog.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tessivo {
namespace {

constexpr const char* kTitle = "选择要添加到播放列表的文件";
constexpr std::uint32_t kExplorerManyWithoutReadOnly = 0x80204;
constexpr std::int32_t kLongestAnswer = 32767;

struct FileKind {
  std::string_view name;
  std::string_view patterns;
};

// The blank in "*.mov; *.qt" and the repeated patterns belong there.
constexpr std::string_view kAiff = "*.aif";
constexpr std::string_view kAu = "*.au";
constexpr std::string_view kAvi = "*.avi";
constexpr std::string_view kMidi = "*.mid;*.rmi;*.midi";
constexpr std::array kKinds{
    FileKind{"AIFF文件", kAiff},
    FileKind{"AU文件", kAu},
    FileKind{"AVI文件", kAvi},
    FileKind{"MIDI文件", kMidi},
    FileKind{"MPEG文件", "*.mpg;*.mpeg;*.mpa;*.mp2;*.mp3;*.dat"},
    FileKind{"QuickTime文件", "*.mov; *.qt"},
    FileKind{"Real文件",
             "*.ra;*.rm;*.rv;*.rmvb;*.rmj;*.rms;*.ram;*.rmm;*.rax;*.rvx;*.rp;*.rtx;*.rt;*.rmx"},
    FileKind{"SMIL文件", "*.smi;*.smil"},
    FileKind{"Wave文件", "*.wav"},
    FileKind{"图像", "*.jpg;*.gif;*.png"},
    FileKind{"Windows Media文件(asf)", "*.asf;*.wm;*.wma;*.wmv;*.wmd"},
    FileKind{"Windows 视频", "*.avi;*.wmv;*.ppCast;*.xldap"},
    FileKind{"Windows 音频", "*.wav;*.snd;*.au;*.aif;*.aifc;*.aiff;*.wma;*.mp3"},
    FileKind{"Windows 媒体", "*.avi;*.wma;*.wmv;*.wm;*.asf;*.asx;*.wax;*.wvx;*.wmx"},
    FileKind{"电影",
             "*.asf;*.avi;*.rmvb;*.rm;*.ram;*.mpeg;*.wma;*.wmv;*.mpg;*.mov;*.qt;*.m1v;*.mp2;*.mpa;"
             "*.mpe;*.wm;*.wmd"},
    FileKind{"音频",
             "*.mp3;*.mp2;*.wav;*.wma;*.midi;*.rm;*.rmvb;*.mp;*.mp1;*.mid;*.ra;*.rax;*.rmi;*.mpga;"
             "*.rmx;*.rmj;*.rms;*.au;*.aiff;*.acp;*.m4a;*.m4p;*.url;*.lnk"},
};

std::string addFilesFilter() {
  std::string all = "所有媒体文件|";
  std::string kinds;
  for (const FileKind& kind : kKinds) {
    if (all.back() != '|') all += ';';
    all += kind.patterns;
    kinds += '|';
    kinds += kind.name;
    kinds += '(';
    kinds += kind.patterns;
    kinds += ")|";
    kinds += kind.patterns;
  }
  return all + kinds + "|所有文件(*.*)|*.*";
}

/// What follows the last backslash, without one the last slash; nothing when the path has neither.
std::string_view namePart(std::string_view path) {
  auto separator = path.rfind('\\');
  if (separator == std::string_view::npos) separator = path.rfind('/');
  return separator == std::string_view::npos ? "" : path.substr(separator + 1);
}

}  // namespace

OpenFilesRequest addFilesRequest(WindowHandle owner) {
  OpenFilesRequest request;
  request.title = kTitle;
  request.flags = kExplorerManyWithoutReadOnly;
  request.filter = addFilesFilter();
  request.filterIndex = 1;
  request.maxLength = kLongestAnswer;
  request.owner = owner;
  request.beginsInVideos = true;
  return request;
}

std::vector<std::string> chosenPaths(const std::string& answer) {
  const auto end = answer.find('\0');
  if (end == std::string::npos) {
    if (namePart(answer).empty()) return {};
    return {"", answer};
  }
  std::string folder = answer.substr(0, end);
  if (folder.empty() || folder.back() != '\\') folder += '\\';
  std::vector<std::string> paths{""};
  for (auto from = end + 1; from <= answer.size();) {
    const auto to = std::min(answer.find('\0', from), answer.size());
    paths.push_back(folder + answer.substr(from, to - from));
    from = to + 1;
  }
  return paths;
}

}  // namespace tessivo
