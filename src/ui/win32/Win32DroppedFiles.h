#pragma once

#include <windows.h>
// after windows.h
#include <shellapi.h>

#include "platform/win32/WindowsText.h"
#include "ui/Form.h"

namespace tessivo::ui {

/// The files of a drop. Gives the drop back to the shell when it goes.
class Win32DroppedFiles final : public DroppedFiles {
 public:
  explicit Win32DroppedFiles(HDROP drop) : drop_(drop) {}
  ~Win32DroppedFiles() override { DragFinish(drop_); }
  Win32DroppedFiles(const Win32DroppedFiles&) = delete;
  Win32DroppedFiles& operator=(const Win32DroppedFiles&) = delete;

  std::uint32_t count() const override { return DragQueryFileW(drop_, kCount, nullptr, 0); }
  std::string path(std::uint32_t index) const override {
    std::wstring path(DragQueryFileW(drop_, index, nullptr, 0) + 1, L'\0');
    path.resize(DragQueryFileW(drop_, index, path.data(), static_cast<UINT>(path.size())));
    return fromWide(path);
  }

 private:
  static constexpr UINT kCount = 0xFFFFFFFF;
  HDROP drop_;
};

}  // namespace tessivo::ui
