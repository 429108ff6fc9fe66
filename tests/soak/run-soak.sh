#!/usr/bin/env bash
# Endurance: the whole player, worked at random, with real engines, while a monitor comes and goes.
#
#   run-soak.sh [CHANGES [SEED]]    so many item changes, 130 unless said (a minute). 2000 take a quarter
#                                   of an hour. PLAYER_PROGRAMS names the folder of the programs
#                                   (build/x64)
#
# Prints what the process holds after the first changes, every 500, and at the end.
set -euo pipefail
changes=${1:-130}
seed=${2:-1}
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/desktop
source tools/desktop
# shellcheck source=tools/player
source tools/player
PLAYER_NAME=soak
folder=build/soak

# Not so often that the counting meets it each time.
unsteady_monitor() {
  while sleep 6; do
    desktop_layout single
    sleep 3
    desktop_layout right
  done
}

tests/media/make build/media
rm -rf "$folder"
mkdir -p "$folder"
cp "$PLAYER_PROGRAMS"/tests/soak.exe "$folder/"
desktop_start right
sound_start
player_end
unsteady_monitor >/dev/null 2>&1 &
monitor=$!
trap 'kill "$monitor" 2>/dev/null || true; player_end; desktop_stop' EXIT
status=0
TESSIVO_TIMEOUT=${TESSIVO_SOAK_TIMEOUT:-3600} player_wine "$folder/soak.exe" \
  "$(player_windows_path build/media)" "$changes" "$seed" || status=$?
if ((status)); then
  echo "FAIL soak: it ends in order (exit code $status)"
  tail -n 20 "$folder/Tessivo.log" 2>/dev/null | sed 's/^/  log: /'
fi
exit "$status"
