#pragma once

namespace tessivo {

/// While it lives, requests for memory (of operator new and of SQLite) are counted, and the
/// `request`-th fails; from then on each, when it `lasts`.
class FailingMemory {
 public:
  enum class Lasts { once, untilItGoes };
  FailingMemory(int request, Lasts lasts);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  /// Whether one has failed.
  bool happened() const;

  /// Once, before anything uses SQLite.
  static void prepare();
};

}  // namespace tessivo
