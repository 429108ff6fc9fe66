#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace tessivo {

enum class ArgumentKind { wholeNumber, text, other };

/// An argument of a control's event as the control's library declares it.
struct EventArgument {
  std::string name;
  ArgumentKind kind = ArgumentKind::other;
};

/// What an event of the RealPlayer control tells.
enum class RealPlayerNotice { none, playState, errorMessage, position, mousePoint };

/// A notice and where its two numbers stand among the arguments: old and new state, position and
/// length, x and y. The error message has none.
struct EventMeaning {
  RealPlayerNotice notice = RealPlayerNotice::none;
  std::size_t first = 0;
  std::size_t second = 0;
  friend bool operator==(const EventMeaning&, const EventMeaning&) = default;
};

namespace event_shape {

inline bool isNumberCalled(const EventArgument& argument, std::string_view part) {
  return argument.kind == ArgumentKind::wholeNumber && containsNoCase(argument.name, part);
}

/// "x", "xPos" and, behind the letter of a type, "nX".
inline bool isNumberOnAxis(const EventArgument& argument, char axis) {
  const std::string& name = argument.name;
  if (argument.kind != ArgumentKind::wholeNumber || name.empty()) return false;
  const char upper = static_cast<char>(axis - 'a' + 'A');
  return name[0] == axis || name[0] == upper || (name.size() > 1 && name[1] == upper);
}

template <typename Predicate>
std::optional<std::size_t> find(const std::vector<EventArgument>& arguments, Predicate predicate) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (predicate(arguments[i])) return i;
  }
  return std::nullopt;
}

}  // namespace event_shape

/// Tells the events of the RealPlayer control apart by their arguments, because the events' names
/// and identifiers are the control's own matter:
/// - three texts: the error message;
/// - nothing but two whole numbers, an old and a new state: the play state;
/// - nothing but two whole numbers, a position and a length: the position;
/// - an x and a y among the arguments: where the mouse is.
inline EventMeaning meaningOf(const std::vector<EventArgument>& arguments) {
  using namespace event_shape;
  std::size_t texts = 0;
  for (const auto& argument : arguments) texts += argument.kind == ArgumentKind::text;
  if (texts == 3) return {RealPlayerNotice::errorMessage, 0, 0};

  const bool isPair = arguments.size() == 2;
  if (isPair && isNumberCalled(arguments[0], "state") && isNumberCalled(arguments[1], "state")) {
    const std::size_t oldState = containsNoCase(arguments[0].name, "new") ? 1 : 0;
    return {RealPlayerNotice::playState, oldState, 1 - oldState};
  }
  const auto called = [&](std::string_view part) {
    return find(arguments, [&](const auto& argument) { return isNumberCalled(argument, part); });
  };
  const auto position = called("pos");
  const auto length = called("len");
  if (isPair && position && length && position != length) {
    return {RealPlayerNotice::position, *position, *length};
  }
  const auto onAxis = [&](char axis) {
    return find(arguments, [&](const auto& argument) { return isNumberOnAxis(argument, axis); });
  };
  const auto x = onAxis('x');
  const auto y = onAxis('y');
  if (x && y) return {RealPlayerNotice::mousePoint, *x, *y};
  return {};
}

/// An event as the control's library declares it.
struct DescribedEvent {
  std::string name;
  EventMeaning meaning;
};

/// Leaves one event with the notice's meaning, because what two told would be taken for two
/// changes: the one whose name contains `name` (case does not matter), else the first. False when
/// there was only one, or none.
inline bool leaveOneOf(RealPlayerNotice notice, std::string_view name,
                       std::vector<DescribedEvent>& events) {
  DescribedEvent* chosen = nullptr;
  bool chosenByName = false;
  int count = 0;
  for (auto& event : events) {
    if (event.meaning.notice != notice) continue;
    ++count;
    const bool named = containsNoCase(event.name, name);
    if (chosen && (chosenByName || !named)) continue;
    chosen = &event;
    chosenByName = named;
  }
  for (auto& event : events) {
    if (event.meaning.notice == notice && &event != chosen) event.meaning = {};
  }
  return count > 1;
}

/// The same for every notice of which there is to be one; the mouse may be told of by many events.
/// Returns the names of the notices that several events had the shape of.
inline std::vector<std::string> leaveOneOfEach(std::vector<DescribedEvent>& events) {
  std::vector<std::string> several;
  const auto leave = [&](RealPlayerNotice notice, const char* name) {
    if (leaveOneOf(notice, name, events)) several.emplace_back(name);
  };
  leave(RealPlayerNotice::playState, "PlayState");
  leave(RealPlayerNotice::position, "PositionChange");
  leave(RealPlayerNotice::errorMessage, "ErrorMessage");
  return several;
}

}  // namespace tessivo
