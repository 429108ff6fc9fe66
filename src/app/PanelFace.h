#pragma once

#include <cstdint>
#include <string>

#include "base/Geometry.h"

namespace tessivo {

struct Movie;
class SysConfig;

/// What a panel state shows (`setFaceToAPlayState`).
namespace panelState {
inline constexpr int kPlaying = 1;
inline constexpr int kPaused = 2;
inline constexpr int kStopped = 3;
inline constexpr int kSoundOn = 4;
inline constexpr int kMuted = 5;
inline constexpr int kFullScreen = 6;
inline constexpr int kNormal = 7;
}  // namespace panelState

/// The control panel as the controller sees it.
class PanelFace {
 public:
  virtual ~PanelFace() = default;

  /// Appends a row for the item.
  virtual void AddAMovieToFaceList(const Movie& movie) = 0;
  /// Moves the play-item mark to the row; state 1 also selects it.
  virtual void setPLItemStateByKey(const std::string& key, int state) = 0;
  /// Selects the row; the mark stays.
  virtual void selectPLItemByKey(const std::string& key) = 0;
  virtual void setFaceToAPlayState(int state, bool refresh) = 0;
  /// Progress: percent, position (s), its text, length (s), its text.
  virtual void setJinDu(std::int32_t percent, std::int32_t position,
                        const std::string& positionText, std::int32_t length,
                        const std::string& lengthText) = 0;
  virtual void playErrEventProcess(const std::string& reason) = 0;
  virtual void playOverEventProcess() = 0;
  /// The item length and position that the panel shows, in seconds.
  virtual std::int32_t lngGetMovieLen() const = 0;
  virtual std::int32_t lngGetJinDu() const = 0;
  virtual void setFaceBySysConfigPara(const SysConfig& config) = 0;
  /// A long addition is under way: `done` of `total` paths have been looked at. Total 0: it is
  /// over. Short additions are not announced.
  virtual void showAdding(std::int32_t done, std::int32_t total) = 0;
  /// Completes what is under way in the panel (deleting many rows); the program is about to leave.
  /// A panel that has much left to do hides itself first.
  virtual void finishWork() = 0;

  /// The window's rectangle in pixels.
  virtual Rect faceRect() const = 0;
  /// Moves the window, keeping its size. Pixels.
  virtual void moveFace(Point upperLeft) = 0;
  /// Undoes minimising, so that the window has its place and size again.
  virtual void restoreFace() = 0;
  /// Shows the window in front, with the keyboard.
  virtual void bringFaceToFront() = 0;
  /// Keeps the window above the show.
  virtual void keepFaceOnTop(bool onTop) = 0;
  virtual void hideFace() = 0;
  virtual void hideAndUnloadFace() = 0;
};

}  // namespace tessivo
