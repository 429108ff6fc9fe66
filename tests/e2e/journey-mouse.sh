#!/usr/bin/env bash
# The mouse on the picture: click, double click and the control menu, with each engine, because each
# has its own way of telling them.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

panel_is_on() {
  local left=$1 x w
  IFS=', ' read -r x _ w _ <<<"$(player_shows panel)"
  ((x >= left && x + w <= left + 1280))
}
screen_is() { [[ $(player_shows screen) == "$1 "* ]]; }
# Where the operator may have put it.
panel_to() {
  xdotool search --name '^Tessivo 泰思维$' windowmove --sync "$1" 300
  player_wait 5 panel_is_on "$2"
}
panel_is_in_front() { shows in-front panel; }

# The middles of the menu's entries, in pixels below its corner.
declare -A entry=(
  [播放]=11 [暂停]=28 [停止]=45 [放音]=71 [静音]=88 [全屏到]=114 [退出全屏]=114 [显示控制面板]=140)

# open_menu X Y; choose ENTRY X Y: with the right button there, then the left one on the entry.
open_menu() {
  xdotool mousemove "$1" "$2" click 3
  player_wait 5 menu_is_at "$1" "$2"
}
menu_is_at() {
  local left top
  found="menu $(player_drive menu)"
  read -r _ left top _ <<<"$found"
  [[ -n $left ]] && ((left >= $1 - 2 && left <= $1 + 2 && top >= $2 - 2 && top <= $2 + 2))
}
choose() {
  open_menu "$2" "$3" || return
  xdotool mousemove "$(($2 + 50))" "$(($3 + entry[$1]))" click 1
}
is_silent() { at_most "$(sound_level)" 0.0005; }
is_heard() { at_least "$(sound_level)" 0.01; }

click() { xdotool mousemove "$1" "$2" click 1; }
double_click() { xdotool mousemove "$1" "$2" click --repeat 2 --delay 60 1; }

on_the_second_monitor() {
  check "it starts in full screen on the second monitor" is_full_screen_right
  check "with the panel on the first" panel_is_on 0
  click 1920 450
  check "a click brings the panel to the picture's monitor" player_wait 5 panel_is_on 1280
  check "the panel is in front" panel_is_in_front
  check "the picture stays where it is" is_full_screen_right
  check "the panel goes where the operator puts it" panel_to 300 0
  double_click 1920 450
  check "a double click in full screen brings it back" player_wait 5 panel_is_on 1280
  check "the picture stays full screen" is_full_screen_right
  check "the right button opens the menu at the pointer" open_menu 1400 300
  desktop_screenshot "$shots/menu-full-screen.png"
  xdotool key Escape
}

commands_of_the_menu() {
  check "暂停 is chosen" choose 暂停 1400 300
  check "it pauses" shows_within 5 state '暂停播放: '
  check "播放 is chosen" choose 播放 1400 300
  check "it goes on" shows_within 5 state '正在播放: '
}

mute_and_sound() {
  check "静音 is chosen" choose 静音 1400 300
  check "nothing is heard" player_wait 10 is_silent
  check "放音 is chosen" choose 放音 1400 300
  check "the sound is back" player_wait 10 is_heard
}

# The window stands on the first monitor, in the middle of it.
in_normal_placement() {
  check "退出全屏 is chosen" choose 退出全屏 1400 300
  check "the window has its frame again" player_wait 5 screen_is 160,128,960,768
  check "the panel stays where it is" panel_is_on 1280
  double_click 300 400
  check "a double click fills the monitor under the pointer" \
    player_wait 5 screen_is 0,0,1280,1024
  # The release after it counts as a click with RealPlayer, Media Player tells it twice.
  check "the panel comes to that monitor" player_wait 5 panel_is_on 0
  check "退出全屏 is chosen on the first monitor" choose 退出全屏 60 300
  check "the window is where it was" player_wait 5 screen_is 160,128,960,768
  check "the panel is moved away" panel_to 1600 1280
  click 200 500
  check "a click brings the panel" player_wait 5 panel_is_on 0
  check "in front of the picture" panel_is_in_front
  desktop_screenshot "$shots/panel-in-front.png"
}

to_the_second_screen() {
  check "全屏到> is opened" choose 全屏到 200 300
  sleep 1
  desktop_screenshot "$shots/screens.png"
  # The list of screens opens beside the menu: the main one and the second one.
  xdotool mousemove 325 431 click 1
  check "屏幕2 fills the second monitor" player_wait 5 is_full_screen_right
  check "停止 is chosen" choose 停止 1400 300
  check "it stops" shows_within 5 state '停止: '
}

# with NAME RULE
with() {
  journey "mouse-$1"
  if [[ $1 == control ]]; then journey_test_control 'play 60000'; fi
  player_list "$folder" "$2" 60 "$clips/long.mp4"
  xdotool mousemove 640 900
  player_start "$folder"
  player_drive play
  check "it plays" says_within 20 ' playing: '
  # The panel's timer looks each second for a picture to catch.
  sleep 2
  on_the_second_monitor
  commands_of_the_menu
  if [[ $1 != control ]]; then mute_and_sound; fi
  in_normal_placement
  to_the_second_screen
  player_drive close
  check "it leaves in order" said ' stop$'
  player_end
  desktop_stop
}

with media-player 1
with real-player 2
with control 2
