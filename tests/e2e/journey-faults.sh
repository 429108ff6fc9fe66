#!/usr/bin/env bash
# What goes wrong while the show runs, and that it goes on: docs/reliability.md, "Faults". Parts of it
# can be named: tests/e2e/journey-faults.sh leaving crash.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
wanted=("$@")

ask() {
  player_wine "$PLAYER_PROGRAMS/tests/send_request.exe" "$@" | tr -d '\r' | sed '/^ALSA lib/d'
}
# begin RULE FILE…: a list, which plays.
begin() {
  local rule=$1
  shift
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log* "$folder"/calls.txt
  player_list "$folder" "$rule" 40 "$@"
  player_start "$folder"
  player_drive play
}
stored() {
  found=$(sqlite3 "$folder/SysConfig" "$1")
  [[ $found == "$2" ]]
}
is_gone() { ! kill -0 "$PLAYER_PID" 2>/dev/null; }
leaves() { player_drive close && said ' stop$'; }

# -- An engine that does not come back from being closed.
leaving() {
  journey faults
  journey_test_control stuck
  begin 2 "$clips/film.avi" "$clips/long.mp4"
  check "stuck: it plays" says_within 20 ' playing: '
  player_drive volume 70
  local volume start=$SECONDS
  volume=$(player_shows volume)
  player_drive close || true
  found="$((SECONDS - start)) s"
  check "stuck: the process ends by itself" player_wait 10 is_gone
  check "stuck: within nine seconds, the driver's start among them" at_most $((SECONDS - start)) 9
  check "stuck: the log says so" said 'leaving hangs: the process is ended by force'
  check "stuck: the list is kept" stored 'select count(*) from play_list' 2
  check "stuck: so are the settings" stored 'select volume_value from sys' "$volume"
  player_end
  desktop_stop
}

# -- An engine that crashes, and one that throws.
saver_is() {
  found=$(xset q | sed -n 's/.*timeout: *\([0-9]*\).*/\1/p')
  if [[ $1 == on ]]; then [[ $found != 0 ]]; else [[ $found == 0 ]]; fi
}
crash() {
  journey faults
  xset s 600
  journey_test_control crash-thread
  rm -f "$folder"/Tessivo.log*
  player_list "$folder" 2 40 "$clips/film.avi" "$clips/long.mp4"
  player_start "$folder"
  check "crash: the system's saver is off while the player runs" player_wait 5 saver_is off
  player_drive play || true
  check "crash: the process is gone" player_wait 10 is_gone
  check "crash: the log says where" said 'error crash: exception 0xc0000005 at .* in .*TestControl.dll'
  check "crash: the system's saver is on again" player_wait 5 saver_is on
  check "crash: the list is whole" stored 'select count(*) from play_list' 2
  export TESSIVO_TEST_CONTROL_SCRIPT='play 60000'
  player_start "$folder"
  check "crash: the next start has the list" shows rows 2
  player_drive play
  check "crash: and plays" says_within 20 ' playing: '
  check "crash: and leaves" leaves
  player_end
  desktop_stop
}
throwing() {
  journey faults
  journey_test_control throw
  begin 0 "$clips/film.avi" "$clips/long.mp4"
  check "throw: the other engine plays" says_within 20 ' playing: .*film.avi | Media Player |'
  check "throw: the player goes on and leaves" leaves
  player_end
  desktop_stop
}

