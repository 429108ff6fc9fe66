#include "screen/engines/real_player/RealPlayerControl.h"

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

constexpr char kName[] = "the RealPlayer control";

enum Member : DISPID {
  kSource = 102,
  kStop = 202,
  kSetVolume = 227,
  kSetMute = 229,
  kPlay = 257,
  kPause = 258,
  kCanStop = 260,
  kLength = 261,
  kSetPosition = 269
};

/// Not an identifier that a control could use: our own news that a play was not taken.
constexpr DISPID kPlayRefused = DISPID_UNKNOWN;

ControlHost::Setup setUp(ControlHost::OnEvent onEvent) {
  // A source does not start by itself, and the picture is all that is shown: no logo, no buttons.
  return {kName,
          kRealPlayerControl,
          {{L"AUTOSTART", L"0"}, {L"CONTROLS", L"ImageWindow"}, {L"NOLOGO", L"1"}},
          std::move(onEvent)};
}

}  // namespace

RealPlayerControl::RealPlayerControl(HWND parent, Log& log)
    : host_(parent, setUp([this](DISPID event, const std::vector<Variant>& arguments) {
              onEvent(event, arguments);
            }),
            log),
      control_(kName, host_.control(), log),
      events_(host_.eventInfo().get()) {
  if (host_.created()) sayWhatIsDoubtful(log);
}

RealPlayerControl::~RealPlayerControl() {
  if (canStop()) call(kStop);
}

void RealPlayerControl::sayWhatIsDoubtful(Log& log) const {
  std::string missing;
  if (!events_.describes(RealPlayerNotice::playState)) missing += " play state";
  if (!events_.describes(RealPlayerNotice::position)) missing += " position";
  if (!events_.describes(RealPlayerNotice::errorMessage)) missing += " error message";
  if (!missing.empty()) log.error(std::string(kName) + " describes no event for:" + missing);
  for (const auto& notice : events_.describedSeveralTimes()) {
    log.info(std::string(kName) + " describes several events like " + notice +
             ", one of them counts");
  }
}

bool RealPlayerControl::call(DISPID member, const std::vector<Variant>& arguments) {
  const ControlHost::Call during(host_);
  return control_.call(member, arguments);
}

std::int32_t RealPlayerControl::ask(DISPID query) const {
  const ControlHost::Call during(host_);
  return control_.get(query).number();
}

void RealPlayerControl::dropWaitingEvents() {
  host_.dropWaitingEvents([](DISPID) { return true; });
}

bool RealPlayerControl::takesSource(const std::string& source) {
  const ControlHost::Call during(host_);
  const bool taken = control_.put(kSource, Variant(toWide(source)));
  // After the call: what the control told inside it is about the old item too.
  if (during.isStillMeant()) dropWaitingEvents();
  return taken;
}

void RealPlayerControl::play() {
  const ControlHost::Call during(host_);
  if (!control_.call(kPlay) && during.isStillMeant()) host_.announce(kPlayRefused);
}

void RealPlayerControl::pause() {
  call(kPause);
}

void RealPlayerControl::stop() {
  // Before the call: the stop itself is reported.
  dropWaitingEvents();
  call(kStop);
}

bool RealPlayerControl::canStop() const {
  return ask(kCanStop) != 0;
}

std::int32_t RealPlayerControl::lengthMs() const {
  return ask(kLength);
}

void RealPlayerControl::setPositionMs(std::int32_t position) {
  call(kSetPosition, {Variant(position)});
}

void RealPlayerControl::setVolume(std::int16_t volume) {
  call(kSetVolume, {Variant::numberByReference(volume)});
}

void RealPlayerControl::setMute(bool mute) {
  VARIANT_BOOL flag = mute ? VARIANT_TRUE : VARIANT_FALSE;
  call(kSetMute, {Variant::flagByReference(flag)});
}

void RealPlayerControl::setSetting(Setting setting, bool value) {
  call(static_cast<DISPID>(setting), {Variant(value)});
}

/// A listener may destroy this object: nothing is done after a notification.
void RealPlayerControl::onEvent(DISPID event, const std::vector<Variant>& arguments) {
  if (event == kPlayRefused) return errorMessage.raise();
  const EventMeaning meaning = events_.meaningOf(event, arguments);
  if (meaning.notice == RealPlayerNotice::none) return;
  const std::int32_t first = arguments[meaning.first].number();
  const std::int32_t second = arguments[meaning.second].number();
  switch (meaning.notice) {
    case RealPlayerNotice::playState:
      return playStateChange.raise(static_cast<RealPlayState>(first),
                                   static_cast<RealPlayState>(second));
    case RealPlayerNotice::errorMessage:
      return errorMessage.raise();
    case RealPlayerNotice::position:
      return positionChange.raise(first, second);
    case RealPlayerNotice::mousePoint:
      return mousePoint.raise({first, second});
    case RealPlayerNotice::none:
      return;
  }
}

}  // namespace tessivo
