#!/usr/bin/env bash
# The icon in a real notification area, its menu and its dialogs, by mouse and keyboard, while a film
# plays full screen: on the second monitor, then on the only one.
source "$(dirname "${BASH_SOURCE[0]}")/tray.sh"

# What the icon says when it appears: the system's only other window of that size.
left=0 width=9999
balloon_is_up() {
  local window
  for window in $(xdotool search --onlyvisible --class '^explorer.exe$'); do
    found=$(xwininfo -id "$window" |
      awk '/Absolute upper-left X/ { x = $4 } /Width/ { w = $2 } /Height/ { print x, w, $2 }')
    read -r left width height <<<"$found"
    if ((width > 100 && height > 50)); then return; fi
  done
  return 1
}
icon_is_drawn() {
  local place
  place=$(xwininfo -id "$(tray_icons | head -n 1)" |
    awk '/Absolute upper-left X/ { x = $4 } /Absolute upper-left Y/ { y = $4 } /Width/ { w = $2 }
      /Height/ { print w "x" $2 "+" x "+" y }')
  desktop_screenshot "$shots/icon.png"
  found="deviation $(player_region "$shots/icon.png" "$place" standard_deviation)"
  at_least "${found#deviation }" 0.05
}

show_goes_on() { shows state '正在播放: ' && is_full_screen_right; }
is_bright() {
  found="brightness $(brightness "$1")"
  at_least "${found#brightness }" 0.75
}
menu_is_on_left() {
  found="menu at $menu_x $menu_y $menu_w $menu_h"
  ((menu_x >= 0 && menu_y >= 0 && menu_x + menu_w <= 1280 && menu_y + menu_h <= 1024))
}
menu_is_seen() { is_bright "${menu_w}x$menu_h+$menu_x+$menu_y"; }
# Its lower left part, where there is neither a picture nor a button.
dialog_is_seen() {
  local x=$((dialog_x + DESKTOP_ORIGIN_X)) y=$((dialog_y + DESKTOP_ORIGIN_Y))
  is_bright "$((dialog_w / 2))x$((dialog_h / 5))+$((x + 10))+$((y + dialog_h * 4 / 5 - 10))"
}

the_icon() {
  check "the icon is there, once" icons_are 1
  check "it is drawn" player_wait 5 icon_is_drawn
  check "it says something" player_wait 5 balloon_is_up
  check "on the panel's monitor" test "$((left + width))" -le 1280
  desktop_screenshot "$shots/balloon.png"
}

clicks() {
  check "the panel's close box hides it" hide_panel
  check "and the show goes on" show_goes_on
  click_icon
  sleep 1.5
  check "a click on the icon does nothing" panel_is hidden
  check "no menu opens either" menu_is_closed
  double_click_icon
  check "a double click shows the panel" player_wait 5 panel_is visible
  check "in front" shows in-front panel
  xdotool search --name '^Tessivo 泰思维$' windowminimize
  check "the panel is minimised" player_wait 5 shows panel-state minimised
  click_icon
  sleep 1.5
  check "a click leaves it so" shows panel-state minimised
  double_click_icon
  check "a double click brings it back" player_wait 5 shows panel-state normal
  check "the show goes on" show_goes_on
}

the_menu() {
  check "the right button opens the menu" open_tray_menu
  check "on the panel's monitor" menu_is_on_left
  sleep 0.3
  check "it is seen" menu_is_seen
  desktop_screenshot "$shots/menu.png"
  key Escape
  check "Escape closes it" player_wait 3 menu_is_closed
  open_tray_menu
  xdotool mousemove 60 900 click 1
  check "a click on the desktop closes it" player_wait 3 menu_is_closed
  open_tray_menu
  place_of frmMain
  xdotool mousemove $((x + w - 4)) $((y + 4)) click 1
  check "a click on the panel closes it" player_wait 3 menu_is_closed
  open_tray_menu
  xdotool mousemove 1900 900 click 1
  check "a click on the show closes it" player_wait 3 menu_is_closed
  sleep 1.5  # the click may reach the picture as well, which brings the panel there
  check "the show goes on" show_goes_on
}

# by_mouse ENTRY BARS, by_key LETTER: in the tray's menu.
by_mouse() { open_tray_menu && choose "$1" "$2"; }
by_key() { open_tray_menu && key "$1"; }

# The end of the browser's command line.
help_page='\\Help\\FunctionIntroduce\.htm"$'
settings_are_up() { dialog_on_left 'title 设置|'; }

# entries HOW SHOW CONFIG ABOUT HELP EXIT: each what HOW needs to choose it.
entries() {
  local how=$1
  hide_panel
  # shellcheck disable=SC2086  # numbers of an entry
  {
    "$how" $2
    check "$how: 显示控制面板 shows it" player_wait 5 panel_is visible
    check "$how: in front" shows in-front panel
    "$how" $3
    check "$how: 设置 opens its dialog on the panel's monitor" player_wait 5 settings_are_up
    dialog_key Escape
    check "$how: Escape closes it" player_wait 5 no_dialog
    "$how" $4
    check "$how: 关于泰思维 opens its dialog on the panel's monitor" player_wait 5 about_is_up
    check "$how: it is seen" dialog_is_seen
    desktop_screenshot "$shots/about-$how.png"
    dialog_key Return
    check "$how: Enter closes it" player_wait 5 no_dialog
    opened=$(pages_opened "$help_page")
    "$how" $5
    check "$how: 使用说明 opens its page" player_wait 5 is_opened "$help_page" $((opened + 1))
    check "$how: and says nothing on the screen" no_dialog
    "$how" $6
    check "$how: 退出 asks" player_wait 5 question_is_up
    check "$how: it is seen" dialog_is_seen
    desktop_screenshot "$shots/question-$how.png"
  }
  check "$how: 否 is the default" shows focus cmdNo
  check "$how: the show goes on" show_goes_on
}

stays() {
  check "$1: the question is gone" player_wait 5 no_dialog
  check "$1: the show goes on" show_goes_on
  check "$1: the icon stays" icons_are 1
}
# To be called while the question is up.
refusals() {
  dialog_key Escape
  stays "Escape"
  by_mouse 4 3
  player_wait 5 question_is_up
  dialog_key Return
  stays "Enter, which means 否"
  by_mouse 4 3
  player_wait 5 question_is_up
  answer cmdNo
  stays "否"
  by_mouse 4 3
  player_wait 5 question_is_up
  dialog_key alt+F4
  stays "its close box"
}
with_panel_hidden() {
  hide_panel
  by_mouse 2 2
  check "hidden panel: 关于泰思维 opens on its monitor" player_wait 5 about_is_up
  dialog_key Return
  check "hidden panel: Enter closes it" player_wait 5 no_dialog
  by_mouse 4 3
  check "hidden panel: 退出 asks on its monitor" player_wait 5 question_is_up
  click_icon 3
  sleep 1
  check "hidden panel: no menu during the question" menu_is_closed
  check "hidden panel: which stays" question_is_up
  dialog_key Escape
  check "hidden panel: Escape closes it" player_wait 5 no_dialog
  check "hidden panel: it stays hidden" panel_is hidden
  check "hidden panel: the show goes on" show_goes_on
}

is_another_icon() {
  icons_are 1 || return
  found="icon $(tray_icons), before $1"
  [[ $(tray_icons) != "$1" ]]
}
new_task_bar() {
  local before
  before=$(tray_icons)
  player_drive taskbar-created
  check "a new task bar gets the icon anew" player_wait 5 is_another_icon "$before"
  player_drive taskbar-created taskbar-created
  sleep 1
  check "once" icons_are 1
  open_tray_menu
  check "it works" menu_is_on_left
  key Escape
  player_wait 3 menu_is_closed
}

yes_leaves() {
  by_mouse 4 3
  player_wait 5 question_is_up
  leaves "是 with the mouse" answer cmdYes
  begin "$clips/ten-minutes.mp4"
  by_mouse 4 3
  player_wait 5 question_is_up
  dialog_key Tab
  check "Tab leads to 是" shows_within 2 focus cmdYes
  leaves "是 with the keyboard" dialog_key space
}

after_a_kill() {
  begin "$clips/ten-minutes.mp4"
  player_drive kill
  wait "$PLAYER_PID" || true
  check "the system takes a killed player's icon away" player_wait 10 icons_are 0
  begin "$clips/ten-minutes.mp4"
  player_drive kill
  wait "$PLAYER_PID" || true
  begin "$clips/ten-minutes.mp4"
  check "after a kill and a new start there is one icon" player_wait 10 icons_are 1
  check "it works" open_tray_menu
  leaves "from outside, while its menu is open" player_drive close
}

on_two_monitors() {
  journey tray
  tray_start
  journey_clip "$clips/ten-minutes.mp4" testsrc2 600 "${h264[@]}"
  journey_browser
  begin "$clips/ten-minutes.mp4"
  player_drive play
  check "it plays" says_within 20 ' playing: '
  the_icon
  clicks
  the_menu
  entries by_mouse '0 0' '1 1' '2 2' '3 2' '4 3'
  refusals
  entries by_key s o a h x
  dialog_key Escape
  player_wait 5 no_dialog
  journey_no_browser
  with_panel_hidden
  new_task_bar
  yes_leaves
  after_a_kill
}

fills_the_monitor() {
  found=$(player_shows screen)
  [[ $found == '0,0,1280,1024 '* ]]
}
show_goes_on_alone() { shows state '正在播放: ' && fills_the_monitor; }
# The show covers the notification area, which keys still reach.
menu_by_keys() {
  xdotool mousemove 600 700
  player_drive icon 516
  player_wait 5 menu_is_open
}
on_one_monitor() {
  journey tray-one-monitor single
  tray_start
  begin "$clips/ten-minutes.mp4"
  player_drive play
  check "it plays" says_within 20 ' playing: '
  xdotool mousemove 200 500 click --repeat 2 --delay 60 1
  check "it fills the monitor" player_wait 5 fills_the_monitor
  check "the panel is hidden" hide_panel
  check "the menu opens" menu_by_keys
  sleep 0.3
  check "it is seen above the show" menu_is_seen
  desktop_screenshot "$shots/menu.png"
  choose 2 2
  check "关于泰思维 opens" player_wait 5 about_is_up
  check "it is seen above the show" player_wait 3 dialog_is_seen
  desktop_screenshot "$shots/about.png"
  dialog_key Return
  check "Enter closes it" player_wait 5 no_dialog
  menu_by_keys && choose 4 3
  check "退出 asks" player_wait 5 question_is_up
  check "it is seen above the show" player_wait 3 dialog_is_seen
  desktop_screenshot "$shots/question.png"
  dialog_key Escape
  check "Escape closes it" player_wait 5 no_dialog
  check "the show goes on" show_goes_on_alone
  player_drive icon 515
  check "the panel comes up" player_wait 5 panel_is visible
  check "above the show" shows in-front panel
  menu_by_keys && choose 4 3
  check "退出 asks" player_wait 5 question_is_up
  # Wine keeps the mouse for a window that fills the only monitor, over dialogs, too.
  dialog_key Tab
  check "Tab leads to 是" shows_within 2 focus cmdYes
  leaves "是" dialog_key space
}

on_two_monitors
player_end
desktop_stop
on_one_monitor
