#!/usr/bin/env bash
# What a second start costs that hands a file to the player which runs already (hand_over_bench), as a
# table.
#
#   bench/hand-over.sh [TIMES]    20 unless said. PLAYER_PROGRAMS names the folder of the program (build/x64),
#                                 BENCH_PROGRAMS that of hand_over_bench.exe (build/x64-bench/bench)
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
PLAYER_NAME=bench-hand-over
folder=build/bench-hand-over

tests/media/make build/media
player_install "$folder"
desktop_start right
sound_start
trap 'player_end; desktop_stop' EXIT
player_end
row "milliseconds" least median most
row --- --- --- ---
player_wine "${BENCH_PROGRAMS:-build/x64-bench/bench}/hand_over_bench.exe" \
  "$(player_windows_path "$folder/Tessivo.exe")" "$(player_windows_path build/media/film.mp4)" "${1:-20}" |
  tr -d '\r' | sed -nE 's/^(.*[^ ]) +([0-9.]+) +([0-9.]+) +([0-9.]+)$/| \1 | \2 | \3 | \4 |/p'
