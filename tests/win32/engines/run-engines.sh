#!/usr/bin/env bash
# Runs the tests of the embedded engines: real media on a desktop and a sound server of their own.
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

failed=0
for filter in "${2:-*MediaFoundation*OnDesktop.*}" "${2:-*DirectShow*OnDesktop.*}"; do
  "$root/tools/wine-run" --name engines "$program" --gtest_brief=1 --gtest_filter="$filter" ||
    failed=1
  [[ $# -lt 2 ]] || break
done
exit "$failed"
