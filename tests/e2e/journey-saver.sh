#!/usr/bin/env bash
# A screen-saver program over the picture while nobody touches the machine: when it starts and over
# which place, what counts as a touch, and what happens when there is none, none that can be started,
# or one that never ends. The system's own screen saver meanwhile.
source "$(dirname "${BASH_SOURCE[0]}")/saver.sh"

title='Tessivo 播放窗口'
over_right="RUN##1280##0##1280##1024##1##$title"

# begin_saver LAYOUT FOLDER ON MINUTES NAME [FILE]: a player with these settings, the pointer over its
# panel, the place of its picture reported. Without a name there is not even the folder SSP.
begin_saver() {
  begin_untouched "$@"
  touch_mouse
  sleep 2.5
}

# The same, and nobody touches the machine.
begin_untouched() {
  local layout=$1 on=$3 minutes=$4 saver=$5 file=${6:-}
  if [[ -n $PLAYER_PID ]] && ! has_ended; then player_drive close; fi
  player_end
  desktop_layout "$layout"
  folder=$2
  player_install "$folder"
  if [[ -n $saver ]]; then saver_program "$saver" "$file"; fi
  player_list "$folder" 1 40 "$clips/long.mp4"
  saver_settings "$on" "$minutes" "$saver"
  player_start "$folder"
}

# The stand-in's own account of its last start.
noted_as() {
  found=$(notes_of "$saver_name" | sed -n 's/^start style \([0-9]*\) tick [0-9]*: /\1 /p' | tail -n 1)
  [[ $found == "4 \"$(log_path)\" $1" ]]
}

screen_place() {
  local place
  place=$(player_shows screen)
  echo "${place%% *}"
}
is_in_window() { [[ $(screen_place) != 1280,* ]]; }

# A name with a blank, in the player's usual folder.
program_over_the_show() {
  begin_saver right "build/e2e/saver" 1 0 '记 事'
  check "the picture is full screen" is_full_screen_right
  check "idle: the program starts" starts_again
  check "over exactly the second monitor" started_as "$over_right"
  check "it was started with these words, without the keyboard" player_wait 3 noted_as "$over_right"
  check "the log says that the user is idle" said 'the user is idle$'
  check "it starts once, as long as nobody touches anything" count_stays starts 4
  local before
  before=$(active_again)
  touch_mouse
  check "the mouse is moved: the log says active again" player_wait 4 more_than "$before" active_again
  check "idle once more: it starts once more" player_wait 4 more_than "$(($(starts) - 1))" starts
  player_wait 5 at_rest
  before=$(active_again)
  xdotool search --onlyvisible --name '^Tessivo 泰思维$' windowactivate 2>/dev/null
  player_wait 5 player_has_x_focus
  check "the keyboard alone: nothing yet" count_stays active_again 2
  key shift
  check "a key is pressed: active again" player_wait 4 more_than "$before" active_again
}
# As many starts as touches: it is idle now.
at_rest() {
  found="idle $(player_said "$folder" 'the user is idle$'), active $(active_again)"
  (($(player_said "$folder" 'the user is idle$') == $(active_again) + 1))
}

other_places() {
  player_drive play
  check "a film plays" says_within 20 ' playing: .*long.mp4'
  check "while it plays the program starts too" starts_again
  check "with the window's title as it is then" started_as "RUN##1280##0##1280##1024##1##$(title_now)"
  click cmdSetScreen
  check "out of full screen" player_wait 5 is_in_window
  sleep 2.5
  check "over a window: it starts" starts_again
  check "over the window's rectangle, and says that it is one" \
    started_as "RUN##$(screen_place | sed 's/,/##/g')##0##$title"
  check "which is not the whole monitor" started_as "RUN##160##128##960##768##0##$title"
  player_drive stop
}
title_now() { xdotool search --name '播放窗口' getwindowname 2>/dev/null | head -n 1; }

# Earlier than the playback window's first report of its place.
idle_from_the_start() {
  begin_untouched right build/e2e/saver-idle 1 0 stand-in
  check "idle from the start: it starts" player_wait 6 more_than 0 starts
  check "over the second monitor all the same" started_as "$over_right"
  check "once" count_stays starts 3
}

left_of_the_primary() {
  begin_saver left "build/e2e/saver-left" 1 0 stand-in
  check "left of the primary: it starts" starts_again
  check "negative coordinates" started_as "RUN##-1280##0##1280##1024##1##$title"
  check "as the program sees them" player_wait 3 noted_as "RUN##-1280##0##1280##1024##1##$title"
}

