#pragma once

#include <string>

namespace tessivo {

/// Whether this process is the only one of its kind in the user's session. It stays the first until
/// it has ended, however it ends.
class SingleInstance {
 public:
  /// The name under which the processes know each other.
  explicit SingleInstance(const std::string& name);
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  bool isFirst() const { return isFirst_; }

 private:
  void* mutex_ = nullptr;
  bool isFirst_ = true;
};

}  // namespace tessivo
