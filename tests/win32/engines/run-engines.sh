#!/usr/bin/env bash
# Runs the tests of the engines: real media on a desktop and a sound server of their own.
#
#   run-engines.sh [win32_tests.exe [FILTER]]
set -euo pipefail
# shellcheck source=tests/media/stage
source "$(dirname "${BASH_SOURCE[0]}")/../../media/stage"
program=${1:-$root/build/x64/tests/win32_tests.exe}

failed=0
for filter in "${2:-*MediaFoundation*OnDesktop.*}" "${2:-*DirectShow*OnDesktop.*}" \
  "${2:-WindowsMediaPlayerOnDesktop.*}"; do
  suite "$program" "$filter" || failed=1
  [[ $# -lt 2 ]] || break
done
exit "$failed"
