#!/usr/bin/env bash
# The whole program with long lists: what they cost at the start, at the end, and in memory.
#
#   bench/lists.sh [TIMES [ITEMS…]]   3 times unless said; 1 000, 10 000 and 100 000 items. PLAYER_PROGRAMS
#                                     names the folder of the program and of tests/make_playlist.exe
#                                     (build/x64)
#
# Runs on virtual monitors under Wine. Prints a table. What is done with a list while the program runs is
# measured by panel_bench.
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
times=${1:-3}
shift || true
sizes=("$@")
((${#sizes[@]})) || sizes=(0 1000 10000 100000)
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
PLAYER_NAME=bench-lists
folder=build/bench-lists

# fill ITEMS: rows like those that the program writes.
fill() {
  rm -f "$folder"/SysConfig*
  player_list "$folder" 3 40 build/media/film.mp4 >/dev/null
  sqlite3 "$folder/SysConfig" "
    delete from play_list where $1 = 0;
    with recursive n(i) as (select 2 union all select i + 1 from n where i < $1)
    insert into play_list select i, 'F20260101' || printf('%08d', i), 'film ' || i || '.mp4',
      'C:\\Videos\\a folder with a name of common length\\film ' || i || '.mp4', 0
    from n where $1 > 1"
}
milliseconds() { echo $(($(date +%s%N) / 1000000)); }

tests/media/make build/media
player_install "$folder"
desktop_start right
trap 'player_end; desktop_stop' EXIT
player_end
player_wine cmd /c exit  # Wine's services run from here on
row "items" "panel shown, ms" "left and saved, ms" "memory, MB" "at most, MB"
row --- --- --- --- ---
for items in "${sizes[@]}"; do
  rm -f "$folder"/{shown,left}
  for ((i = 0; i < times; ++i)); do
    fill "$items"
    bench/first_sight.py 'Tessivo 泰思维' - - 60 tools/wine-run --name "$PLAYER_NAME" --keep \
      "$folder/Tessivo.exe" | cut -d ' ' -f 1 >>"$folder/shown"
    sleep 2
    player=$(process_named Tessivo)
    memory=$(memory_of "$player")
    begin=$(milliseconds)
    player_drive close
    while [[ -d /proc/$player ]]; do sleep 0.005; done
    echo $(($(milliseconds) - begin)) >>"$folder/left"
  done
  # shellcheck disable=SC2086
  row "$items" "$(figures 0 <"$folder/shown")" "$(figures 0 <"$folder/left")" $memory
done
