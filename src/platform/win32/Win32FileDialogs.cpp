#include "platform/win32/Win32FileDialogs.h"

#include <windows.h>
// After windows.h, which they need:
#include <cderr.h>
#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/win32/ComPtr.h"
#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

/// Characters behind the buffer's stated end. Wine's dialog does not look at the limit when several
/// files are chosen and writes on; so the names of thousands of files find room, and the answer is
/// measured afterwards.
constexpr std::size_t kSpareLength = 1'000'000;

/// The dialog makes the folder that was looked into the process's current one.
class KeptCurrentFolder {
 public:
  KeptCurrentFolder() : folder_(GetCurrentDirectoryW(0, nullptr), L'\0') {
    folder_.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder_.size()), folder_.data()));
  }
  ~KeptCurrentFolder() {
    if (!folder_.empty()) SetCurrentDirectoryW(folder_.c_str());
  }
  KeptCurrentFolder(const KeptCurrentFolder&) = delete;
  KeptCurrentFolder& operator=(const KeptCurrentFolder&) = delete;

 private:
  std::wstring folder_;
};

/// The system's form of a filter: texts that each end with a NUL, and a NUL more.
std::wstring systemFilter(const std::string& filter) {
  std::wstring texts = toWide(filter);
  std::replace(texts.begin(), texts.end(), L'|', L'\0');
  texts += L'\0';  // and the string's own behind it
  return texts;
}

/// What lies in the buffer before two NULs: of a single path, before the one at its end.
std::wstring chosenText(const std::vector<wchar_t>& buffer) {
  static constexpr wchar_t kTwoNuls[] = {L'\0', L'\0'};
  return {buffer.begin(),
          std::search(buffer.begin(), buffer.end(), std::begin(kTwoNuls), std::end(kTwoNuls))};
}

/// Empty where there is none.
std::wstring videosFolder() {
  PWSTR path = nullptr;
  std::wstring folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Videos, KF_FLAG_DEFAULT, nullptr, &path))) {
    folder = path;
  }
  CoTaskMemFree(path);
  return folder;
}

/// The folder that the dialog begins in, when it is there.
void beginIn(IFileDialog& dialog, const std::string& folder) {
  ComPtr<IShellItem> item;
  const std::wstring path = toWide(folder);
  if (!path.empty() && SUCCEEDED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_IShellItem,
                                                             item.putVoid()))) {
    dialog.SetFolder(item.get());
  }
}

std::optional<std::string> chosenFolder(IFileDialog& dialog) {
  ComPtr<IShellItem> item;
  PWSTR path = nullptr;
  if (FAILED(dialog.GetResult(item.put())) ||
      FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &path))) {
    return std::nullopt;
  }
  std::string folder = fromWide(path);
  CoTaskMemFree(path);
  return folder;
}

}  // namespace

OpenFilesAnswer Win32FileDialogs::openFiles(const OpenFilesRequest& request) {
  OpenFilesAnswer answer{FileDialogOutcome::failed, {}};
  guarded(log_, [&] { answer = ask(request); });
  return answer;
}

OpenFilesAnswer Win32FileDialogs::ask(const OpenFilesRequest& request) {
  const KeptCurrentFolder kept;
  const std::wstring title = toWide(request.title);
  const std::wstring filter = systemFilter(request.filter);
  const auto length = static_cast<std::size_t>(std::max<std::int32_t>(request.maxLength, 1));
  std::vector<wchar_t> buffer(length + kSpareLength);

  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = reinterpret_cast<HWND>(request.owner);
  dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(length);
  dialog.lpstrTitle = title.c_str();
  if (request.beginsInVideos) {
    // Windows puts the last choice of an earlier run in the place of what is asked for first.
    if (folder_.empty()) folder_ = videosFolder();
    dialog.lpstrInitialDir = folder_.c_str();
  }
  dialog.Flags = request.flags;
  if (GetOpenFileNameW(&dialog)) {
    const std::wstring text = chosenText(buffer);
    if (request.beginsInVideos) {
      folder_ = text.substr(0, std::min<std::size_t>(text.find(L'\0'), dialog.nFileOffset));
    }
    if (text.size() >= length) return {FileDialogOutcome::tooMany, {}};
    if (text.empty()) return {FileDialogOutcome::cancelled, {}};  // ended together with the program
    return {FileDialogOutcome::chosen, fromWide(text)};
  }

  const DWORD error = CommDlgExtendedError();
  if (error == 0) return {FileDialogOutcome::cancelled, {}};
  if (error == FNERR_BUFFERTOOSMALL) return {FileDialogOutcome::tooMany, {}};
  log_.error("the open-file dialog broke off, error " + std::to_string(error));
  return {FileDialogOutcome::failed, {}};
}

std::optional<std::string> Win32FileDialogs::chooseFolder(const ChooseFolderRequest& request) {
  std::optional<std::string> folder;
  guarded(log_, [&] { folder = askFolder(request); });
  return folder;
}

std::optional<std::string> Win32FileDialogs::askFolder(const ChooseFolderRequest& request) {
  const KeptCurrentFolder kept;
  ComPtr<IFileDialog> dialog;
  HRESULT result = CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_IFileDialog, dialog.putVoid());
  if (SUCCEEDED(result)) {
    FILEOPENDIALOGOPTIONS options = 0;
    dialog->GetOptions(&options);
    dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST);
    dialog->SetTitle(toWide(request.title).c_str());
    beginIn(*dialog.get(), request.folder);
    result = dialog->Show(reinterpret_cast<HWND>(request.owner));
    if (SUCCEEDED(result)) return chosenFolder(*dialog.get());
  }
  if (result != HRESULT_FROM_WIN32(ERROR_CANCELLED)) {
    log_.error("the dialog that asks for a folder broke off, result " + std::to_string(result));
  }
  return std::nullopt;
}

}  // namespace tessivo