# -- Monitors: journey.sh's layouts, changed while the show runs.
unplug() {
  desktop_layout "$1"
  player_wine "$PLAYER_PROGRAMS/tests/display_change.exe"
}
screen_is() {
  found=$(player_shows screen)
  [[ $found == "$1 "* ]]
}
screen_is_within() { player_wait "$1" screen_is "$2"; }
# What is seen in the middle of the panel is the panel: its light list.
panel_is_seen() {
  local x y w h
  IFS=', ' read -r x y w h _ <<<"$(player_shows panel)"
  x=$((x + w / 2 + DESKTOP_ORIGIN_X - 20))
  y=$((y + h / 2 + DESKTOP_ORIGIN_Y - 20))
  found="panel at $x,$y"
  at_least "$(brightness "40x40+$x+$y")" 0.8
}
plays_on() {
  local before
  before=$(player_shows position)
  sleep 2.5
  found="$before, $(player_shows position)"
  [[ $(player_shows position) != "$before" ]]
}
menu_is_there() { [[ -n $(player_drive menu) ]]; }
asks() {
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == *'您真的要关闭该程序吗'* ]]
}
picture_at() {
  desktop_screenshot "$shots/now.png"
  at_least "$(player_region "$shots/now.png" "$1" standard_deviation)" 0.05
}
monitors() {
  journey faults right
  begin 3 "$clips/long.mp4"
  check "monitors: it plays" says_within 20 ' playing: '
  check "monitors: on the second one" player_wait 5 is_full_screen_right
  unplug single
  check "monitors: unplugged, the picture is in the middle of the first" screen_is_within 6 160,128,960,768
  sleep 1
  desktop_screenshot "$shots/unplugged.png"
  check "monitors: it is there" picture_at 120x480+165+260
  check "monitors: above it the panel" panel_is_seen
  check "monitors: it plays on" plays_on
  unplug right
  check "monitors: plugged in, it is back" player_wait 6 is_full_screen_right
  sleep 1
  desktop_screenshot "$shots/back.png"
  check "monitors: and fills that monitor" player_picture_fills_right "$shots/back.png"
  check "monitors: it plays on" plays_on
  for _ in 1 2; do
    unplug single
    unplug right
  done
  check "monitors: a cable that bounces changes nothing" player_wait 6 is_full_screen_right
  check "monitors: it plays on" plays_on
  # With a dialog of the panel: it stays, and is answered.
  click cmdMenu
  check "monitors: its menu opens" player_wait 5 menu_is_there
  key x
  check "monitors: the panel asks whether to leave" player_wait 5 asks
  unplug single
  check "monitors: unplugged behind the question, the picture goes to the first" \
    screen_is_within 6 160,128,960,768
  check "monitors: the question is still there" asks
  desktop_screenshot "$shots/question.png"
  player_drive answer cmdNo
  check "monitors: and is answered" player_wait 5 no_dialog
  unplug right
  check "monitors: plugged in, it is back again" player_wait 6 is_full_screen_right
  # Another resolution: the same corner, less of everything.
  desktop_layout right
  xrandr --delmonitor RIGHT
  xrandr --setmonitor RIGHT 800/200x600/150+1280+0 none
  player_wine "$PLAYER_PROGRAMS/tests/display_change.exe"
  check "monitors: another resolution is covered" screen_is_within 6 1280,0,800,600
  sleep 1
  desktop_screenshot "$shots/resolution.png"
  unplug right
  check "monitors: the old one again" player_wait 6 is_full_screen_right
  check "monitors: it leaves" leaves
  player_end
  desktop_stop
}
three_monitors() {
  journey faults three
  begin 3 "$clips/long.mp4"
  check "three: it plays" says_within 20 ' playing: '
  check "three: on the one at the left" screen_is_within 5 -1280,0,1280,1024
  unplug single
  check "three: all but one gone, the picture is in the middle of the first" \
    screen_is_within 6 160,128,960,768
  check "three: it plays on" plays_on
  unplug three
  check "three: it is back" screen_is_within 6 -1280,0,1280,1024
  check "three: it leaves" leaves
  player_end
  desktop_stop
}

# -- A share that does not answer.
# answers_within MS FOR_MS: the window's thread, asked again and again.
answers_within() {
  found=$(ask slowest "$2")
  [[ $found =~ ^slowest\ answer\ ([0-9]+)\ ms$ ]] && ((BASH_REMATCH[1] <= $1))
}
dead_place() {
  journey faults
  local sign=$folder/dead place=$folder/"dead place"
  gcc -shared -fPIC -O1 -o "$folder/dead_place.so" tests/e2e/dead_place.c -ldl
  mkdir -p "$place"
  cp "$clips/film.avi" "$place/film.avi"
  player_list "$folder" 3 40 "$place/film.avi" "$clips/long.mp4"
  journey_setting recycle_play 2
  journey_setting play_next_item_on_err 1
  touch "$sign"
  TESSIVO_DEAD_PLACE=$(realpath "$sign") LD_PRELOAD=$(realpath "$folder/dead_place.so") \
    player_start "$folder"
  check "dead place: the player is there" shows rows 2
  player_drive play
  # Once for the path, and once more where the engines are handed it.
  check "dead place: it answers meanwhile" answers_within 300 3000
  check "dead place: nothing of it plays" shows state '正在播放: '
  ask text "$(player_windows_path "$place/film.avi")" send >/dev/null &
  local sender=$!
  check "dead place: it answers, too, while more comes from there" answers_within 300 2000
  wait "$sender"
  check "dead place: after 30 s the engine is given up" \
    says_within 40 'no answer of Media Player for 30 s: .*dead place'
  check "dead place: the show goes on, past both" says_within 45 ' playing: .*long.mp4'
  rm "$sign"
  sleep 1
  ask pause 400 text "$(player_windows_path "$place/film.avi")" send >/dev/null
  check "dead place: when it answers again, its films play" \
    says_within 20 ' playing: .*dead place.film.avi'
  touch "$sign"
  ask pause 400 text "$(player_windows_path "$place/film.avi")" send >/dev/null
  check "dead place: it leaves while it hangs" leaves
  rm "$sign"
  player_end
  desktop_stop
}