# Whoever splits the command line at a blank starts one of the others.
folder_with_blanks() {
  local beside=build/e2e/saver-blanks decoy
  rm -rf "$beside"
  mkdir -p "$beside"
  begin_saver right "$beside/a b/泰 思维" 1 0 '记 事'
  for decoy in "$beside/a.exe" "$beside/a b/泰.exe" "$folder/SSP/记.exe"; do
    cp "$PLAYER_PROGRAMS/tests/stand_in_saver.exe" "$decoy"
  done
  check "a folder with blanks and Chinese: it starts" starts_again
  check "the program meant" started_as "$over_right"
  check "with the words meant" player_wait 3 noted_as "$over_right"
  check "and no other" no_decoy_ran "$beside"
}
no_decoy_ran() {
  found=$(find "$1" -name '*.txt' ! -name '记 事.txt')
  [[ -z $found ]]
}

# fails_with NUMBER: the next idleness is a line in the log; the touch after it another.
fails_with() {
  local before failed
  failed=$(player_said "$folder" "screen saver not started, error $1: ")
  before=$(active_again)
  touch_mouse
  player_wait 6 fails_more "$1" "$failed" || return
  touch_mouse
  player_wait 4 more_than "$before" active_again && player_wait 4 fails_more "$1" $((failed + 1))
}
fails_more() {
  found=$(player_said "$folder" "screen saver not started, error $1: ")
  ((found > $2))
}
no_program() {
  begin_saver right build/e2e/saver-none 1 0 ''
  check "no folder, no name: a line in the log at each idleness" fails_with 3
  mkdir "$folder/SSP"
  check "an empty folder, no name: likewise" fails_with 2
  echo 'no program' >"$shots/text.exe"
  begin_saver right build/e2e/saver-none 1 0 text "$shots/text.exe"
  check "a program that is none: likewise" fails_with 193
  check "nothing started" test "$(starts)" == 0
  check "nothing is shown about it" no_dialog
  player_drive play
  check "the player plays" says_within 20 ' playing: .*long.mp4'
}

never_ends() {
  begin_saver right build/e2e/saver-stays 1 0 stays
  check "one that never ends: it starts" starts_again
  check "at the next idleness another copy" starts_again
  check "both run" test "$(noted stays '^start ')" -ge 2 -a "$(noted stays '^end ')" == 0
  player_drive play
  check "the player plays" says_within 20 ' playing: .*long.mp4'
  player_drive close
  check "and leaves in order" said ' stop$'
  check "they go on without it" test "$(noted stays '^end ')" == 0
  player_end
}

after_a_minute() {
  begin_saver right build/e2e/saver-minute 1 1 stand-in
  local from
  touch_mouse
  from=$SECONDS
  sleep 55
  check "a minute's delay: nothing after 55 s" test "$(starts)" == 0
  check "it starts" player_wait 12 more_than 0 starts
  check "after more than a minute" at_least "$((SECONDS - from))" 60
}

switched_off() {
  begin_saver right build/e2e/saver-off 0 0 stand-in
  touch_mouse
  sleep 5
  check "switched off: nothing starts" test "$(starts)" == 0
  check "nobody looks for idleness" test "$(player_said "$folder" 'the user is idle')" == 0
}

# The real program, beside the player where it is built.
clock() {
  begin_saver right build/e2e/saver-clock 1 0 时钟 "$PLAYER_PROGRAMS/SSP/时钟.exe"
  player_drive play
  check "a film plays" says_within 20 ' playing: .*long.mp4'
  check "the clock: it starts" starts_again
  check "its window covers the second monitor to the pixel" player_wait 5 clock_is_at 1280,0,1280,1024
  sleep 1.2
  desktop_screenshot "$shots/clock.png"
  check "something is drawn on it" \
    at_least "$(player_region "$shots/clock.png" 1280x1024+1280+0 standard_deviation)" 0.02
  # Upper and lower edge of the film, which is bright there; the clock may stand in one of them.
  check "nothing of the film is seen" film_is_covered
  check "the panel stays what it was" panel_is visible
  check "it stays while nobody touches anything" no_end 4
  local before
  before=$(active_again)
  touch_mouse
  check "the mouse is moved: it goes" player_wait 3 no_clock
  check "and the player waits again" player_wait 3 more_than "$before" active_again
  check "idle: it comes again" player_wait 6 clock_is_at 1280,0,1280,1024
  sleep 1
  xdotool mousemove 1900 500
  sleep 0.3
  xdotool mousemove 1920 520
  check "the mouse is moved over it: it goes, too" player_wait 3 no_clock
  sleep 0.3
  desktop_screenshot "$shots/film.png"
  check "and the film is seen again" player_picture_fills_right "$shots/film.png"
  check "it has not been disturbed" shows state '正在播放: '
  player_drive close
}
film_is_covered() {
  found="$(player_region "$shots/clock.png" 1280x60+1280+155 mean)"
  at_most "$found" 0.2 && at_most "$(player_region "$shots/clock.png" 1280x60+1280+810 mean)" 0.2
}
no_end() {
  sleep "$1"
  ! no_clock
}

journey saver
program_over_the_show
other_places
folder_with_blanks
no_program
never_ends
switched_off
after_a_minute
idle_from_the_start
left_of_the_primary
clock
