#include "config/RegAccess.h"

#include <array>
#include <optional>
#include <string_view>
#include <utility>

#include "base/Text.h"

namespace tessivo {
namespace {

struct Place {
  RegistryRoot root = RegistryRoot::classesRoot;
  std::string key;
  std::string name;
  bool isKey = false;
};

std::optional<RegistryRoot> rootNamed(std::string_view name) {
  using enum RegistryRoot;
  // Two of them have no short name.
  static constexpr std::array<std::pair<std::string_view, RegistryRoot>, 8> kRoots{{
      {"HKCR", classesRoot},
      {"HKEY_CLASSES_ROOT", classesRoot},
      {"HKCU", currentUser},
      {"HKEY_CURRENT_USER", currentUser},
      {"HKLM", localMachine},
      {"HKEY_LOCAL_MACHINE", localMachine},
      {"HKEY_USERS", users},
      {"HKEY_CURRENT_CONFIG", currentConfig},
  }};
  const std::string wanted = toUpper(name);
  for (const auto& [spelling, root] : kRoots) {
    if (spelling == wanted) return root;
  }
  return std::nullopt;
}

/// The key of a path that ends with several '\' is the same as with one.
std::string withoutBackslashes(std::string_view key) {
  return std::string(key.substr(0, key.find_last_not_of('\\') + 1));
}

/// Nothing when the path does not begin with a root and a '\', or names the root itself as a key,
/// which nobody is to write or delete. Nor when a name is missing right behind the root, where no
/// key begins: an identifier of the database may be empty.
std::optional<Place> placeOf(std::string_view path) {
  const auto rootEnd = path.find('\\');
  if (rootEnd == std::string_view::npos) return std::nullopt;
  const auto root = rootNamed(path.substr(0, rootEnd));
  if (!root) return std::nullopt;
  path.remove_prefix(rootEnd + 1);
  if (path.starts_with('\\')) return std::nullopt;
  const auto nameBegin = path.rfind('\\');
  if (nameBegin == std::string_view::npos) {
    if (path.empty()) return std::nullopt;
    return Place{*root, "", std::string(path)};
  }
  const std::string key = withoutBackslashes(path.substr(0, nameBegin));
  if (key.empty()) return std::nullopt;
  return Place{*root, key, std::string(path.substr(nameBegin + 1)), nameBegin + 1 == path.size()};
}

std::string quoted(const std::string& path) {
  return "registry key \"" + path + '"';
}

/// Carries the operation out at the place; the text begins what is said when that fails.
template <typename Operation>
bool attempt(const std::string& path, const Operation& operation, const std::string& failure,
             std::string& errorText, std::int32_t& errorFlag) {
  const auto place = placeOf(path);
  const std::uint32_t error = place ? operation(*place) : 0;
  if (place && error == 0) return true;
  errorText = place ? failure + ", error " + std::to_string(error) + "."
                    : "Invalid root in " + quoted(path) + ".";
  errorFlag = RegAccess::kFailed;
  return false;
}

}  // namespace

bool RegAccess::boolRegRead(const std::string& path, std::string& value, std::string& errorText,
                            std::int32_t& errorFlag) const {
  return attempt(
      path,
      [&](const Place& place) { return registry_.read(place.root, place.key, place.name, value); },
      "Unable to open " + quoted(path) + " for reading", errorText, errorFlag);
}

bool RegAccess::boolRegWrite(const std::string& path, const std::string& value,
                             std::string& errorText, std::int32_t& errorFlag) {
  return attempt(
      path,
      [&](const Place& place) { return registry_.write(place.root, place.key, place.name, value); },
      "Unable to open " + quoted(path) + " for writing", errorText, errorFlag);
}

bool RegAccess::boolRegDelete(const std::string& path, std::string& errorText,
                              std::int32_t& errorFlag) {
  return attempt(
      path,
      [&](const Place& place) {
        return place.isKey ? registry_.deleteKey(place.root, place.key)
                           : registry_.deleteValue(place.root, place.key, place.name);
      },
      "Unable to remove " + quoted(path), errorText, errorFlag);
}

}  // namespace tessivo
