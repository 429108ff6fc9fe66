#include "platform/FileRoot.h"

#include <algorithm>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::string_view kSlashes = "\\/";
constexpr std::string_view kUnlimited = R"(\\?\)";
constexpr std::string_view kUnlimitedShare = R"(\\?\UNC\)";

bool isSlash(char c) {
  return kSlashes.find(c) != std::string_view::npos;
}

/// The server and its share, without the two slashes before them.
std::string shareOf(std::string_view path) {
  const auto server = path.find_first_of(kSlashes);
  const auto share =
      server == std::string_view::npos ? server : path.find_first_of(kSlashes, server + 1);
  std::string root = R"(\\)" + std::string(path.substr(0, share));
  std::ranges::replace(root, '/', '\\');
  return root;
}

}  // namespace

std::string rootOf(std::string_view path) {
  const std::string upper = toUpper(path);
  std::string_view rest = upper;
  if (rest.starts_with(kUnlimitedShare)) return shareOf(rest.substr(kUnlimitedShare.size()));
  if (rest.starts_with(kUnlimited)) rest.remove_prefix(kUnlimited.size());
  if (rest.size() >= 2 && rest[1] == ':') return std::string(rest.substr(0, 2));
  if (rest.size() >= 2 && isSlash(rest[0]) && isSlash(rest[1])) return shareOf(rest.substr(2));
  return "";
}

}  // namespace tessivo
