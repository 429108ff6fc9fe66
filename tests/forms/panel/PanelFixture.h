#pragma once

#include <memory>
#include <string>

#include "app/StartUp.h"
#include "fakes/FakeFileDialogs.h"
#include "fakes/FakeShell.h"
#include "forms/FormWorld.h"
#include "forms/TestForm.h"
#include "panel/frmMain.h"
#include "panel/frmMsgBox.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {

/// The whole program but for engines and, natively, windows: panel, controller, playlist, playback
/// window. The panel is shown, with the settings applied.
class PanelFixture : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    main.load({0, 0, 1280, 984});
    controler.setReferences(tray, main, screen, playList);
    main.setFaceBySysConfigPara(controler.config());
    main.show();
    main.activate();
    main.lvPlayList.setFocus();
    notices.clear();
    world->answerDialogs([this](ui::Form& form) { noteDialog(form); });
    trace.take();
  }
  void TearDown() override { main.unload(); }

  /// The user reads a notice and presses its button.
  void noteDialog(ui::Form& form) {
    auto& box = dynamic_cast<frmMsgBox&>(form);
    notices.push_back(world->text(box) + "|" + world->text(box.labNote) + "|" +
                      (box.cmdYes.visible() ? world->text(box.cmdYes) : "") + "|" +
                      (box.cmdNo.visible() ? world->text(box.cmdNo) : "") +
                      (world->isEnabled(main) ? "|panel on" : ""));
    world->click(box.cmdYes);
  }
  /// The one notice since the last call.
  std::string notice() {
    const std::string all = ui::joined(notices);
    notices.clear();
    return all;
  }

  /// The playback window has begun with the file and plays it.
  void plays(const std::string& path) {
    time.advance(1);
    EXPECT_NE(trace.take().find("wmp url " + path), std::string::npos);
    real().notify(RealPlayState::playing);
    trace.take();
  }
  /// The file that was started is played.
  void begins() {
    time.advance(1);
    real().notify(RealPlayState::playing);
    trace.take();
  }
  void endOfItem() {
    time.advance(1500);
    real().notify(RealPlayState::stopped);
    trace.take();
  }
  /// The current item cannot be played, by the only engine.
  void fails() {
    time.advance(1);
    real().errorMessage.raise();
    time.advance(2);
    trace.take();
  }
  void startFirst() {
    addThree();
    trace.take();
    world->click(main.cmdPlay);
    begins();
  }
  /// Adds that many files, "1" and up.
  void addMany(int count) {
    std::vector<std::string> paths{""};
    for (int i = 1; i <= count; ++i) {
      paths.push_back("C:\\m\\" + std::to_string(i));
      files.existing.insert(paths.back());
    }
    controler.BatchAddMovie(paths, false);
    trace.take();
  }
  /// The rows by the first letter of the name, "1" or "0" for the tag, "b" bold, "+" ticked, "!"
  /// selected.
  std::string rows() {
    std::string text;
    for (int i = 0; i < main.lvPlayList.rowCount(); ++i) {
      const ui::ListRow& row = main.lvPlayList.row(i);
      text += row.subItems[0].substr(0, 1) + row.tag + (row.bold ? "b" : "") +
              (row.checked ? "+" : "") + (main.lvPlayList.selected() == i ? "!" : "") + " ";
    }
    EXPECT_EQ(world->rowCount(main.lvPlayList), main.lvPlayList.rowCount());
    EXPECT_EQ(world->selectedRow(main.lvPlayList), main.lvPlayList.selected());
    return text;
  }
  std::string errors() {
    std::string text;
    for (int i = 0; i < world->rowCount(main.lvPlayErrLogList); ++i) {
      for (int column = 1; column <= 3; ++column) {
        text += world->cell(main.lvPlayErrLogList, i, column) + (column < 3 ? "|" : "\n");
      }
    }
    return text;
  }
  std::string stateLine() {
    return world->text(main.labPlayState1) + world->text(main.txtFileName) + " " +
           world->text(main.cmdPlay);
  }

  std::vector<std::string> notices;
  std::unique_ptr<ui::FormWorld> world = ui::makeFormWorld();
  FakeFileDialogs fileDialogs;
  FakeShell shell;
  ExitQuestion exitQuestion{world->toolkit(), controler};
  frmMain main{{world->toolkit(), time, time, pointer, windows, fileDialogs, shell, exitQuestion,
                "C:\\Help.htm"},
               {},
               controler};
};

}  // namespace tessivo
