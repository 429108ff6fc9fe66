#pragma once

#include <windows.h>

#include <cstdint>

namespace tessivo {

/// What a test in the same process learns from the test control and tells it to do. The commands
/// go to the control that was made last; without one they do nothing.
///
/// The control stands in for the RealPlayer control: the same class and the same dispatch
/// identifiers. Registered and driven by a script it serves the real program, see Script.h.
struct TestControlApi {
  /// Forgets the record and every wish below.
  void (*reset)();

  /// How many controls exist.
  int (*instances)();

  /// What has been asked of the controls, one line each:
  ///   "property AUTOSTART=0"     a property given when the control was made
  ///   "102 put BSTR C:\a.mp3"    a call: member, "call", "read" or "put", its arguments in the
  ///   "227 call I2& 30"          order of declaration, with type and value; & is a reference
  ///   "site", "advise", "activate", "unadvise", "deactivate", "close", "no site"
  int (*recorded)();
  const char* (*record)(int index);  ///< valid until the next line is recorded

  // Wishes for the next control.
  void (*refuseCreation)(HRESULT result);
  void (*refuseActivation)(HRESULT result);
  void (*hideTypeInformation)(bool hidden);
  /// Describes more events of the shapes of the play state and of the position, see
  /// sendStationChange and sendScroll.
  void (*describeMoreEvents)(bool more);
  void (*startWithoutPicture)(bool without);

  // Wishes for every call.
  void (*failCalls)(HRESULT result);
  /// What the query 260 or 261 answers.
  void (*answer)(DISPID query, std::int32_t value);
  /// Every argument by reference gets this value after it was recorded.
  void (*writeBack)(std::int16_t value);
  /// Runs inside every call, after it was recorded. Null for nothing.
  void (*during)(void (*act)(void* context, DISPID member), void* context);
  /// Runs inside every activation, before the control has a window. Null for nothing.
  void (*duringActivation)(void (*act)(void* context), void* context);

  // The notifications, sent at once.
  void (*sendPlayState)(std::int32_t oldState, std::int32_t newState);
  void (*sendError)();
  void (*sendPosition)(std::int32_t position, std::int32_t length);
  void (*sendMouseMove)(std::int32_t x, std::int32_t y);
  void (*sendButtonDown)(std::int32_t x, std::int32_t y);
  void (*sendPreSeek)(std::int32_t oldTime, std::int32_t newTime);
  void (*sendBuffering)(std::int32_t flags, std::int16_t percent);
  void (*sendStationChange)(std::int32_t oldState, std::int32_t newState);
  void (*sendScroll)(std::int32_t position, std::int32_t length);

  /// The control's window, and the picture's inside it: null when there is none.
  HWND (*window)();
  HWND (*picture)();
  void (*makePicture)();
  void (*destroyPicture)();
};

/// The name of the library's function that hands out the table.
inline constexpr char kTestControlFunction[] = "testControl";
using TestControlFunction = const TestControlApi* (*)();

}  // namespace tessivo
