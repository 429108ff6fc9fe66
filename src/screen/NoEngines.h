#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "screen/MediaPlayerSlot.h"
#include "screen/RealPlayerSlot.h"

namespace tessivo {

/// In the place of an engine before there is one and after it has gone, also when it goes while it
/// is being called: a control that runs a message loop meanwhile lets the program be left.
class NoMediaPlayer final : public MediaPlayerSlot {
 public:
  bool visible() const override { return false; }
  void setVisible(bool) override {}
  void move(const Rect&) override {}
  std::string url() const override { return {}; }
  void setUrl(const std::string&) override {}
  void play() override {}
  void pause() override {}
  void stop() override {}
  double currentPosition() const override { return 0; }
  void setCurrentPosition(double) override {}
  MediaPlayState playState() const override { return MediaPlayState::undefined; }
  std::optional<double> currentMediaDuration() const override { return std::nullopt; }
  void setVolume(int) override {}
  void setMute(bool) override {}
  void setEnableErrorDialogs(bool) override {}
  void setInvokeUrls(bool) override {}
  void setEnableContextMenu(bool) override {}
  bool fullScreen() const override { return false; }
  void setFullScreen(bool) override {}
  void clearErrorQueue() override {}
};

/// The same in RealPlayer's place.
class NoRealPlayer final : public RealPlayerSlot {
 public:
  bool visible() const override { return false; }
  void setVisible(bool) override {}
  void move(const Rect&) override {}
  void setSource(const std::string&) override {}
  void play() override {}
  void pause() override {}
  void stop() override {}
  bool canStop() const override { return false; }
  std::int32_t lengthMs() const override { return 0; }
  void setPositionMs(std::int32_t) override {}
  void setVolume(std::int16_t) override {}
  void setMute(bool) override {}
  void setSetting(Setting, bool) override {}
};

}  // namespace tessivo