# -- Requests without end.
memory_kb() { awk '/^VmRSS/ { print $2 }' "/proc/$1/status"; }
player_process() { pgrep -f -n "$folder/Tessivo.exe" || pgrep -f -n 'Tessivo.exe'; }
# flooded WHAT ARGUMENTS…: from four threads for ten seconds.
flooded() {
  local what=$1 before after sender
  shift
  before=$(memory_kb "$process")
  ask "$@" hammer 4 10000 >"$folder/hammer.txt" &
  sender=$!
  sleep 1
  check "flood, $what: it answers meanwhile" answers_within 1500 6000
  echo "  $found"
  wait "$sender"
  after=$(memory_kb "$process")
  echo "  $(<"$folder/hammer.txt"), $before KB before, $after KB after"
  found="$before KB before, $after KB after"
  player_drive pause 500 volume 30
  check "flood, $what: the panel works right after" shows volume 30
  player_drive volume 70
}
flood() {
  journey faults
  begin 3 "$clips/long.mp4" "$clips/film.avi"
  check "flood: it plays" says_within 20 ' playing: '
  process=$(player_process)
  sleep 3
  local begun
  begun=$(memory_kb "$process")
  flooded "another number" text y number 7
  flooded "too long" text y size 1000000
  flooded "no file" text 'Z:\no\such\file.avi'
  flooded "the panel" text -SMF
  flooded "a selection that is not there" text 'DMenuF_1__/?%/Nobody/?%/100'
  found="$begun KB before, $(memory_kb "$process") KB after"
  echo "  $found"
  # What Wine loses with the picture is in it.
  check "flood: memory is bounded" test $(($(memory_kb "$process") - begun)) -lt 60000
  local sizes
  sizes=$(cat "$folder"/Tessivo.log* | wc -c)
  found="$sizes bytes of log"
  echo "  $found"
  check "flood: the log is bounded" at_most "$sizes" 200000
  check "flood: it still knows of the start" test "$(player_said "$folder" ' info start$')" -ge 1
  check "flood: nothing of the list is lost" shows rows 2
  check "flood: a file is still taken" \
    test -n "$(ask pause 400 text "$(player_windows_path "$clips/film.avi")" send)"
  check "flood: it is in the list" shows_within 5 rows 3
  check "flood: it leaves" leaves
  player_end
  desktop_stop
}

# -- No sound device.
sound() {
  local server=${PULSE_SERVER:-}
  local rule
  for rule in 2 3; do
    journey faults
    server=$PULSE_SERVER
    export PULSE_SERVER=unix:/nowhere
    begin "$rule" "$clips/long.mp4"
    check "no sound device, rule $rule: the film plays" says_within 40 ' playing: '
    check "no sound device, rule $rule: it goes on" plays_on
    check "no sound device, rule $rule: it leaves" leaves
    export PULSE_SERVER=$server

    begin "$rule" "$clips/long.mp4" "$clips/film.avi"
    check "sound device gone, rule $rule: at first it plays" says_within 20 ' playing: '
    check "sound device gone, rule $rule: and is heard" at_least "$(sound_level)" 0.001
    kill "${DESKTOP_PIDS[-1]}"  # the sound server
    sleep 1
    check "sound device gone, rule $rule: it answers" answers_within 300 3000
    desktop_screenshot "$shots/no-sound-$rule.png"
    check "sound device gone, rule $rule: the film goes on" plays_on
    player_drive stop
    check "sound device gone, rule $rule: it can be stopped" shows_within 5 state '停止: '
    player_drive play
    check "sound device gone, rule $rule: and plays again" says_within 40 ' playing: ' 2
    check "sound device gone, rule $rule: it goes on" plays_on
    check "sound device gone, rule $rule: it leaves" leaves
    player_end
    desktop_stop
  done
}

parts=(leaving crash throwing monitors three_monitors dead_place flood sound)
for part in "${wanted[@]:-${parts[@]}}"; do "$part"; done
