#!/usr/bin/env bash
# The playlist by mouse and keyboard: the dialog that adds files, drops from another program,
# playing, the entry menu, ticks, deleting, moving.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
journey panel-list

media=$PWD/build/e2e/media/"中文 影片夹"
long=$media/long
many=$media/many
rm -rf "$media"
mkdir -p "$long" "$many"
for number in {1..4}; do cp "$clips/long.mp4" "$media/film-$number.mp4"; done
# In the dialog, where choosing takes long, few names of 150 characters; for drops many short ones.
for number in {101..340}; do : >"$long/$number-$(printf 'n%.0s' {1..142}).avi"; done
for number in {101..601}; do : >"$many/$number.avi"; done
player_list "$folder" 3 40 "$clips/long.mp4"
# Until something was chosen the system's dialog opens in the user's videos.
videos_are() {
  player_wine reg add \
    'HKCU\Software\Microsoft\Windows\CurrentVersion\Explorer\User Shell Folders' \
    /v 'My Videos' /t REG_EXPAND_SZ /d "$1" /f >/dev/null
}
videos_are "$(player_windows_path "$media")"
player_start "$folder"

system_dialog_is_up() {
  local place
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == 'title 选择要添加到播放列表的文件|'* ]] || return
  place=${found##*place }
  # Over the panel, and wholly on its monitor: the show's begins at 1280.
  read -r left top width height <<<"${place%|}"
  IFS=', ' read -r x y w h _ <<<"$(player_shows panel)"
  ((left >= 0 && left + width <= 1280 && left < x + w && x < left + width)) &&
    ((top < y + h && y < top + height))
}
open_add_dialog() {
  click cmdPLAdd
  player_wait 5 system_dialog_is_up
}
# answer_dialog TEXT: as the file name, then Enter.
answer_dialog() {
  xdotool type --delay 15 "$1"
  key Return
}

by_the_dialog() {
  check "the list has the keyboard from the start" shows_within 5 focus lvPlayList
  check "添加 opens the system's dialog over the panel" open_add_dialog
  desktop_screenshot "$shots/dialog.png"
  answer_dialog '"film-1.mp4" "film-2.mp4"'
  check "two files are added" shows_within 5 rows 3
  check "the first of them" row_is 1 film-1.mp4
  check "the second of them" row_is 2 film-2.mp4
  check "with its folder" test "${found#* | }" == "$(player_windows_path "$media/film-2.mp4")"
  check "the list has the keyboard" shows focus lvPlayList
  open_add_dialog
  answer_dialog film-3.mp4
  check "one file is added" shows_within 5 rows 4
  check "that one" row_is 3 film-3.mp4
  open_add_dialog
  key Escape
  check "Escape closes the dialog, and nothing is said" player_wait 5 no_dialog
  check "and nothing is added" shows count 4
  check "the list has the keyboard again" shows focus lvPlayList
}

# 240 names of 150 characters.
too_many_in_the_dialog() {
  open_add_dialog
  xdotool type --delay 15 long
  # Not Enter, which may only close the list of suggestions.
  key alt+o
  sleep 1
  # The first file, then all to the last one.
  xdotool mousemove "$((left + 200))" "$((top + 75))" click 1
  key shift+End
  sleep 1
  desktop_screenshot "$shots/many.png"
  key alt+o
  check "more names than there is room for give the message" \
    player_wait 30 dialog_says '错误：您选择的文件过多！'
  desktop_screenshot "$shots/too-many.png"
  check "Enter closes it" enter_closes_notice
  check "nothing is added" shows rows 4
}

