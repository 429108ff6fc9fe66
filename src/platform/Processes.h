#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tessivo {

/// How a started program's first window comes up. The numbers are the system's.
enum class WindowStyle : std::uint16_t {
  normal = 1,         ///< with the keyboard
  normalNoFocus = 4,  ///< the keyboard stays where it is
};

/// The executable of a running process.
struct ProcessModule {
  std::string baseName;
  std::string path;
};

/// Other programs: starting one, looking at those that run.
class Processes {
 public:
  virtual ~Processes() = default;
  /// Starts the executable with exactly these arguments and does not wait for it. `program` is a
  /// full path; blanks in it need no quotes and never lead to another program. Returns 0, or the
  /// system's error when it could not be started.
  virtual std::uint32_t start(const std::string& program, const std::string& arguments,
                              WindowStyle style) = 0;
  /// Fills in the identifiers of the running processes, as many as there is room for, and returns
  /// the bytes filled; nothing when the system does not tell.
  virtual std::optional<std::uint32_t> enumerate(std::span<std::uint32_t> identifiers) const = 0;
  /// A process's executable, names cut at 259 characters; nothing when it may not be looked at or
  /// is gone.
  virtual std::optional<ProcessModule> firstModule(std::uint32_t identifier) const = 0;
};

}  // namespace tessivo
