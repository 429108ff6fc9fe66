#!/usr/bin/env bash
# One instance: what a later start hands to the player that runs, and what else any program may send
# to it (tests/programs/send_request.cpp says how).
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
journey requests

film=$(player_windows_path "$clips/film.avi")
long=$(player_windows_path "$clips/long.mp4")
chinese=$(player_windows_path "$clips/中文 影片.mp4")
player=$(player_windows_path "$folder/Tessivo.exe")

# A player that it starts writes to the same output what the sound library has to say.
ask() {
  player_wine "$PLAYER_PROGRAMS/tests/send_request.exe" "$@" | tr -d '\r' | sed '/^ALSA lib/d'
}
asked() {
  found=$(ask "${@:2}" | tr '\n' '|')
  # shellcheck disable=SC2053  # a pattern
  [[ $found == $1 ]]
}
# A start of the program that is not the first: it ends by itself.
second_start() { TESSIVO_TIMEOUT=60 player_wine "$folder/Tessivo.exe" "$@"; }
# Only when the guard against bursts has gone.
calm_second_start() {
  sleep 0.4
  second_start "$@"
}
one_player() { asked '1|' players; }
minimise_panel() {
  xdotool search --onlyvisible --name '^Tessivo 泰思维$' windowminimize
  player_wait 10 shows panel-state minimised
}
rows_now() { player_shows rows; }
is_stopped() { player_drive stop && shows_within 5 state '停止: '; }
count_is() {
  found=$1
  [[ $1 == "$2" ]]
}

# -- The first start.
player_start "$folder"
check "started with nothing: the list is empty" shows rows 0
check "nothing plays" shows state '停止: '
check "the panel is there" panel_is visible
check "one process" one_player
player_drive close

player_start "$folder" -SMF
check "a first start with -SMF takes it for a file's name" \
  says_within 5 'not added, not a file: -SMF'
check "the list is empty" shows rows 0
player_drive close

player_start "$folder" "$film"
check "started with a file: it plays" says_within 20 ' playing: .*film.avi'
check "it is in the list" shows rows 1

# -- A second start without a file.
only_shows_panel() {
  local before
  before=$(rows_now)
  second_start && player_wait 5 panel_is visible && shows_within 5 panel-state normal &&
    shows in-front panel && shows rows "$before" && one_player
}
check "a second start shows the panel, nothing else" only_shows_panel
check "the panel can be hidden" hide_panel
check "the player goes on" one_player
check "a second start shows the hidden panel, nothing else" only_shows_panel
check "the panel can be minimised" minimise_panel
check "a second start shows the minimised panel, nothing else" only_shows_panel

# -- A second start with a file.
check "the panel can be hidden again" hide_panel
check "a second start with a name of Chinese characters and blanks" calm_second_start "$chinese"
check "the file plays" says_within 20 ' playing: .*中文 影片.mp4'
check "it is in the list, once" shows rows 2
check "by its name" row_is 1 '中文 影片.mp4'
check "the panel names it" shows_within 5 file '中文 影片.mp4'
check "the panel is shown" panel_is visible
check "one process" one_player
check "a second start with a file that is not there" calm_second_start 'Z:\no such\file.avi'
check "the player says so" says_within 5 'not added, not a file: Z:.no such.file.avi'
check "the list stays" shows rows 2
is_stopped

# -- While the player asks something.
asks_whether_to_leave() {
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == 'title 提示|text 您真的要关闭该程序吗?      |'* ]]
}
menu_is_there() { [[ -n $(player_drive menu) ]]; }
opens_question() {
  click cmdMenu
  player_wait 5 menu_is_there && key x && player_wait 5 asks_whether_to_leave
}
enter_says_no() {
  shows focus cmdNo && key Return && player_wait 5 no_dialog
}
check "the player asks whether to leave" opens_question
check "a second start then ends by itself" calm_second_start "$chinese"
check "its file is in the list" shows_within 5 rows 3
check "and plays" says_within 20 ' playing: .*中文 影片.mp4' 2
check "the question is still there" asks_whether_to_leave
check "Enter says no" enter_says_no
check "the player goes on" one_player
is_stopped

