#!/usr/bin/env bash
# Runs the tests of the monitor classes once for each layout of virtual monitors, each on an X
# server of its own.
#
#   run-layouts.sh [win32_tests.exe]
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
program=${1:-$root/build/x64/tests/win32_tests.exe}

# check LAYOUT MONITORS VIRTUAL_SCREEN ORDER TARGET [FILTER]: rectangles as left,top,width,height.
check() {
  echo "Layout: $1"
  TESSIVO_TEST_LAYOUT=$2 TESSIVO_TEST_VIRTUAL_SCREEN=$3 TESSIVO_TEST_ORDER=$4 \
    TESSIVO_TEST_TARGET=$5 "$root/tools/desktop" "$1" "$root/tools/wine-run" --name monitors \
    "$program" --gtest_brief=1 --gtest_filter="${6:-MonitorLayoutOnDesktop.*}" || failed=1
}

failed=0
main='0,0,1280,1024,primary'
check single "$main" '0,0,1280,1024' "$main" "$main"
check right "$main;1280,0,1280,1024" '0,0,2560,1024' "$main;1280,0,1280,1024" '1280,0,1280,1024'
check left "$main;-1280,0,1280,1024" '-1280,0,2560,1024' "$main;-1280,0,1280,1024" \
  '-1280,0,1280,1024'
check above "$main;0,-720,1280,720" '0,-720,1280,1744' "$main;0,-720,1280,720" '0,-720,1280,720'
three="$main;-1280,0,1280,1024;1280,0,1280,1024"
check three "$three" '-1280,0,3840,1024' "$three" '-1280,0,1280,1024'

folder=$(cd "$(dirname "$program")" && pwd)
TESSIVO_TEST_UNPLUG="$root/tests/win32/monitors/unplug.sh $folder/display_change.exe" \
  check right - - - - 'MonitorChangeOnDesktop.*'
exit "$failed"
