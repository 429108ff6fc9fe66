#!/usr/bin/env bash
# What is to be heard of the engines: each plays a tone at full volume, at half, muted and paused into
# a silent sound server, whose output is recorded and measured.
#
#   run-sound.sh [win32_tests.exe]
set -euo pipefail
# shellcheck source=tests/media/stage
source "$(dirname "${BASH_SOURCE[0]}")/../media/stage"
program=${1:-$root/build/x64/tests/win32_tests.exe}

# level ENGINE STATE: the loudness while the engine is in the state; "error" when the program failed.
level() {
  local ready=$DESKTOP_DIR/ready player heard
  rm -f "$ready"
  TESSIVO_TEST_ENGINE=$1 TESSIVO_TEST_SOUND=$2 TESSIVO_TEST_READY="Z:${ready//\//\\}" \
    "$root/tools/wine-run" --name engines "$program" --gtest_filter='EngineSoundOnDesktop.*' \
    >"$DESKTOP_DIR/play.log" 2>&1 &
  player=$!
  if ! desktop_wait 60 "the $1 engine ($2)" test -e "$ready"; then
    kill "$player"
    cat "$DESKTOP_DIR/play.log" >&2
    echo error
    return
  fi
  heard=$(sound_level)
  wait "$player" || { echo error; return; }
  echo "$heard"
}

failed=0
# expect ENGINE STATE LOWEST HIGHEST
expect() {
  local heard
  heard=$(level "$1" "$2")
  if awk -v h="$heard" -v l="$3" -v u="$4" 'BEGIN { exit !(h ~ /^[0-9.]+$/ && h >= l && h <= u) }'
  then
    echo "PASS $1 $2: level $heard"
  else
    echo "FAIL $1 $2: level $heard, expected $3 to $4"
    failed=1
  fi
}

# The tone has a level of 0.088. All engines sound alike.
for engine in media_foundation direct_show; do
  expect "$engine" full 0.075 0.1
  expect "$engine" half 0.035 0.055
  expect "$engine" muted 0 0.0005
  expect "$engine" muted-later 0 0.0005
  expect "$engine" paused 0 0.0005
  expect "$engine" unmuted 0.075 0.1
done
# Wine's control can neither mute nor pause, and takes half the volume for half of 100 decibels.
expect windows_media_player full 0.075 0.1
expect windows_media_player half 0.0002 0.0004
exit "$failed"
