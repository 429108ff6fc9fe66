#!/usr/bin/env bash
# With one monitor the picture opens in a window; the mouse brings it to full screen and back.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey one-monitor single

screen_is() { [[ $(player_shows screen) == "$1 "* ]]; }
has_frame() { [[ $(player_shows screen) == *" style 16cf0000 visible" ]]; }
panel_is_above() {
  # What is seen in the middle of the panel is the panel: its light list, not the picture.
  at_least "$(brightness 40x40+640+600)" 0.8
}

player_list "$folder" "${1:-3}" 40 "$clips/long.mp4"
player_start "$folder"
check "the window opens centred, three quarters of the screen" screen_is 160,128,960,768
player_drive play
check "it plays" says_within 20 ' playing: '
xdotool mousemove 200 500 click --repeat 2 --delay 60 1
check "a double click fills the monitor" player_wait 5 screen_is 0,0,1280,1024
desktop_screenshot "$shots/full.png"
check "the control panel stays above the picture" player_wait 5 panel_is_above
xdotool mousemove 60 900 click 3
sleep 1
desktop_screenshot "$shots/menu.png"
check "the right button opens the menu" at_least "$(player_region "$shots/menu.png" 10x100+64+890 mean)" 0.5
xdotool key Escape
sleep 0.5
xdotool mousemove 60 900 click 3
sleep 1
xdotool key Up Up Return
check "the menu leads out of full screen" player_wait 5 screen_is 160,128,960,768
check "with a title bar and a frame" has_frame
player_drive close
check "it leaves in order" said ' stop$'
