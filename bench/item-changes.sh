#!/usr/bin/env bash
# How an item follows the other on the second monitor, by its pixels: how much later than it should, and
# how long it is black in between.
#
#   bench/item-changes.sh [ITEMS]   so many items of two seconds, 30 unless said, in two formats by turns;
#                                   for each engine alone, and for both by turns, where every other item is
#                                   one that the rule's first engine cannot play. PLAYER_PROGRAMS names the folder of the
#                                   program and of tests/make_playlist.exe (build/x64)
#
# Runs on virtual monitors under Wine. Prints a table with a line an engine.
set -euo pipefail
if [[ ${1:-} == -* ]]; then
  sed -n '2,/^set/s/^# \{0,1\}//p' "$0" >&2
  exit 2
fi
items=${1:-30}
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=bench/common.sh
source bench/common.sh
PLAYER_NAME=bench-item-changes
folder=build/bench-item-changes
clips=$folder-clips
seconds=2

avi=(-pix_fmt yuv420p -c:v mpeg4 -q:v 3 -c:a pcm_s16le)
mp4=(-pix_fmt yuv420p -c:v libx264 -preset ultrafast -c:a aac)
cinepak=(-pix_fmt rgb24 -c:v cinepak -c:a pcm_s16le)  # for DirectShow alone

make_clips() {
  local colour number=0
  mkdir -p "$clips"
  for colour in d02020 20d020 2020d0 d0d020 d020d0 20d0d0; do
    number=$((number + 1))
    if ((number % 2)); then
      clip "$clips/$number.avi" "$colour" "${avi[@]}"
      clip "$clips/other-$number.avi" "$colour" "${cinepak[@]}"
    else
      clip "$clips/$number.mp4" "$colour" "${mp4[@]}"
    fi
  done
}
# clip FILE COLOUR ENCODER_OPTION…
clip() {
  local file=$1 colour=$2
  shift 2
  if [[ -e $file ]]; then return; fi
  ffmpeg -v error -y -f lavfi -i "color=0x$colour:size=640x360:rate=25:duration=$seconds" \
    -f lavfi -i "sine=frequency=440:duration=$seconds" "$@" \
    "$clips/new-${file##*/}" </dev/null
  mv "$clips/new-${file##*/}" "$file"
}

# measure WHAT RULE CLIP…
measure() {
  local list=() all=("${@:3}") i watcher
  for ((i = 0; i < items; ++i)); do list+=("${all[i % ${#all[@]}]}"); done
  player_install "$folder"
  player_list "$folder" "$2" 40 "${list[@]}" >/dev/null
  player_start "$folder"
  bench/watch_pixels.py --items "$seconds" 1920 512 $((items * seconds + 12)) >"$folder/$2.txt" &
  watcher=$!
  sleep 1
  player_drive play
  wait "$watcher"
  row "$1" "$(tail -n 1 "$folder/$2.txt")"
  player_drive close
  player_end
}

make_clips
desktop_start right
sound_start
trap 'player_end; desktop_stop' EXIT
player_end
row "engine" "changes"
row --- ---
measure "Media Foundation" 3 "$clips"/[0-9].*
measure "DirectShow" 2 "$clips"/[0-9].*
measure "by turns" 1 "$clips"/other-1.avi "$clips"/2.mp4 "$clips"/other-3.avi "$clips"/4.mp4 \
  "$clips"/other-5.avi "$clips"/6.mp4
