#!/usr/bin/env bash
# What is done with long lists in the panel while the program runs (panel_bench), as a table.
#
#   bench/panel.sh [ITEMS…]    1 000, 10 000 and 100 000 unless said. BENCH_PROGRAMS names the folder of
#                              panel_bench.exe (build/x64-bench/bench)
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
sizes=("$@")
((${#sizes[@]})) || sizes=(1000 10000 100000)
row items "what" "in all, ms" "longest turn of the message loop, ms"
row --- --- --- ---
env -u DISPLAY tools/wine-run --name bench-panel \
  "${BENCH_PROGRAMS:-build/x64-bench/bench}/panel_bench.exe" "${sizes[@]}" | tr -d '\r' |
  sed -nE -e 's/^ *([0-9]+) +(.*[^ ]) +([0-9.]+) ms +longest turn +([0-9.]+) ms$/| \1 | \2 | \3 | \4 |/p' \
    -e 's/^ *([0-9]+) +(.*[^ ]) +([0-9.]+) ms +hidden after ([0-9.]+) ms$/| \1 | \2 | \3 | hidden after \4 |/p'