by_a_drop() {
  local x y w h
  middle_of lvPlayList
  check "one file is dropped" drop "$x" "$y" "$media/film-4.mp4" </dev/null
  check "it is added" shows_within 5 rows 5
  check "under its name" row_is 4 film-4.mp4
  check "501 files are dropped" drop_first 501
  check "they are too many" player_wait 10 dialog_says '您选择的文件数量太多！'
  desktop_screenshot "$shots/drop-too-many.png"
  check "Enter closes the message" enter_closes_notice
  check "nothing is added" shows rows 5
  check "500 files are dropped" drop_first 500
  check "all of them are added" shows_within 30 rows 505
  check "the number says so" shows count 505
}
drop_first() {
  local files=("$many"/*)
  printf '%s\n' "${files[@]:0:$1}" | drop "$x" "$y"
}

playing() {
  check "a double click on a row: it plays" double_click_plays
  check "the panel says so" shows_within 5 file film-1.mp4
  click_row 2
  check "a click selects the row" shows_within 5 selected 2
  check "what plays is another one" shows file film-1.mp4
  key Return
  check "Enter plays the row" says_within 20 ' playing: .*film-2.mp4'
  check "the panel says that, too" shows_within 5 file film-2.mp4
}
double_click_plays() {
  click_row 1 2
  says_within 20 ' playing: .*film-1.mp4'
}

menu_is_open() {
  found=$(player_drive menu)
  [[ -n $found ]]
}
menu_is_closed() { ! menu_is_open; }
# Its corner: within a frame's width of the pointer.
menu_is_at_pointer() {
  local menu_x menu_y
  read -r menu_x menu_y _ < <(player_drive menu)
  found="menu at $menu_x $menu_y, pointer at $x $y"
  ((menu_x - x <= 6 && x - menu_x <= 6 && menu_y - y <= 6 && y - menu_y <= 6))
}
entry_menu() {
  at_row row-at 3
  xdotool mousemove "$x" "$y" click 3
  check "the right button opens the entry menu" player_wait 5 menu_is_open
  check "at the pointer" menu_is_at_pointer
  desktop_screenshot "$shots/entry-menu.png"
  key Escape
  check "Escape closes it" player_wait 5 menu_is_closed
  sleep 0.6  # sooner it would be a double click, which means nothing
  xdotool mousemove "$x" "$y" click 3
  player_wait 5 menu_is_open
  xdotool mousemove_relative 20 12 click 1
  check "its first entry plays the row" says_within 20 ' playing: .*film-3.mp4'
}

deleting() {
  tick_row 0
  tick_row 3
  check "the mouse ticks two rows" shows_within 5 ticked 2
  desktop_screenshot "$shots/ticked.png"
  click_row 1
  key Delete
  check "the Delete key takes them out" shows_within 5 count 503
  check "the first one" row_is 0 film-1.mp4
  check "and the one that played, whose successor is next" row_is 2 film-4.mp4
  check "the hint is not there" shows delete-hint no
  click cmdPLDelete
  check "with nothing ticked the button gives the hint" shows_within 2 delete-hint yes
  sleep 2
  check "which stays some seconds" shows delete-hint yes
  desktop_screenshot "$shots/hint.png"
  check "and goes away" shows_within 5 delete-hint no
  check "nothing was deleted" shows count 503
}

# The row moves while the button is held: after half a second once each 150 ms, and once at the
# release. Where the machine is busy timers come late.
holding_down() {
  local from held places expected
  click_row 0
  middle_of cmdPLDown
  from=$(date +%s%N)
  xdotool mousemove "$x" "$y" mousedown 1
  sleep 2
  xdotool mouseup 1
  held=$((($(date +%s%N) - from) / 1000000))
  sleep 0.5
  places=$(player_shows selected)
  expected=$(((held - 500) / 150 + 1))
  found="$places places in $held ms, expected $expected"
  ((places >= expected * 6 / 10 && places <= expected + 2)) && stays_selected "$places"
}
stays_selected() {
  sleep 0.5
  shows selected "$1" && row_is "$1" film-1.mp4
}
one_click() {
  local before
  before=$(player_shows selected)
  click "$1"
  sleep 1
  shows selected $((before + $2)) && row_is $((before + $2)) film-1.mp4
}
moving() {
  check "下移 held for two seconds moves the row as long" holding_down
  check "a short click on 下移 moves it once" one_click cmdPLDown 1
  check "a short click on 上移 moves it back" one_click cmdPLUp -1
}

deleting_all() {
  click_row 1 2
  check "something plays" shows_within 5 state '正在播放: '
  key ctrl+a
  check "Ctrl+A ticks all" shows_within 5 ticked 503
  click cmdPLDelete
  check "all are deleted" shows_within 30 rows 0
  check "the number says so" shows count 0
  check "it is stopped" shows state '停止: '
  check "no file is named" shows file ''
  check "nothing is heard" player_wait 10 is_silent
  desktop_screenshot "$shots/empty.png"
}
is_silent() {
  found=$(sound_level)
  at_most "$found" 0.0005
}

by_the_dialog
too_many_in_the_dialog
by_a_drop
playing
entry_menu
deleting
moving
deleting_all
player_drive close
check "it leaves in order" said ' stop$'
videos_are '%USERPROFILE%\Videos'
