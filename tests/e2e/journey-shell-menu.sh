#!/usr/bin/env bash
# Files selected in Explorer reach the player through its context menu (tests/programs/shell_menu.cpp
# plays that part): all of them, in order, to the first start and to the player that runs.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey shell-menu

selected="$folder/选中 的 影片"
mkdir "$selected"
for i in {001..300}; do
  ln "$clips/long.mp4" "$selected/第 $i 部 a@b.mp4" || cp "$clips/long.mp4" "$selected/第 $i 部 a@b.mp4"
done
# selection FIRST LAST: the list of files that Explorer has selected.
selection() {
  local i
  for i in $(seq -f %03.0f "$1" "$2"); do player_windows_path "$selected/第 $i 部 a@b.mp4"; done \
    >"$folder/selection.txt"
}
# menu VERB [OPTION VALUE]…
menu() {
  player_wine "$PLAYER_PROGRAMS/tests/shell_menu.exe" "$(player_windows_path "$folder/Tessivo.exe")" \
    "$1" "$(player_windows_path "$folder/selection.txt")" "${@:2}" | tr -d '\r'
}
ends_well() {
  found=$(menu "$@")
  [[ $found == 'exit code 0' ]]
}
calm_menu() {
  sleep 0.4
  ends_well "$@"
}
# The names in the panel's list from that row on.
names_from() {
  local row rows arguments=()
  rows=$(player_shows rows)
  for ((row = $1; row < rows; ++row)); do arguments+=(cells "$row"); done
  if ((${#arguments[@]})); then player_drive "${arguments[@]}" | sed 's/ | .*//'; fi
}
# From that row on the list is what was selected, in order.
lists_selection() {
  local wanted got
  wanted=$(sed 's/.*\\//' "$folder/selection.txt")
  got=$(names_from "$1")
  found="$(wc -l <<<"$got") rows, the first: ${got%%$'\n'*}"
  [[ $got == "$wanted" ]]
}
plays_number() { says_within 20 " playing: .*第 $1 部 a@b.mp4"; }
never_played() { [[ $(player_said "$folder" ' playing: ') == 0 ]]; }
fresh() { rm -f "$folder"/SysConfig* "$folder"/Tessivo.log; }

# -- To the first start.
# first_start VERB FILES
first_start() {
  local what="first start, $2 files, verb $1"
  fresh
  selection 1 "$2"
  TESSIVO_TIMEOUT=86400 menu "$1" >"$folder/menu.txt" &
  PLAYER_PID=$!
  player_drive wait
  check "$what: all in the list" shows_within 20 rows "$2"
  check "$what: in order" lists_selection 0
  if (($1 == 1)); then
    check "$what: the first plays" plays_number 001
    check "$what: the panel names it" shows_within 5 file '第 001 部 a@b.mp4'
  else
    check "$what: nothing plays" shows state '停止: '
    check "$what: nothing has played" never_played
  fi
  player_drive close
  wait "$PLAYER_PID" || true
  PLAYER_PID=
  check "$what: it ends well" grep -qx 'exit code 0' "$folder/menu.txt"
}
for files in 1 2 300; do
  first_start 1 "$files"
  first_start 2 "$files"
done

fresh
player_start "$folder" 'DMenuF_1__/?%/NoSuchMapping/?%/100'
check "first start, a mapping that is not there: refused" says_within 5 'shell menu refused: '
check "first start, a mapping that is not there: the player is there, empty" shows rows 0
player_drive close

# -- To the player that runs.
fresh
player_start "$folder" "$(player_windows_path "$clips/film.avi")"
says_within 20 ' playing: .*film.avi'
player_drive stop
rows=1
at=1
# to_running VERB FILES: other files each time.
to_running() {
  local what="running player, $2 files, verb $1"
  selection "$at" $((at + $2 - 1))
  check "$what: the menu's start ends well" calm_menu "$1"
  check "$what: all in the list" shows_within 20 rows $((rows + $2))
  check "$what: in order" lists_selection "$rows"
  rows=$((rows + $2))
}
first_of_selection() { printf '%03d' "$at"; }

for files in 1 2; do
  to_running 2 "$files"
  check "add only: still stopped" shows state '停止: '
  at=$((at + files))
  to_running 1 "$files"
  check "add and play: the first of them plays" plays_number "$(first_of_selection)"
  check "the panel names it" shows_within 5 file "第 $(first_of_selection) 部 a@b.mp4"
  playing=$(player_said "$folder" ' playing: ')
  at=$((at + files))
  to_running 2 "$files"
  check "add only: it plays on" shows state '正在播放: '
  check "add only: the same file" shows file "第 $(printf '%03d' $((at - files))) 部 a@b.mp4"
  check "add only: nothing was started" test "$(player_said "$folder" ' playing: ')" = "$playing"
  player_drive stop
  at=$((at + files))
done
at=1
to_running 2 300
check "add only, 300: still stopped" shows state '停止: '
to_running 1 300
check "add and play, 300: the first of them plays" plays_number 001
check "add and play, 300: the panel names it" shows_within 5 file '第 001 部 a@b.mp4'
player_drive stop

# -- What no such component would write. The list stays and nothing plays.
selection 1 2
refused() {
  local before playing
  before=$(player_said "$folder" "shell menu refused: ")
  playing=$(player_said "$folder" ' playing: ')
  calm_menu "$@" && says_within 5 'shell menu refused: ' $((before + 1)) && shows rows "$rows" &&
    [[ $(player_said "$folder" ' playing: ') == "$playing" ]]
}
check "no fields: refused" refused 1 arguments DMenuF_1__
check "no size: refused" refused 1 arguments 'DMenuF_1__/?%/@NAME@'
check "a word for a size: refused" refused 1 size abc
check "a number and a word: refused" refused 2 size 12abc
check "an empty size: refused" refused 1 arguments 'DMenuF_2__/?%/@NAME@/?%/'
check "size 0: refused" refused 1 size 0
check "size -4: refused" refused 2 size -4
check "size 2147483647: refused" refused 1 size 2147483647
check "size 2147483648: refused" refused 1 size 2147483648
check "size 99999999999999999999: refused" refused 2 size 99999999999999999999
check "more than 64 MB: refused" refused 1 size 67108865
check "a mapping that is not there: refused" refused 1 name NoSuchMapping
check "a mapping without a name: refused" refused 1 arguments 'DMenuF_1__/?%//?%/100'
check "a name with a path: refused" refused 2 name '..\..\BaseNamedObjects\x'
check "the name of something else: refused" refused 1 name 'Tessivo play27182831415'

# adds FILES OPTION VALUE…: so many of the two files that are selected.
adds() {
  calm_menu 2 "${@:2}" && shows_within 5 rows $((rows + $1)) && rows=$((rows + $1))
}
bytes=$(($(tr -d '\n' <"$folder/selection.txt" | iconv -f UTF-8 -t UTF-16LE | wc -c) + 20))
check "a mapping smaller than announced is read as far as it goes" adds 2 size 67108864
check "without zero bytes behind the text" adds 2 pad 0
check "with many" adds 2 pad 5000
check "a size one character short of the text spoils the last file only" adds 1 size $((bytes - 2))
check "a size of one byte adds nothing" adds 0 size 1
check "a fourth field is nothing to the player" \
  adds 2 arguments 'DMenuF_2__/?%/@NAME@/?%/@SIZE@/?%/more'
: >"$folder/selection.txt"
check "an empty selection adds nothing" adds 0 pad 100
check "an unknown verb is a file's name" calm_menu 1 arguments 'DMenuF_3__/?%/@NAME@/?%/@SIZE@'
check "which is not there" says_within 5 'not added, not a file: DMenuF_3__/?%/TessivoShellMenu'
printf 'Z:\\no\\such.avi\n' >"$folder/selection.txt"
check "a file that is gone adds nothing" adds 0
selection 7 7
check "after all that the player adds and plays" calm_menu 1
check "the file is in the list" shows_within 5 rows $((rows + 1))
check "it plays" shows_within 5 state '正在播放: '
player_drive close
check "it leaves in order" said ' stop$'

# The list outlives the program: the names were stored as they are.
player_start "$folder"
check "the next run has them all" shows_within 20 rows $((rows + 1))
check "the last as it was selected" lists_selection "$rows"
player_drive play
check "it can be played" shows_within 10 state '正在播放: '
player_drive close
