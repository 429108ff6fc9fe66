#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/Log.h"
#include "screen/RealPlayerSlot.h"
#include "screen/engines/control/ControlDispatch.h"
#include "screen/engines/control/ControlHost.h"
#include "screen/engines/real_player/RealPlayerEvents.h"

namespace tessivo {

/// The class of the RealPlayer control.
inline constexpr CLSID kRealPlayerControl{
    0xCFCDAA03, 0x8BE4, 0x11CF, {0xB8, 0x4B, 0x00, 0x20, 0xAF, 0xBB, 0xCC, 0xFA}};

/// The installed RealPlayer control in the RealPlayer slot, reached by dispatch identifiers alone.
/// A play that the control does not take, or that there is no control to take, ends in
/// errorMessage. What the control has still to tell of an item is dropped when that item is stopped
/// or another source is set, so that no late news of the old item is taken for news of the next; an
/// ordered stop is reported.
///
/// It never raises pictureMouse: the mouse on its picture is caught by the playback window.
class RealPlayerControl final : public RealPlayerSlot {
 public:
  RealPlayerControl(HWND parent, Log& log);
  ~RealPlayerControl() override;

  /// Whether there is a control; without it every play is an error.
  bool created() const { return host_.created(); }

  bool visible() const override { return host_.visible(); }
  void setVisible(bool visible) override { host_.setVisible(visible); }
  void move(const Rect& pixels) override { host_.move(pixels); }

  /// Sets the source; false when the control does not take it, or there is none.
  bool takesSource(const std::string& source);
  void setSource(const std::string& source) override { takesSource(source); }
  void play() override;
  void pause() override;
  void stop() override;
  bool canStop() const override;
  std::int32_t lengthMs() const override;
  void setPositionMs(std::int32_t position) override;
  void setVolume(std::int16_t volume) override;
  void setMute(bool mute) override;
  void setSetting(Setting setting, bool value) override;

 private:
  void onEvent(DISPID event, const std::vector<Variant>& arguments);
  void sayWhatIsDoubtful(Log& log) const;
  bool call(DISPID member, const std::vector<Variant>& arguments = {});
  std::int32_t ask(DISPID query) const;
  void dropWaitingEvents();

  mutable ControlHost host_;         ///< knows that a query is under way
  mutable ControlDispatch control_;  ///< remembers which queries have failed
  RealPlayerEvents events_;
};

}  // namespace tessivo
