#pragma once

#include <functional>
#include <string>

#include "app/PanelFace.h"
#include "data/Movie.h"
#include "fakes/Trace.h"

namespace tessivo {

/// The control panel as the controller's tests see it: notes what it is told.
struct FakePanel : PanelFace {
  explicit FakePanel(Trace& t) : trace(t) {}
  void AddAMovieToFaceList(const Movie& movie) override {
    trace.add("row " + movie.strFileName);
    if (whileAddingRow) whileAddingRow();
  }
  void setPLItemStateByKey(const std::string& key, int state) override {
    trace.add("mark " + key + " " + std::to_string(state));
  }
  void selectPLItemByKey(const std::string& key) override { trace.add("select " + key); }
  void setFaceToAPlayState(int state, bool refresh) override {
    trace.add("state " + std::to_string(state) + (refresh ? " refresh" : ""));
  }
  void setJinDu(std::int32_t percent, std::int32_t position, const std::string& positionText,
                std::int32_t length, const std::string& lengthText) override {
    trace.add("progress " + std::to_string(percent) + " " + std::to_string(position) + " " +
              positionText + " " + std::to_string(length) + " " + lengthText);
  }
  void playErrEventProcess(const std::string& reason) override { trace.add("error " + reason); }
  void playOverEventProcess() override { trace.add("over"); }
  std::int32_t lngGetMovieLen() const override { return shownLength; }
  std::int32_t lngGetJinDu() const override { return shownPosition; }
  void setFaceBySysConfigPara(const SysConfig&) override { trace.add("settings shown"); }
  void showAdding(std::int32_t done, std::int32_t total) override {
    trace.add("adding " + std::to_string(done) + "/" + std::to_string(total));
  }
  void finishWork() override {
    if (whileFinishing) whileFinishing();
  }
  Rect faceRect() const override { return rect; }
  void moveFace(Point upperLeft) override {
    rect.left = upperLeft.x;
    rect.top = upperLeft.y;
    trace.add("panel to " + std::to_string(upperLeft.x) + "," + std::to_string(upperLeft.y));
  }
  void restoreFace() override { trace.add("panel restored"); }
  void bringFaceToFront() override {
    trace.add("panel front");
    if (whileShown) whileShown();
  }
  void keepFaceOnTop(bool onTop) override { trace.add(onTop ? "panel on top" : "panel normal"); }
  void hideFace() override { trace.add("panel hidden"); }
  void hideAndUnloadFace() override {
    trace.add("panel gone");
    shownLength = 0;
    shownPosition = 0;
  }

  Trace& trace;
  std::function<void()> whileAddingRow;
  std::function<void()> whileFinishing;
  std::function<void()> whileShown;
  std::int32_t shownLength = 100;
  std::int32_t shownPosition = 0;
  Rect rect{100, 100, 400, 300};
};

}  // namespace tessivo
