#pragma once

#include <oaidl.h>

#include <map>
#include <string>
#include <vector>

#include "screen/engines/control/Variant.h"
#include "screen/engines/real_player/EventShape.h"

namespace tessivo {

/// Which of the RealPlayer control's events is which, read once from the description of its event
/// interface.
class RealPlayerEvents {
 public:
  /// `description` may be null: then an event is told by the types of what it carries alone, which
  /// is enough for the error message only.
  explicit RealPlayerEvents(ITypeInfo* description);

  /// Whether the description has an event of that meaning.
  bool describes(RealPlayerNotice notice) const;
  /// The notices that the description has several events like; one of them is listened to.
  const std::vector<std::string>& describedSeveralTimes() const { return several_; }
  /// The positions in the meaning lie within `arguments`.
  EventMeaning meaningOf(DISPID event, const std::vector<Variant>& arguments) const;

 private:
  std::map<DISPID, EventMeaning> described_;
  std::vector<std::string> several_;
};

}  // namespace tessivo
