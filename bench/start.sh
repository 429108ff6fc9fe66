#!/usr/bin/env bash
# From the start of the process to the panel and to the first picture on the second monitor, beside what
# a program with an empty window takes.
#
#   bench/start.sh [TIMES]    10 unless said. PLAYER_PROGRAMS names the folder of the program (build/x64),
#                             BENCH_PROGRAMS that of empty_window.exe (build/x64-bench/bench)
#
# Runs on virtual monitors under Wine, whose services run already. Prints a table, in milliseconds.
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
times=${1:-10}
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
PLAYER_NAME=bench-start
folder=build/bench-start
programs=${BENCH_PROGRAMS:-build/x64-bench/bench}

sees() { bench/first_sight.py "$@"; }
under_wine=(tools/wine-run --name "$PLAYER_NAME" --keep)

tests/media/make build/media
player_install "$folder"
player_list "$folder" 3 40 build/media/film.mp4 >/dev/null
desktop_start right
sound_start
trap 'player_end; desktop_stop' EXIT
player_end
# Keeps Wine's services alive between two starts.
player_wine "$programs/empty_window.exe" 3000 &
sleep 5
rm -f "$folder"/{empty,panel,picture}
for ((i = 0; i < times; ++i)); do
  # The title has the seconds: it is not the one that stays.
  read -r window _ < <(bench/first_sight.py 'empty window 2' - - 20 "${under_wine[@]}" \
    "$programs/empty_window.exe" 2)
  echo "$window" >>"$folder/empty"
  sleep 3
  read -r window picture < <(sees 'Tessivo 泰思维' 1920 512 20 "${under_wine[@]}" \
    "$folder/Tessivo.exe" "$(player_windows_path build/media/film.mp4)")
  echo "$window" >>"$folder/panel"
  echo "$picture" >>"$folder/picture"
  player_drive close
  player_wait 10 test -z "$(process_named Tessivo)"
done
row "from the start of the process, ms" "median (least to most)"
row --- ---
row "a program with an empty window: window shown" "$(figures 0 <"$folder/empty")"
row "Tessivo: panel shown" "$(figures 0 <"$folder/panel")"
row "Tessivo: first picture of the file it was started with" "$(figures 0 <"$folder/picture")"
