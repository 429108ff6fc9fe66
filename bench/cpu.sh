#!/usr/bin/env bash
# Processor time and memory: while a film plays full screen on the second monitor, paused, stopped, and
# with nothing played and nobody touching it; beside an empty window.
#
#   bench/cpu.sh [SECONDS]   so long each, 60 unless said. PLAYER_PROGRAMS names the folder of the program
#                            and of tests/make_playlist.exe (build/x64), BENCH_PROGRAMS that of
#                            empty_window.exe (build/x64-bench/bench)
#
# Runs on virtual monitors under Wine. Prints a table: percent of one core, of the process and of Wine's
# server, which works for it.
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
seconds=${1:-60}
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
PLAYER_NAME=bench-cpu
folder=build/bench-cpu
programs=${BENCH_PROGRAMS:-build/x64-bench/bench}

# measure WHAT PROCESS
measure() {
  local server process_before server_before process_after server_after now most
  server=$(process_named wineserver)
  process_before=$(spent_by "$2")
  server_before=$(spent_by "$server")
  sleep "$seconds"
  process_after=$(spent_by "$2")
  server_after=$(spent_by "$server")
  read -r now most < <(memory_of "$2")
  row "$1" "$(percent "$process_before" "$process_after")" "$(percent "$server_before" "$server_after")" \
    "$now" "$most" "$(cut -d ' ' -f 1 /proc/loadavg)"
}
percent() { awk -v a="$1" -v b="$2" -v s="$seconds" 'BEGIN { printf "%.2f", (b - a) * 100 / s }'; }

# in_state STATE: what is measured has to be what is said.
in_state() {
  if player_wait 10 says "$1"; then return; fi
  echo "cpu.sh: the player does not say '$1'" >&2
  exit 1
}
says() { [[ $(player_shows state) == "$1"* ]]; }
player_with() {
  rm -f "$folder"/SysConfig*
  player_list "$folder" 3 40 "$@" >/dev/null
  sqlite3 "$folder/SysConfig" "update sys set recycle_play = 1, screen_saver = $saver"
  player_start "$folder" >/dev/null
  sleep 5
  player=$(process_named Tessivo)
}
leave() {
  player_drive close
  player_end
}

mkdir -p build/bench-media
film=build/bench-media/film.mp4
if [[ ! -e $film ]]; then
  ffmpeg -v error -y -f lavfi -i "testsrc2=size=640x360:rate=25:duration=600" \
    -f lavfi -i "sine=frequency=440:duration=600" -pix_fmt yuv420p -c:v libx264 -preset veryfast \
    -c:a aac "build/bench-media/new.mp4" </dev/null
  mv build/bench-media/new.mp4 "$film"
fi
desktop_start right
sound_start
trap 'player_end; desktop_stop' EXIT
player_end
player_install "$folder"

row "for $seconds s" "process, % of a core" "Wine's server, %" "memory, MB" "at most, MB" "load"
row --- --- --- --- --- ---
player_wine "$programs/empty_window.exe" $((seconds + 20)) &
sleep 5
measure "a program with an empty window" "$(process_named empty_window)"
player_end
player_wine "$programs/empty_window.exe" $((seconds + 20)) 100 &
sleep 5
measure "one that asks where the pointer is, ten times a second" "$(process_named empty_window)"
player_end
saver=0
player_with "$film"
player_drive play
in_state 正在播放
sleep 5
measure "Tessivo plays 640×360, full screen" "$player"
player_drive play
in_state 暂停播放
sleep 3
measure "paused" "$player"
player_drive stop
in_state 停止
sleep 3
measure "stopped" "$player"
leave
player_with
measure "nothing in the list" "$player"
leave
saver=1
player_with
measure "nothing in the list, waiting for the user to be idle" "$player"
leave
