#!/usr/bin/env bash
# A file that cannot be played, in the middle of the list and at its end: it leaves the list for the
# error log, and the loop mode and two settings say what follows.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"

broken=build/e2e/media/broken
row_count() { shows_within 5 count "$1"; }
minimise() {
  xdotool search --name '^Tessivo 泰思维$' windowminimize
  player_wait 5 shows panel-state minimised
}
played() { said " playing: .*$1" "$2"; }
# begin LOOP_MODE NEXT POPUP: two short films, each with a broken file behind it.
begin() {
  name="panel-errors, loop mode $1, next $2, panel $3"
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 3 40 "$clips/two-seconds-1.avi" "$broken/middle.avi" \
    "$clips/two-seconds-2.avi" "$broken/last.avi"
  journey_setting recycle_play "$1"
  journey_setting play_next_item_on_err "$2"
  journey_setting popu_main_face_for_err "$3"
  player_start "$folder"
  minimise
  player_drive play
}
# The panel came up, or it did not: 1 or 0.
panel_came_up() {
  if (($1 == 1)); then
    check "the panel comes up" shows_within 5 panel-state normal
    check "in front" shows_within 5 in-front panel
  else
    sleep 0.5
    check "the panel stays where it is" shows panel-state minimised
  fi
}
stands_in_log() {
  local row=$1 file=$2 time age
  found=$(player_drive error "$row")
  time=${found%% | *}
  age=$(($(date +%s) - $(date -d "$time" +%s)))
  [[ $found == "$time | ${journey_unplayable[3]} | $(player_windows_path "$file")" ]] &&
    ((age >= 0 && age <= 30))
}

in_the_middle() {
  check "the broken file in the middle is reached" \
    shows_within 15 note "middle.avi: ${journey_unplayable[3]}"
  check "it has left the list" row_count 3
  check "the next file has its row" row_is 1 two-seconds-2.avi
  check "the log has it with time, reason and path" stands_in_log 0 "$broken/middle.avi"
  check "the log counts one" shows errors 1
  check "the mark is set" shows error-mark yes
  if (($1 == 1)); then
    check "the next file plays" player_wait 10 played two-seconds-2 1
    check "the panel says so" shows_within 5 state '正在播放: '
  else
    check "it is stopped" shows_within 5 state '停止: '
    check "the next file is named" shows file two-seconds-2.avi
  fi
  panel_came_up "$2"
}

at_the_end() {
  local mode=$1 next=$2 popup=$3 before
  before=$(player_said "$folder" ' playing: .*two-seconds-1')
  check "the broken file at the end is reached" \
    shows_within 15 note "last.avi: ${journey_unplayable[3]}"
  check "it has left the list, too" row_count 2
  check "the log has it" stands_in_log 1 "$broken/last.avi"
  check "the log counts two" shows errors 2
  if ((mode == 2 && next == 1)); then
    check "the list begins again" player_wait 10 played two-seconds-1 $((before + 1))
  else
    check "it is stopped" shows_within 5 state '停止: '
    sleep 1
    check "nothing begins" test "$(player_said "$folder" ' playing: .*two-seconds-1')" == "$before"
  fi
  panel_came_up "$((mode != 2 || popup == 1))"
}

with() {
  begin "$@"
  in_the_middle "$2" "$3"
  minimise
  if (($2 == 0)); then player_drive play; fi
  at_the_end "$@"
  player_drive close
  check "it leaves in order" said ' stop$'
}

# The list is hidden when the error comes; then the log by mouse.
by_mouse() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 3 40 "$broken/middle.avi" "$clips/two-seconds-1.avi"
  journey_setting play_next_item_on_err 0
  journey_setting popu_main_face_for_err 0
  player_start "$folder"
  name=panel-errors
  click cmdHideShowPL
  check "the list is hidden" shows_within 5 page none
  click cmdPlay
  check "an error shows the list" shows_within 10 page 1
  check "with the mark" shows_within 5 error-mark yes
  desktop_screenshot "$shots/mark.png"
  click labPlayErrNote
  check "a click on the mark leads to the error log" shows_within 5 page 2
  check "which has the keyboard" shows focus lvPlayErrLogList
  check "the mark has gone" shows error-mark no
  desktop_screenshot "$shots/log.png"
  click cmdClearPlayErrLL
  check "清空 empties the log" shows_within 5 note ''
  check "the number says so" shows errors 0
  player_drive close
  check "it leaves in order" said ' stop$'
}

journey panel-errors
mkdir -p "$broken"
journey_random_bytes "$broken/middle.avi"
journey_random_bytes "$broken/last.avi"
journey_clip "$clips/two-seconds-1.avi" testsrc 2 "${mpeg4[@]}"
journey_clip "$clips/two-seconds-2.avi" smptebars 2 "${mpeg4[@]}"
by_mouse
for mode in 3 2; do
  for next in 0 1; do
    for popup in 0 1; do with "$mode" "$next" "$popup"; done
  done
done
