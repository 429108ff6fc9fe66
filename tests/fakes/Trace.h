#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tessivo {

/// What happened, in order. A scenario is compared as one text: "stop | path B | play".
class Trace {
 public:
  void add(std::string step) { steps_.push_back(std::move(step)); }
  /// What happened since the last call.
  std::string take() {
    std::string text;
    for (const std::string& step : std::exchange(steps_, {})) {
      text += (text.empty() ? "" : " | ") + step;
    }
    return text;
  }

 private:
  std::vector<std::string> steps_;
};

}  // namespace tessivo
