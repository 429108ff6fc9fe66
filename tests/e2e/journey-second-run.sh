#!/usr/bin/env bash
# What the first run leaves, the second finds: list, play mark, volume, loop mode, resume position.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey second-run

position_between() {
  local at
  at=$(player_shows progress)
  ((at >= $1 && at <= $2))
}

player_list "$folder" 3 40 "$clips/film.avi" "$clips/long.mp4" "$clips/中文 影片.mp4"
player_start "$folder" "$(player_windows_path "$clips/long.mp4")"
check "a file on the command line is added and plays" says_within 20 ' playing: .*long.mp4'
check "it is added behind the stored list" shows rows 4
check "the panel names it" shows_within 10 file long.mp4
player_drive seek 30 volume 77 loop
check "a seek takes playback there" player_wait 10 position_between 28 40
volume=$(player_shows volume)
position=$(player_shows progress)
player_drive close
check "it leaves in order" said ' stop$'

player_start "$folder"
check "the list is back" shows rows 4
check "the play item is back" shows file long.mp4
check "the volume is back" shows volume "$volume"
check "the loop mode is back" shows loop-button 单曲循环
check "the engine rule is back" shows rule 1
check "the position is back" position_between "$position" $((position + 2))
check "nothing plays by itself" shows state '停止: '
player_drive play
check "play goes on" says_within 20 ' playing: .*long.mp4' 2
sleep 2
check "from where it was left" position_between $((position)) $((position + 12))
player_drive stop
check "stop clears the position" shows_within 5 position 00:00:00
player_drive close