tray_asks_whether_to_leave() {
  player_drive icon 516 && player_wait 5 menu_is_there && key x && player_wait 5 asks_whether_to_leave
}
check "the tray asks whether to leave" tray_asks_whether_to_leave
check "a second start ends by itself again" calm_second_start
check "the question is still there" asks_whether_to_leave
check "with the keyboard: Enter says no" enter_says_no

# -- The guard against bursts.
twice() {
  local before refused
  before=$(rows_now)
  refused=$(player_said "$folder" 'less than 300 ms after another: .*long.mp4')
  asked 'answer * ms|answer * ms|' text "$film" pause 400 send-both "$long" &&
    said 'less than 300 ms after another: .*long.mp4' $((refused + 1)) &&
    shows_within 5 rows $((before + 1)) && row_is "$before" film.avi
}
check "of two requests at a time only the first is followed" twice
again() {
  local before
  before=$(rows_now)
  ask text "$film" pause 400 send pause 400 send >/dev/null
  shows_within 5 rows $((before + 2))
}
check "of two requests one after the other both are" again
show_after_file() {
  local before
  before=$(rows_now)
  hide_panel && ask text "$film" pause 400 send-both -SMF >/dev/null &&
    player_wait 5 panel_is visible && shows rows $((before + 1))
}
check "the panel is shown also right after a file" show_after_file
many_shows() {
  local before
  before=$(player_said "$folder" 'request: -SMF$')
  asked 'answered 100 of 100|' text -SMF flood 100 &&
    count_is "$(player_said "$folder" 'request: -SMF$')" $((before + 100))
}
check "a hundred wishes for the panel are all followed" many_shows
is_stopped

# What a request does to the list and the log. The guard lets all of them through.
sends() { ask text "$1" pause 400 "${@:2}" send >/dev/null; }
adds_a_row() {
  local before
  before=$(rows_now)
  "$@" && shows_within 5 rows $((before + 1))
}
# refused REASON COMMAND…: the player says why it does not follow, its list stays.
refused() {
  local before rows
  before=$(player_said "$folder" "request refused: $1$")
  rows=$(rows_now)
  "${@:2}" && says_within 5 "request refused: $1$" $((before + 1)) && shows rows "$rows"
}
# taken_as TEXT COMMAND…: the player takes it for exactly this text, which is no file.
taken_as() {
  local before rows
  before=$(player_said "$folder" "not added, not a file: $1$")
  rows=$(rows_now)
  "${@:2}" && says_within 5 "not added, not a file: $1$" $((before + 1)) && shows rows "$rows"
}
text_of() { printf 'y%.0s' $(seq "$1"); }

# -- Texts of any length.
check "999 characters by a second start" taken_as "$(text_of 999)" calm_second_start "$(text_of 999)"
check "999 characters by a request" taken_as "$(text_of 999)" sends "$(text_of 999)"
too_long_to_send() {
  local before
  before=$(rows_now)
  hide_panel && calm_second_start "$(text_of "$1")" &&
    says_within 5 "request not sent, too long: $1 characters" &&
    panel_is visible && shows rows "$before"
}
check "1000 are not sent by a second start, the panel is shown" too_long_to_send 1000
check "nor are 5000" too_long_to_send 5000
check "1000 characters by a request are refused" refused '2001 bytes' sends "$(text_of 1000)"
check "5000 too" refused '10001 bytes' sends "$(text_of 5000)"
check "a megabyte too" refused '1000000 bytes' sends y size 1000000

