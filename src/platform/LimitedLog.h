#pragma once

#include <cstdint>
#include <string>

#include "platform/Clock.h"
#include "platform/Log.h"

namespace tessivo {

/// The log for what anybody may cause as often as he likes. A hundred thousand lines of it would
/// push out everything else that the log remembers: kBurst lines pass at once, afterwards one each
/// kMsALine, and the next one that passes is told how many were left out.
class LimitedLog : public Log {
 public:
  static constexpr std::uint64_t kBurst = 500;
  static constexpr std::uint64_t kMsALine = 3000;

  /// Both must outlive this.
  LimitedLog(Log& log, const Clock& clock) : log_(log), clock_(clock) {}

  void info(std::string_view text) override;
  void error(std::string_view text) override;

 private:
  /// Whether a line may pass now; says how many did not before.
  bool mayPass();

  Log& log_;
  const Clock& clock_;
  std::uint64_t creditMs_ = kBurst * kMsALine;
  std::uint64_t since_ = 0;
  std::uint64_t leftOut_ = 0;
};

}  // namespace tessivo
