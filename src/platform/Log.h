#pragma once

#include <string_view>

namespace tessivo {

/// The operator's log: start, stop, play, errors with their reason, refused requests. One line an
/// entry, in English or Chinese, without line breaks. Never fails.
class Log {
 public:
  virtual ~Log() = default;
  virtual void info(std::string_view text) = 0;
  virtual void error(std::string_view text) = 0;
};

}  // namespace tessivo
