#include "screen/engines/real_player/RealPlayerEvents.h"

#include <algorithm>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

ArgumentKind kindOf(VARTYPE type) {
  switch (type & ~VT_BYREF) {
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_USERDEFINED:  // an enumeration
      return ArgumentKind::wholeNumber;
    case VT_BSTR:
      return ArgumentKind::text;
    default:
      return ArgumentKind::other;
  }
}

ArgumentKind kindOf(const TYPEDESC& type) {
  return type.vt == VT_PTR ? kindOf(type.lptdesc->vt) : kindOf(type.vt);
}

/// The names of a function and of its arguments, in this order.
std::vector<std::string> namesOf(ITypeInfo& description, const FUNCDESC& function) {
  std::vector<BSTR> texts(static_cast<std::size_t>(function.cParams) + 1, nullptr);
  UINT count = 0;
  description.GetNames(function.memid, texts.data(), static_cast<UINT>(texts.size()), &count);
  std::vector<std::string> names;
  for (BSTR text : texts) {
    names.push_back(text ? fromWide({text, SysStringLen(text)}) : std::string());
    SysFreeString(text);
  }
  return names;
}

DescribedEvent describe(ITypeInfo& description, const FUNCDESC& function) {
  const auto names = namesOf(description, function);
  std::vector<EventArgument> arguments;
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    arguments.push_back({names[i + 1], kindOf(function.lprgelemdescParam[i].tdesc)});
  }
  return {names.front(), meaningOf(arguments)};
}

}  // namespace

RealPlayerEvents::RealPlayerEvents(ITypeInfo* description) {
  TYPEATTR* attributes = nullptr;
  if (!description || FAILED(description->GetTypeAttr(&attributes))) return;
  const UINT count = attributes->cFuncs;
  description->ReleaseTypeAttr(attributes);
  std::vector<DISPID> ids;
  std::vector<DescribedEvent> events;
  for (UINT i = 0; i < count; ++i) {
    FUNCDESC* function = nullptr;
    if (FAILED(description->GetFuncDesc(i, &function))) continue;
    ids.push_back(function->memid);
    events.push_back(describe(*description, *function));
    description->ReleaseFuncDesc(function);
  }
  several_ = leaveOneOfEach(events);
  for (std::size_t i = 0; i < ids.size(); ++i) described_[ids[i]] = events[i].meaning;
}

bool RealPlayerEvents::describes(RealPlayerNotice notice) const {
  return std::any_of(described_.begin(), described_.end(),
                     [&](const auto& entry) { return entry.second.notice == notice; });
}

EventMeaning RealPlayerEvents::meaningOf(DISPID event,
                                         const std::vector<Variant>& arguments) const {
  EventMeaning meaning;
  if (const auto known = described_.find(event); known != described_.end()) {
    meaning = known->second;
  } else {
    std::vector<EventArgument> nameless;
    nameless.reserve(arguments.size());
    for (const auto& argument : arguments) nameless.push_back({"", kindOf(argument.type())});
    meaning = tessivo::meaningOf(nameless);
  }
  const bool carriesThem = std::max(meaning.first, meaning.second) < arguments.size();
  return carriesThem ? meaning : EventMeaning{};
}

}  // namespace tessivo
