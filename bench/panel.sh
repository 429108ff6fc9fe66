#!/usr/bin/env bash
# What is done with long lists in the panel while the program runs (panel_bench), as a table; three times.
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
measured=build/bench/panel
mkdir -p build/bench

for run in 1 2 3; do
  for size in "${sizes[@]}"; do  # each in a process of its own, for its memory
    env -u DISPLAY tools/wine-run --name bench-panel \
      "${BENCH_PROGRAMS:-build/x64-bench/bench}/panel_bench.exe" "$size"
  done | tr -d '\r' | sed -n '/|/p' >"$measured-$run"
done
# column N ITEMS WHAT
column() { cat "$measured"-[123] | awk -F '|' -v n="$1" -v items="$2" -v what="$3" '$1 == items && $2 == what { print $n }'; }
row items "what" "in all, ms" "longest turn of the message loop, ms" "most memory so far, MB"
row --- --- --- --- ---
cut -d '|' -f 1,2 "$measured-1" | awk '!seen[$0]++' | while IFS='|' read -r items what; do
  row "$items" "$what" "$(column 3 "$items" "$what" | figures 1)" "$(column 4 "$items" "$what" | figures 1)" \
    "$(column 5 "$items" "$what" | sort -n | tail -n 1)"
done
