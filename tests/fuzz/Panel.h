#pragma once

#include "fakes/FakeFileDialogs.h"
#include "fakes/FakeShell.h"
#include "fuzz/Player.h"
#include "panel/ExitQuestion.h"
#include "panel/frmMain.h"

namespace tessivo::fuzz {

/// The player with its control panel, shown, but without windows. A dialog is closed at once.
class Panel : public Player {
 public:
  Panel() {
    main.load({0, 0, 1280, 984});
    controler.setReferences(tray, main, screen, playList);
    main.setFaceBySysConfigPara(controler.config());
    main.show();
    trace.take();
  }
  ~Panel() override { main.unload(); }

  void reset() override {
    main.setEnabled(true);
    main.mnuClearPL.choose();
    Player::reset();
    toolkit.dialogs = 0;
  }

 protected:
  void drop(const std::vector<std::string>& paths) {
    struct Drop : ui::DroppedFiles {
      explicit Drop(const std::vector<std::string>& p) : all(p) {}
      std::uint32_t count() const override { return static_cast<std::uint32_t>(all.size()); }
      std::string path(std::uint32_t index) const override { return all.at(index); }
      const std::vector<std::string>& all;
    };
    main.onFilesDropped.raise(Drop(paths));
  }

  /// As checkPlayer, and the panel shows what is in the list.
  void checkPanel() {
    checkPlayer();
    holds(main.lvPlayList.rowCount() == playList.lngListCount(), "a row for each item");
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      const ui::ListRow& row = main.lvPlayList.row(i - 1);
      holds(row.key == playList.objGetAItem(i)->strKey, "rows in the list's order");
    }
    const std::string count = std::to_string(playList.lngListCount());
    holds(main.labFileCount.caption() == count, "the files are counted");
  }

  FakeFileDialogs fileDialogs;
  FakeShell shell;
  ExitQuestion exitQuestion{toolkit, controler};
  frmMain main{
      {toolkit, time, time, pointer, windows, fileDialogs, shell, exitQuestion, "C:\\Help.htm"},
      {},
      controler};
};

}  // namespace tessivo::fuzz
