#!/usr/bin/env bash
# Nothing hangs: not while a start is pending, not when the file or its folder vanishes, not over an
# address that never answers. Stop, another rule, another file and leaving take seconds at most.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey close
# Wine waits for ever for a picture or sound in it.
journey_clip "$clips/gsm.wav" testsrc 3 -vn -ar 8000 -ac 1 -c:a libgsm_ms
gone=build/e2e/media/going
declare -A engine=([2]=RealPlayer [3]='Media Player')

begin() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" "$1" 40 "${@:2}"
  player_start "$folder"
}
# within SECONDS COMMAND…: it succeeds, and in that time.
within() {
  local seconds=$1 start=$SECONDS
  shift
  "$@" && ((SECONDS - start <= seconds))
}
leaves() {
  check "$1: it leaves within seconds" within 5 player_drive close
  check "$1: in order" said ' stop$'
}
is_pending() { [[ $(player_said "$folder" ' playing: \| error play error: ') == 0 ]]; }

double_click_on_second_file() {
  local x y
  read -r x y < <(player_drive row-at 1)
  xdotool mousemove "$x" "$y" click --repeat 2 --delay 60 1
}

# Closed in the middle of the start, at several moments of it.
while_starting() {
  local rule=$1 milliseconds
  for milliseconds in 0 30 60 100 200; do
    begin "$rule" "$clips/long.mp4"
    check "rule $rule: closed $milliseconds ms after play it leaves within seconds" \
      within 5 player_drive play pause "$milliseconds" close
    check "in order" said ' stop$'
  done
}

while_pending() {
  local rule=$1 other=$((5 - $1))
  begin "$rule" "$clips/gsm.wav" "$clips/film.avi"
  player_drive play
  sleep 3
  check "rule $rule: a start is pending" is_pending
  check "rule $rule: stop answers" within 5 player_drive stop
  check "rule $rule: the panel says so" shows state '停止: '
  double_click_on_second_file
  check "rule $rule: another file abandons it" \
    says_within 10 " playing: .*film.avi | ${engine[$rule]} |"
  leaves "rule $rule, after another file"
  begin "$rule" "$clips/gsm.wav"
  player_drive play
  sleep 2
  # The panel's list begins with the rules 2 and 3.
  check "rule $rule: another rule answers" within 5 player_drive rule $((other - 2))
  check "rule $rule: its engine's turn" within 5 player_drive play
  sleep 2
  check "rule $rule: pending there, too" is_pending
  leaves "rule $rule, pending after another rule"
}

play_and_take_its_folder_away() {
  local rule=$1
  rm -rf "$gone" "$gone-away"
  mkdir -p "$gone"
  cp "$clips/long.mp4" "$gone/long.mp4"
  begin "$rule" "$gone/long.mp4"
  player_drive play
  check "rule $rule: it plays" says_within 20 " playing: .*long.mp4 | ${engine[$rule]} |"
  mv "$gone" "$gone-away"
  rm -r "$gone-away"
}
without_its_folder() {
  local rule=$1
  play_and_take_its_folder_away "$rule"
  sleep 2
  check "rule $rule, without its folder: what is open plays on" shows state '正在播放: '
  check "rule $rule, without its folder: pause answers" within 5 player_drive play
  check "rule $rule, without its folder: it pauses" shows state '暂停播放: '
  player_drive play
  check "rule $rule, without its folder: to go on it would have to be there" \
    shows_within 5 note 'long.mp4: 要播放的文件不存在.'
  leaves "rule $rule, without its folder"
  play_and_take_its_folder_away "$rule"
  # Under Wine a new position opens the file anew.
  check "rule $rule, without its folder: a seek answers" within 5 player_drive seek 40
  check "rule $rule, without its folder: it is said" \
    shows_within 5 note "long.mp4: ${journey_unplayable[$rule]}"
  check "rule $rule, without its folder: stop answers" within 5 player_drive stop
  leaves "rule $rule, without its folder, after a seek"
}

# Under Wine both engines refuse addresses at once; nowhere may one of them keep the panel waiting.
over_a_silent_address() {
  local rule=$1 address
  address=http://127.0.0.1:$(<"$folder/port")/film.avi
  begin "$rule" "$address"
  player_drive play
  check "rule $rule: the panel answers" within 5 player_drive show >"$folder/shown"
  check "rule $rule: stop answers" within 5 player_drive stop
  leaves "rule $rule, silent address"
}
silent_server_start() {
  python3 -c '
import socket, sys, time
server = socket.create_server(("127.0.0.1", 0))
open(sys.argv[1], "w").write(str(server.getsockname()[1]))
callers = []
while True: callers.append(server.accept())
' "$folder/port" &
  DESKTOP_PIDS+=($!)
  player_wait 10 test -s "$folder/port"
}

silent_server_start
for rule in 2 3; do
  while_starting "$rule"
  while_pending "$rule"
  without_its_folder "$rule"
  over_a_silent_address "$rule"
done