# -- Ill-formed ones.
check "the number 0 is refused" refused 'number 0' sends "$film" number 0
check "the number 2 is refused" refused 'number 2' sends -SMF number 2
check "an empty text is refused" refused empty sends ''
check "no bytes are refused" refused empty sends "$film" size 0
check "no address is refused" refused empty sends "$film" size 0 no-data
check "bytes that are all zero are refused" refused empty sends '' size 300
check "without the odd byte the text is the same" adds_a_row sends "$film" size $((${#film} * 2))
check "with all 2000 bytes too" adds_a_row sends "$film" size 2000
check "fewer bytes are a shorter text" taken_as 'Z:.i' sends 'Z:\in' size 8
check "an odd byte that is not zero is a character more" taken_as a.aviÌ sends a.avi behind 204
check "2000 bytes without an end are 1000 characters" \
  taken_as "$(text_of 1000)" sends "$(text_of 1000)" size 2000
posts_in_vain() {
  local before
  before=$(rows_now)
  asked 'not posted, error 1159|' pause 400 text "$film" post && shows rows "$before"
}
check "the message cannot be posted" posts_in_vain
check "after all that the player answers" adds_a_row sends "$film"
check "one process" one_player
is_stopped

# -- Many at once.
fifty() {
  local rows taken refused
  rows=$(rows_now)
  taken=$(player_said "$folder" 'request: .*film.avi')
  refused=$(player_said "$folder" 'less than 300 ms after another: .*film.avi')
  asked 'ended 50, code 0|' start 50 0 "$player" "$film" || return
  taken=$(($(player_said "$folder" 'request: .*film.avi') - taken))
  refused=$(($(player_said "$folder" 'less than 300 ms after another: .*film.avi') - refused))
  echo "of fifty $taken taken, $refused refused"
  count_is $((taken + refused)) 50 && ((taken >= 1)) && shows_within 10 rows $((rows + taken))
}
fifty_shows() {
  local before
  before=$(rows_now)
  hide_panel
  asked 'ended 50, code 0|' start 50 0 "$player" && player_wait 5 panel_is visible &&
    shows rows "$before"
}
check "fifty second starts with a file all end, each is taken or refused" fifty
check "one process" one_player
check "it answers: stop" is_stopped
check "fifty second starts without one all end, the panel is shown" fifty_shows
check "one process" one_player
check "the player still takes a file" adds_a_row calm_second_start "$film"

# -- A first instance that hangs.
second_start_gives_up() {
  local start=$SECONDS
  second_start "$film"
  found="$((SECONDS - start)) s"
  ((SECONDS - start <= 25))
}
ask freeze
check "while the player hangs a second start ends all the same" second_start_gives_up
check "the log says so" said 'request not answered: '
ask thaw
check "when the player goes on it takes a file" adds_a_row calm_second_start "$film"
check "one process" one_player

# -- A first instance that was killed.
player_drive kill
check "after a kill there is no player" asked 'send_request: no player|' players
player_start "$folder" "$film"
check "a start after a kill plays its file" says_within 20 ' playing: .*film.avi'
check "a second start is heard" adds_a_row calm_second_start "$chinese"
check "one process" one_player
player_drive close

# -- Two first starts.
starts() { player_said "$folder" ' start$'; }
two_at_once() {
  local before
  rm -f "$folder"/SysConfig*
  before=$(starts)
  asked 'ended 1, code 0|' start 2 1 "$player" "$film" && player_drive wait &&
    one_player && count_is "$(starts)" $((before + 1)) && is_stopped && ((1 <= $(rows_now))) &&
    player_drive close
}
for round in 1 2 3 4 5; do
  check "of two starts at the very same moment one stays, $round" two_at_once
done

# -- A request that comes before the player is ready.
rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
player_list "$folder" 3 40 "$clips/film.avi"
sqlite3 "$folder/SysConfig" "with recursive n(i) as (select 2 union all select i + 1 from n where i < 20000)
  insert into play_list (item_order, flag_for_play_list, file_name, file_path, is_play_item)
  select i, 'F2026' || printf('%08d', i), 'n' || i, 'Z:\\no\\such\\' || i || '.avi', 0 from n;"
early=(wait text "$chinese")
for _ in {1..200}; do early+=(send pause 5); done
ask "${early[@]}" >"$folder/early.txt" &
early_sender=$!
player_start "$folder"
wait "$early_sender" || true
too_early() { player_said "$folder" 'request refused: not ready yet'; }
in_time() { player_said "$folder" 'request: .*中文 影片.mp4'; }
early_is_harmless() {
  found="$(too_early) too early, $(in_time) in time, $(rows_now) rows"
  (($(too_early) + $(in_time) >= 1)) && [[ $(rows_now) == $((20000 + $(in_time))) ]]
}
check "requests from the first moment on are refused or followed, nothing else" early_is_harmless
echo "$found; $(grep -c '^answer' "$folder/early.txt") of 200 answered"
check "the player works" adds_a_row sends "$film"
player_drive close
check "it leaves in order" said ' stop$'
