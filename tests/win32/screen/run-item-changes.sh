#!/usr/bin/env bash
# Hundreds of items one after the other in the real playback window: what is left behind?
#
#   run-item-changes.sh [win32_tests.exe]
set -euo pipefail
# shellcheck source=tests/media/stage
source "$(dirname "${BASH_SOURCE[0]}")/../../media/stage"
program=${1:-$root/build/x64/tests/win32_tests.exe}

failed=0
for filter in EmbeddedItemChangesOnDesktop ControlItemChangesOnDesktop; do
  suite "$program" "$filter.*" || failed=1
done
exit "$failed"
