#pragma once

#include <cassert>
#include <exception>
#include <new>
#include <string>

#include "platform/Log.h"

namespace tessivo {

/// Runs what Windows calls us for. Nothing may be thrown into Windows, so an exception ends here:
/// it is our own mistake, stops a debug build and is logged otherwise. That there is no memory left
/// is nobody's: the event is given up, the program goes on.
template <typename Call>
void guarded(Log& log, Call call) noexcept {
  try {
    call();
  } catch (const std::bad_alloc&) {
    log.error("no memory for an event");  // a text that needs none itself
  } catch (const std::exception& e) {
    log.error(std::string("unexpected error in an event: ") + e.what());
    assert(!"an exception reached Windows");
  } catch (...) {
    log.error("unexpected error in an event");
    assert(!"an exception reached Windows");
  }
}

}  // namespace tessivo
