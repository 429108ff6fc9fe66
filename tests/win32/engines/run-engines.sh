#!/usr/bin/env bash
# Runs the tests of the engines: real media on a desktop and a sound server of their own.
#
#   run-engines.sh [win32_tests.exe [FILTER]]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
program=${1:-$root/build/x64/tests/win32_tests.exe}
media=$root/build/media

"$root/tests/media/make" "$media"
# shellcheck source=tools/desktop
source "$root/tools/desktop"
desktop_start single
sound_start
export TESSIVO_TEST_MEDIA="Z:${media//\//\\}"

# Wine 8's media source crashes once in a great while when it is shut down (see docs/testing.md). A
# crash, the low byte of an access violation, is said and the suite run once more; a test that fails
# is never repeated.
readonly crashed=5
run() {
  local status=0
  "$root/tools/wine-run" --name engines "$program" --gtest_brief=1 --gtest_filter="$1" || status=$?
  if ((status != crashed)); then return "$status"; fi
  echo "NOTE: $1 crashed and is run once more"
  "$root/tools/wine-run" --name engines "$program" --gtest_brief=1 --gtest_filter="$1"
}

failed=0
for filter in "${2:-*MediaFoundation*OnDesktop.*}" "${2:-*DirectShow*OnDesktop.*}" \
  "${2:-WindowsMediaPlayerOnDesktop.*}"; do
  run "$filter" || failed=1
  [[ $# -lt 2 ]] || break
done
exit "$failed"
