#include "config/CheckUserFigure.h"

#include <algorithm>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr const char* kAdministrators = "administrators";

std::string listed(const std::vector<std::string>& groups) {
  if (groups.front().empty()) return "unknown";
  std::string all;
  for (const std::string& group : groups) all += (all.empty() ? "\"" : ", \"") + group + '"';
  return all;
}

}  // namespace

bool CheckUserFigure::boolUserBlongToAdminsGroup() const {
  const auto groups = GetUserGroups("", getCurrentUserName(), true);
  const std::string wanted = toUpper(kAdministrators);
  const bool belongs = !groups.front().empty() &&
                       std::any_of(groups.begin(), groups.end(),
                                   [&](const auto& group) { return toUpper(group) == wanted; });
  log_.info(std::string("file associations are ") + (belongs ? "open" : "locked") +
            " (by membership in the local group \"Administrators\"): the user's groups are " +
            listed(groups));
  return belongs;
}

std::vector<std::string> CheckUserFigure::GetUserGroups(const std::string& serverName,
                                                        const std::string& userName,
                                                        bool localGroups) const {
  std::vector<std::string> groups;
  std::uint32_t error = 0;
  if (localGroups) {
    error = accounts_.localGroupsOf("", userName, groups);
  } else {
    const std::string server = serverName.starts_with("\\\\") ? serverName : "\\\\" + serverName;
    error = accounts_.globalGroupsOf(server, userName, groups);
  }
  if (error != 0 || groups.empty()) return {""};
  return groups;
}

}  // namespace tessivo
