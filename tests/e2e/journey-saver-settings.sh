#!/usr/bin/env bash
# What the program's settings do with screen-saver programs: the list of them, the preview, and their
# own settings, during which the window that asked is switched off. tests/programs/saver_caller.cpp is
# the one that asks.
source "$(dirname "${BASH_SOURCE[0]}")/saver.sh"

call() {
  player_wine "$PLAYER_PROGRAMS/tests/saver_caller.exe" "$1" "$(player_windows_path "$folder/SSP")" \
    "${@:2}" | tr -d '\r' >"$folder/caller.txt"
}
caller_said() {
  found=$(cat "$folder/caller.txt")
  grep -q -- "$1" "$folder/caller.txt"
}
names_are() {
  found=$(sed -n 's/^name [0-9]* |\(.*\)|$/\1/p' "$folder/caller.txt" | LC_ALL=C sort | tr '\n' '|')
  [[ $found == "$1" ]]
}
# caller_tick WHAT, noted_tick FILE WHAT [N]: when the caller said it, when the stand-in noted it (for
# the N-th time), in the system's milliseconds.
caller_tick() { sed -n "s/^\([0-9]*\) $1\$/\1/p" "$folder/caller.txt" | tail -n 1; }
noted_tick() { notes_of "$1" | sed -n "s/^$2.*tick \([0-9]*\).*/\1/p" | sed -n "${3:-1}p"; }
# between LEAST MOST FROM TO: the time between two ticks.
between() {
  found="${4:-never} - ${3:-never}"
  [[ -n $3 && -n $4 ]] || return
  found="$(($4 - $3)) ms"
  (($4 - $3 >= $1 && $4 - $3 <= $2))
}
notes_are_more() { (($(noted "$1" "$2") > $3)); }
# start_line NAME: style and command line of its last start.
start_line() { notes_of "$1" | sed -n 's/^start style \([0-9]*\) tick [0-9]*: /\1 /p' | tail -n 1; }
is_started() {
  found=$(start_line "$1")
  [[ $found == "$2" ]]
}
in_folder() { player_windows_path "$folder/SSP/$1.exe"; }
# One of the copies ends.
end_one() {
  : >"$folder/SSP/$1.end"
  player_wait 5 test ! -e "$folder/SSP/$1.end"
}
waiter_title() { sed -n 's/^[0-9]* waiter \(.*\) at .*/\1/p' "$folder/caller.txt" | head -n 1; }

list() {
  mkdir -p "$folder/SSP/folder.exe"
  local other
  for other in note.txt exe 'no extension' a.exe.bak; do : >"$folder/SSP/$other"; done
  call list
  check "a folder without a program: no name" names_are ''
  saver_program '记 事'
  saver_program 'two.points'
  cp "$PLAYER_PROGRAMS/tests/stand_in_saver.exe" "$folder/SSP/LOUD.EXE"
  call list
  check "the programs by name, and nothing else" names_are 'LOUD|two.points|记 事|'
  rm -r "$folder/SSP"
  call list
  check "no folder: no name" names_are ''
}

preview() {
  saver_program '记 事'
  call preview '记 事'
  check "a preview has its words, with a blank at the end" player_wait 5 is_started '记 事' \
    "4 \"$(in_folder '记 事')\" RUN##0##0##0##0##0## "
  saver_program 时钟 "$PLAYER_PROGRAMS/SSP/时钟.exe"
  xdotool mousemove 2000 600
  call preview 时钟
  check "the clock's covers the monitor under the pointer" player_wait 5 clock_is_at 1280,0,1280,1024
  check "and leaves the keyboard where it was" caller_said '^[0-9]* keyboard stays$'
  xdotool mousemove 2100 650
  check "till the mouse is moved" player_wait 5 no_clock
  call preview none
  check "without the program: a line in the log" caller_said '^error screen saver not started, error 2: '
}

own_settings() {
  saver_program settings
  call configure settings &
  local caller=$! ended
  check "the program starts" player_wait 15 notes_are_more settings '^window focus' 0
  sleep 1
  desktop_screenshot "$shots/settings.png"
  check "of the window that waits no more is seen than Wine makes of nothing" waiter_is_a_dot
  check "the caller and the program are seen" windows_named '^(saver_caller|stand_in_saver)$' 2
  end_one settings
  wait "$caller"
  check "it has the keyboard" test "$(noted settings '^window focus yes')" == 1
  check "its words: place and title of the window that waits" is_started settings \
    "1 \"$(in_folder settings)\" SHOW_CONFIG_FACE##300##200##$(waiter_title)"
  check "it finds that window" test "$(noted settings '^owner yes')" == 1
  check "the title is the time of day with a mark" title_is_a_time
  check "that window has no size" caller_said 'waiter .* at 300,200,0,0$'
  check "never" no_size_but_zero
  check "it starts 200 ms after it was asked for" between 190 900 "$(caller_tick 'owner off')" \
    "$(noted_tick settings start)"
  ended=$(noted_tick settings end)
  check "the owner is on again soon after the end" between 0 1000 "$ended" "$(caller_tick 'owner on')"
  check "and was off till then" between 0 1000 "$ended" "$(caller_tick returned)"
}
# Wine gives a window without a size one pixel of the X server's.
waiter_is_a_dot() {
  local window
  window=$(xdotool search --name '213ScrSavPramSet')
  [[ -n $window ]] || return
  found=$(xwininfo -frame -id "$window" | awk '/Width/ { w = $2 } /Height/ { print w "x" $2 }')
  [[ $found == 1x1 ]]
}
windows_named() {
  found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | wc -l)
  ((found == $2))
}
title_is_a_time() {
  found=$(waiter_title)
  [[ $found =~ ^([0-9]{1,5})(\.[0-9]{1,3})?213ScrSavPramSet$ ]] && ((10#${BASH_REMATCH[1]} <= 86400))
}
no_size_but_zero() {
  found=$(grep ' waiter ' "$folder/caller.txt" | grep -v ',0,0$' || true)
  [[ -z $found ]]
}

# The caller waits for the last one.
two_copies() {
  rm -f "$folder/SSP/settings.txt"
  call preview settings
  player_wait 5 notes_are_more settings '^window focus' 0
  call configure settings &
  local caller=$!
  check "of two copies the second one starts" player_wait 15 notes_are_more settings '^start' 1
  sleep 1
  end_one settings
  sleep 2
  check "when one has ended the caller still waits" kill -0 "$caller"
  end_one settings
  wait "$caller"
  local last
  last=$(noted_tick settings end 2)
  check "the owner comes back after the second one's end" between 0 1000 "$last" \
    "$(caller_tick 'owner on')"
  check "not after the first one's" between 2000 20000 "$(noted_tick settings end)" \
    "$(caller_tick 'owner on')"
}

# cannot_start NAME ERROR
cannot_start() {
  call configure "$1"
  check "$1: the log says so" caller_said "^error screen saver not started, error $2: "
  check "$1: the owner is off for a moment" between 450 1500 "$(caller_tick 'owner off')" \
    "$(caller_tick 'owner on')"
  check "$1: the window that waits goes 300 ms after it looked for the program" between 280 800 \
    "$(caller_tick 'waiter .* at 300,200,0,0')" "$(caller_tick returned)"
}

journey saver-settings
list
preview
own_settings
two_copies
cannot_start none 2
echo 'no program' >"$folder/SSP/text.exe"
cannot_start text 193
