#include "saver/rpiAPI.h"

#include <optional>
#include <vector>

#include "base/Text.h"

namespace tessivo::rpiAPI {
namespace {

constexpr std::size_t kFirstEntries = 25;
constexpr std::int32_t kNothingToLookFor = -1;
constexpr std::int32_t kNoProcesses = -2;

/// All of them: a buffer that was filled to its end may have been too small.
std::optional<std::vector<std::uint32_t>> runningProcesses(const Processes& processes) {
  std::vector<std::uint32_t> identifiers(kFirstEntries);
  for (;;) {
    const auto bytes = processes.enumerate(identifiers);
    if (!bytes) return std::nullopt;
    const std::size_t entries = *bytes / sizeof(std::uint32_t);
    if (entries < identifiers.size()) {
      identifiers.resize(entries);
      return identifiers;
    }
    identifiers.resize(identifiers.size() * 2);
  }
}

ProcessModule fixedNames(const char* name) {
  return {name, name};
}

/// Both names empty when the process may not be looked at.
ProcessModule moduleOf(const Processes& processes, std::uint32_t identifier) {
  // Processes of the system, which it does not let anybody look at.
  switch (identifier) {
    case 0:
      return fixedNames("Idle Process");
    case 2:
      return fixedNames("System");
    case 28:
      return fixedNames("csrss.exe");
    default:
      return processes.firstModule(identifier).value_or(ProcessModule{});
  }
}

}  // namespace

std::int32_t lngSearchProcess(const Processes& processes, std::string& fullPath,
                              const std::string& baseName, std::int32_t& count) {
  const auto identifiers = runningProcesses(processes);
  if (!identifiers) return kNoProcesses;
  count = 0;
  const bool byPath = !fullPath.empty();
  if (!byPath && baseName.empty()) return kNothingToLookFor;
  const std::string wanted = toUpper(byPath ? fullPath : baseName);
  std::uint32_t found = 0;
  for (const std::uint32_t identifier : *identifiers) {
    const ProcessModule module = moduleOf(processes, identifier);
    if (toUpper(byPath ? module.path : module.baseName) != wanted) continue;
    ++count;
    found = identifier;
    if (!byPath) fullPath = module.path;
  }
  return static_cast<std::int32_t>(found);
}

}  // namespace tessivo::rpiAPI
