#!/usr/bin/env bash
# How much processor time the player takes while it plays nothing and nobody touches it: with the
# screen saver off, and with it on, waiting for the user to be idle.
#
#   bench/idle-cpu.sh [SECONDS]   so long each, 300 unless said; PLAYER_PROGRAMS names the folder of
#                                 the program and of tests/make_playlist.exe (build/x64)
#
# Runs on virtual monitors under Wine. Prints the seconds of the player's process and those of Wine's
# server, which works for it, and the load of the machine over the last minute, for both a line.
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
seconds=${1:-300}
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/desktop
source tools/desktop
# shellcheck source=tools/player
source tools/player
PLAYER_NAME=idle-cpu
folder=build/idle-cpu

# Seconds of processor time, in the program and in the system for it.
spent_by() {
  awk -v ticks="$(getconf CLK_TCK)" '{ sub(/.*\) /, ""); print ($12 + $13) / ticks }' "/proc/$1/stat"
}
# The process of this environment with that name.
process_named() {
  local process
  for process in $(pgrep "$1"); do
    if tr '\0' '\n' <"/proc/$process/environ" | grep -q "^WINEPREFIX=.*/$PLAYER_NAME/"; then
      echo "$process"
    fi
  done
}

# measure WHAT ON
measure() {
  local player server player_before server_before
  rm -f "$folder"/SysConfig*
  player_list "$folder" 1 40
  sqlite3 "$folder/SysConfig" "update sys set screen_saver = $2, scr_sav_proc_name = 'none'"
  player_start "$folder"
  sleep 10
  player=$(process_named Tessivo)
  server=$(process_named wineserver)
  player_before=$(spent_by "$player")
  server_before=$(spent_by "$server")
  sleep "$seconds"
  awk -v what="$1" -v seconds="$seconds" -v p="$(spent_by "$player")" -v q="$player_before" \
    -v s="$(spent_by "$server")" -v t="$server_before" -v loaded="$(cut -d ' ' -f 1 /proc/loadavg)" \
    'BEGIN { printf "screen saver %s: player %.2f s, Wine server %.2f s in %d s; load %s\n", what, p - q,
      s - t, seconds, loaded }'
  player_drive close
  player_end
}

desktop_start right
trap 'player_end; desktop_stop' EXIT
player_end
player_install "$folder"
measure off 0
measure on 1
