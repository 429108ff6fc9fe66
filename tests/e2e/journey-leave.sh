#!/usr/bin/env bash
# Every way to leave, at every time: while nothing plays, while something does, while a start is
# pending, with each dialog and each menu open. The process ends soon and in order, what is to be
# kept is kept, nothing stays on the screen.
source "$(dirname "${BASH_SOURCE[0]}")/tray.sh"

stored() { sqlite3 "$folder/SysConfig" "$1"; }

# The files and the volume, changed since the start.
fresh() {
  begin "$@"
  player_drive volume 70
  volume=$(player_shows volume)
}
# is_kept FILES
is_kept() {
  found=$(stored "select (select count(*) from play_list), volume_value from sys")
  [[ $found == "$1|$volume" ]]
}
# From the middle of a film of 600 seconds.
position_is_kept() {
  found=$(stored 'select current_play_position, current_play_item_len from sys')
  [[ ${found#*|} == 600 ]] && ((${found%|*} >= 300 && ${found%|*} <= 320))
}

# leaves_from STATE WAY: STATE is a function that brings the player there, WAY one that decides.
leaves_from() {
  local state=$1 way=$2 files=("$clips/ten-minutes.mp4" "$clips/film.avi")
  engine_hangs=
  if [[ $state == pending ]]; then
    engine_hangs=yes
    files=("$clips/gsm.wav" "$clips/film.avi")
  fi
  fresh "${files[@]}"
  check "$state, $way: the player is there" "$state"
  if ! "before_$way"; then
    check "$state, $way: the way can be gone" false
    player_end
    return
  fi
  leaves "$state, $way" "$way"
  check "$state, $way: the list and the settings are kept" is_kept 2
  if [[ $state == playing ]]; then check "$state, $way: so is the position" position_is_kept; fi
}

stopped() { shows state '停止: '; }
playing() {
  player_drive play
  says_within 20 ' playing: .*ten-minutes' || return
  # Till then the slider ends elsewhere.
  player_wait 5 shows length 00:10:00 || return
  player_drive seek 300
  player_wait 5 is_at_300
}
is_at_300() {
  found="position $(player_shows progress)"
  ((${found#position } >= 300))
}
pending() {
  player_drive play
  sleep 2
  found=$(player_said "$folder" ' playing: \| error play error: ')
  [[ $found == 0 ]]
}
question() {
  open_tray_menu && choose 4 3 && player_wait 5 question_is_up
}
question_of_panel() {
  open_panel_menu && choose 3 2 && player_wait 5 question_is_up
}
about_of_tray() {
  open_tray_menu && choose 2 2 && player_wait 5 about_is_up
}
about_of_panel() {
  open_panel_menu && choose 2 1 && player_wait 5 about_is_up
}
notice() {
  middle_of lvPlayList
  printf '%s\n' "$many"/* | drop "$x" "$y" || return
  player_wait 10 dialog_says '您选择的文件数量太多！'
}
file_dialog() {
  click cmdPLAdd
  player_wait 5 dialog_on_left 'title 选择要添加到播放列表的文件|'
}
tray_menu() { open_tray_menu; }
panel_menu() { open_panel_menu; }
background_menu() { open_background_menu; }
list_menu() {
  at_row row-at 0
  xdotool mousemove "$x" "$y" click 3
  player_wait 5 menu_is_open
}
show_menu() {
  xdotool mousemove 1900 600 click 3
  player_wait 5 menu_is_open
}
open_list_of_rules() {
  click comboPlayRuler
  sleep 0.5
}
panel_hidden() { hide_panel; }

from_outside() { player_drive close; }
before_from_outside() { :; }
session_end() { player_drive session-ends; }
before_session_end() { :; }
by_tray() { answer cmdYes; }
before_by_tray() { question; }
# The question lies below.
by_question_below() { player_drive answer cmdYes; }
before_by_question_below() { question && "$over"; }
by_panel() { answer cmdYes; }
before_by_panel() { question_of_panel; }
by_background() { answer cmdYes; }
before_by_background() {
  open_background_menu && choose 1 1 && player_wait 5 question_is_up
}
by_close_box_of_show() { answer cmdYes; }
# Where it has one: not in full screen.
before_by_close_box_of_show() {
  click cmdSetScreen
  player_wait 5 shows screen-button '全屏到>' || return
  sleep 0.5
  xdotool search --name '^Tessivo 播放窗口$' windowactivate 2>/dev/null
  player_wait 5 has_x_focus 'Tessivo 播放窗口' || return
  key alt+F4
  player_wait 5 question_is_up
}

session_stays() {
  engine_hangs=
  fresh "$clips/ten-minutes.mp4"
  check "it plays" playing
  player_drive session-stays
  sleep 1
  check "a session that does not end after all: the show goes on" shows state '正在播放: '
  check "the icon stays" icons_are 1
  check "nothing is said" no_dialog
  leaves "after that, session end" session_end
}

journey leave
tray_start
journey_clip "$clips/ten-minutes.mp4" testsrc2 600 "${h264[@]}"
# Wine waits for ever for a picture or sound in it.
journey_clip "$clips/gsm.wav" testsrc 3 -vn -ar 8000 -ac 1 -c:a libgsm_ms
many=build/e2e/media/leave
mkdir -p "$many"
for number in {101..601}; do : >"$many/$number.avi"; done

for way in by_tray by_panel by_background from_outside session_end; do
  for state in stopped playing pending; do leaves_from "$state" "$way"; done
done
leaves_from playing by_close_box_of_show
leaves_from panel_hidden by_tray
for way in from_outside session_end; do
  for state in panel_hidden question question_of_panel about_of_tray about_of_panel notice file_dialog \
    tray_menu panel_menu background_menu list_menu show_menu open_list_of_rules; do
    leaves_from "$state" "$way"
  done
done
# The tray's menu also works over the panel's dialogs.
for state in about_of_panel notice file_dialog; do leaves_from "$state" by_tray; done
# And the other way round: what comes up over its question does not hold up a yes.
for over in about_of_panel file_dialog panel_menu; do
  leaves_from stopped by_question_below
done
session_stays
