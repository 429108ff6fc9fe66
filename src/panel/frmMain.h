#pragma once

#include <string>

#include "app/Controler.h"
#include "app/PanelFace.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo {

/// The control panel: the playlist and the transport. It holds no playlist of its own and never
/// talks to the playback window: every command goes to the controller, whose calls it answers by
/// showing what is.
class frmMain : public ui::Form, public PanelFace {
 public:
  frmMain(ui::Toolkit& toolkit, TwipsPerPixel twipsPerPixel, Controler& controler);
  ~frmMain() override;

  /// Creates the window, hidden, on the given work area (pixels).
  void load(const Rect& workArea);

  // PanelFace
  void AddAMovieToFaceList(const Movie& movie) override;
  void setPLItemStateByKey(const std::string& key, int state) override;
  void selectPLItemByKey(const std::string& key) override;
  void setFaceToAPlayState(int state, bool refresh) override;
  void setJinDu(std::int32_t percent, std::int32_t position, const std::string& positionText,
                std::int32_t length, const std::string& lengthText) override;
  void playErrEventProcess(const std::string& reason) override;
  void playOverEventProcess() override;
  std::int32_t lngGetMovieLen() const override { return sldJinDu.max(); }
  std::int32_t lngGetJinDu() const override { return sldJinDu.value(); }
  void setFaceBySysConfigPara(const SysConfig& config) override;
  void showAdding(std::int32_t, std::int32_t) override {}
  void finishWork() override {}
  Rect faceRect() const override { return windowRect(); }
  void moveFace(Point upperLeft) override;
  void restoreFace() override;
  void bringFaceToFront() override;
  void keepFaceOnTop(bool onTop) override { setTopmost(onTop); }
  void hideFace() override { hide(); }
  void hideAndUnloadFace() override;

  /// State 1: "暂停" with tag "1"; state 2: "播放" with tag "2"; others change nothing.
  void setPlayButtonState(int state);
  /// Progress without the percentage. A length of -1 leaves the slider's end, a length text of "X"
  /// the length label; a length of 0 changes nothing, nor does anything while the user drags.
  void setJinDu(std::int32_t position, const std::string& positionText, std::int32_t length,
                const std::string& lengthText);

  ui::Label labPlayState1;
  ui::TextBox txtFileName;
  ui::Slider sldJinDu;
  ui::Label labMoviePosi;
  ui::Label labSlidMax;
  ui::Label labMovieLen;
  ui::Button cmdPlay;
  ui::Button cmdStop;
  ui::Label labVolume;
  ui::Slider sldVolume;
  ui::ComboBox comboPlayRuler;
  ui::Button cmdRecyclePlayPL;
  ui::ListView lvPlayList;
  ui::Label labFileCount;
  ui::Label labPlayErrNote;

 private:
  void layOut();
  void listenToTransport();
  void listenToSliders();
  void listenToList();
  void fillRules();

  void playOrPause();
  void stop();
  void releaseProgress();
  void changeRule();
  void stepRecycleMode();
  void showRecycleMode();
  bool playNext(int direction, bool wrap);
  void playRowUnderPointer();
  void dropFiles(const ui::DroppedFiles& files);
  void showFileCount();
  std::string playItemName() const;

  ui::Toolkit& toolkit_;
  Controler& controler_;
  bool draggingProgress_ = false;
  bool initialising_ = true;
  std::int32_t ruleApplied_ = -1;
  std::string markedKey_;
  std::int32_t listMouseY_ = 0;
};

}  // namespace tessivo
