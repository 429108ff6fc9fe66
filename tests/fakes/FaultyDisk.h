#pragma once

#include <string>

namespace tessivo {

/// A disk that fails when a test wants it to, between SQLite and the system. As long as it lives,
/// everything that SQLite opens lies on it; one at a time. The files are those of the folder.
///
/// What SQLite does to the disk (making a file, writing, cutting, removing, bringing to the disk)
/// are its steps. They count from 1, anew with each fault that is ordered.
class FaultyDisk {
 public:
  /// What is left of that which had been written, but not been brought to the disk, when the power
  /// went.
  enum class Left {
    all,      ///< as after the end of the process alone
    nothing,  ///< the disk had it all in its memory
    sectors,  ///< by chance, 512 bytes each, the write that was interrupted among them
  };
  enum class Error { full, inputOutput };
  enum class Lasts { once, untilMended };

  FaultyDisk();
  ~FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;

  /// At that step and from then on nothing reaches the disk, and nothing can be read. `seed` is
  /// for Left::sectors.
  void losePowerAt(int step, Left left, unsigned seed = 0);
  /// When the power is back: the files are as it left them. Needs all connections closed.
  void powerOn();

  /// The step fails. A full disk refuses to be written to and nothing else, so that only writes
  /// count as steps then.
  void failAt(int step, Error error, Lasts lasts);
  /// No fault any more.
  void mend();

  /// Whether the fault ordered last has happened.
  bool happened() const;
};

}  // namespace tessivo
