#pragma once

#include <array>
#include <string>
#include <vector>

#include "PanelWindow.h"

namespace tessivo {

/// One of the player's lists, read from outside: what a message fills in has to lie in the player's
/// memory.
class PanelList {
 public:
  PanelList(const PanelWindow& panel, const std::string& name) : PanelList(panel.control(name)) {}
  explicit PanelList(HWND list) : list_(list) {
    DWORD id = 0;
    GetWindowThreadProcessId(list_, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    memory_ =
        VirtualAllocEx(process_, nullptr, sizeof(Shared), MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (!memory_) fail("no memory in the player");
  }
  ~PanelList() {
    VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  PanelList(const PanelList&) = delete;
  PanelList& operator=(const PanelList&) = delete;

  int rowCount() const { return ask(LVM_GETITEMCOUNT, 0); }
  /// The selected row, -1 when none is.
  int selected() const {
    return static_cast<int>(
        SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  bool isTicked(int row) const {
    return ask(LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  }
  int tickedRows() const {
    int ticked = 0;
    for (int row = 0, rows = rowCount(); row < rows; ++row) ticked += isTicked(row) ? 1 : 0;
    return ticked;
  }
  void scrollTo(int row) const { ask(LVM_ENSUREVISIBLE, row, FALSE); }
  std::string cell(int row, int column) const {
    Shared shared{};
    shared.item.iSubItem = column;
    shared.item.cchTextMax = static_cast<int>(shared.text.size());
    shared.item.pszText = textThere();
    write(shared);
    ask(LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(memory_));
    read(shared);
    shared.text.back() = L'\0';
    return fromWide(shared.text.data());
  }
  /// On the screen, in pixels.
  RECT cellRect(int row, int column) const {
    Shared shared{};
    shared.rect.left = LVIR_BOUNDS;
    shared.rect.top = column;
    write(shared);
    ask(LVM_GETSUBITEMRECT, row, reinterpret_cast<LPARAM>(&there()->rect));
    read(shared);
    MapWindowPoints(list_, nullptr, reinterpret_cast<POINT*>(&shared.rect), 2);
    return shared.rect;
  }

 private:
  struct Shared {
    LVITEMW item;
    RECT rect;
    std::array<wchar_t, 1024> text;
  };

  int ask(UINT message, int row, LPARAM lParam = 0) const {
    return static_cast<int>(SendMessageW(list_, message, static_cast<WPARAM>(row), lParam));
  }
  Shared* there() const { return static_cast<Shared*>(memory_); }
  wchar_t* textThere() const { return there()->text.data(); }
  void write(const Shared& shared) const {
    WriteProcessMemory(process_, memory_, &shared, sizeof shared, nullptr);
  }
  void read(Shared& shared) const {
    ReadProcessMemory(process_, memory_, &shared, sizeof shared, nullptr);
  }

  HWND list_;
  HANDLE process_ = nullptr;
  void* memory_ = nullptr;
};

}  // namespace tessivo
