// The version resource of a library of somebody else's.
#include <algorithm>

#include "fakes/FakeFileVersions.h"
#include "fuzz/Fuzz.h"
#include "prereq/CheckDllVer.h"
#include "prereq/VersionResource.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

void run(Input input) {
  const auto bytes = input.bytes();
  const auto version = parseVersionResource(bytes);
  FakeFileVersions versions;
  versions.files["x.dll"] = {bytes.begin(), bytes.end()};
  const std::string text = CheckDllVer(versions).GetVersionInfo("x.dll");
  holds(version.has_value() == (text != "N/A"), "a version has a text");
  if (!version) return;
  holds(std::ranges::count(text, '.') == 3, "four numbers");
  const auto& [major, minor, third, fourth] = *version;
  const auto made = versionResource(major, minor, third, fourth);
  holds(parseVersionResource(made) == version, "written it reads the same");
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
