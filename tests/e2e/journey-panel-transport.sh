#!/usr/bin/env bash
# The transport by mouse and keyboard: progress, volume, mute, engine rule, loop modes, full screen,
# and the two ways to change the window's height.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"

slider_end=13  # pixels beside the way of the thumb's middle

# on_slider NAME VALUE MOST: sets x, y.
on_slider() {
  place_of "$1"
  x=$((x + slider_end + (w - 2 * slider_end) * $2 / $3))
  y=$((y + h / 2))
}
# drag_from NAME VALUE MOST and drag_to likewise: the button stays down.
drag_from() {
  on_slider "$@"
  xdotool mousemove "$x" "$y" mousedown 1
}
drag_to() {
  on_slider "$@"
  xdotool mousemove "$x" "$y"
}
is_between() {
  found="$1 $(player_shows "$1")"
  ((${found##* } >= $2 && ${found##* } <= $3))
}
begin() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" "$@"
  player_start "$folder"
}
leaves() {
  player_drive close
  check "it leaves in order" said ' stop$'
}

# The test control writes down what it is asked: 269 is the new position.
seeks() { grep -c '^269 call' "$folder/calls.txt" || true; }
dragging_progress() {
  local before text
  journey_test_control 'play 60000'
  begin 2 60 "$clips/long.mp4"
  player_drive play
  check "it plays" says_within 20 ' playing: '
  check "progress arrives" player_wait 5 is_between progress 1 20
  before=$(seeks)
  drag_from sldJinDu 20 60
  drag_to sldJinDu 25 60
  check "the thumb goes with the pointer" player_wait 2 is_between progress 24 26
  sleep 2.5
  check "it stays under it while progress arrives" is_between progress 24 26
  drag_to sldJinDu 40 60
  sleep 1.5
  check "and goes on with it" is_between progress 39 41
  text=$(player_shows position)
  found=$text
  check "the time of the thumb is shown" test "$text" '>' 00:00:38
  found="$(seeks) seeks"
  check "nothing is sought yet" test "$(seeks)" == "$before"
  xdotool mouseup 1
  sleep 0.5
  check "the release seeks" player_wait 5 is_between progress 39 45
  sleep 1.5
  check "once" test "$(seeks)" == $((before + 1))
  check "from there it goes on" is_between progress 40 48
  key Right Right Right
  sleep 1
  check "each arrow key seeks" test "$(seeks)" == $((before + 4))
  check "a little on" is_between progress 42 54
  check "the slider has the keyboard" shows focus sldJinDu
  key Page_Up
  check "the page keys seek farther" player_wait 5 is_between progress 25 44
  leaves
}

is_silent() {
  found=$(sound_level)
  at_most "$found" 0.0005
}
is_heard() {
  found=$(sound_level)
  at_least "$found" 0.01
}
is_heard_between() {
  found=$(sound_level)
  at_least "$found" "$1" && at_most "$found" "$2"
}
sound() {
  begin 3 100 "$clips/long.mp4"
  player_drive play
  check "it is heard at full volume" player_wait 10 is_heard_between 0.075 0.1
  drag_from sldVolume 100 100
  drag_to sldVolume 60 100
  drag_to sldVolume 20 100
  check "while the volume is dragged it is heard so" player_wait 8 is_heard_between 0.0005 0.06
  check "the slider shows it" is_between volume 19 21
  drag_to sldVolume 80 100
  xdotool mouseup 1
  check "the volume of the release stays" player_wait 8 is_heard_between 0.02 0.095
  check "the slider shows that" is_between volume 79 81
  click picJingFangYin
  desktop_screenshot "$shots/muted.png"
  check "a click on the picture mutes" player_wait 8 is_silent
  check "it has the keyboard" shows focus picJingFangYin
  key space
  check "the space bar brings the sound back" player_wait 8 is_heard
  key space
  check "and takes it" player_wait 8 is_silent
  drag_from sldVolume 80 100
  drag_to sldVolume 90 100
  xdotool mouseup 1
  desktop_screenshot "$shots/volume.png"
  check "moving the volume shows sound as on" mute_picture_is sound-on
  leaves
}
# The pictures differ where the waves or the cross are: compared with the one shown when muted.
mute_picture_is() {
  local place
  place_of picJingFangYin
  place=${w}x$h+$x+$y
  /usr/bin/convert "$shots/muted.png" -crop "$place" +repage "$shots/mute-was.png"
  /usr/bin/convert "$shots/volume.png" -crop "$place" +repage "$shots/mute-is.png"
  found=$(/usr/bin/compare -metric AE -fuzz 10% "$shots/mute-was.png" "$shots/mute-is.png" null: 2>&1) ||
    true
  ((${found%%[. ]*} >= 10))
}

played() { said " playing: .*$1" "$2"; }
minimise() {
  xdotool search --name '^Tessivo 泰思维$' windowminimize
  player_wait 5 shows panel-state minimised
}
loop_modes() {
  local first second
  journey_clip "$clips/three-seconds-1.avi" testsrc 3 "${mpeg4[@]}"
  journey_clip "$clips/three-seconds-2.avi" smptebars 3 "${mpeg4[@]}"
  begin 3 40 "$clips/three-seconds-1.avi" "$clips/three-seconds-2.avi"
  check "it begins in order" shows loop-button 顺序播放
  click cmdRecyclePlayPL
  check "a click leads to single repeat" shows_within 2 loop-button 单曲循环
  click_row 0 2
  check "single repeat plays the same again" player_wait 15 played three-seconds-1 2
  check "and nothing else" test "$(player_said "$folder" ' playing: .*three-seconds-2')" == 0
  click cmdRecyclePlayPL
  check "the next click leads to the list loop" shows_within 2 loop-button 列表循环
  check "the list loop plays the next" player_wait 15 played three-seconds-2 1
  first=$(player_said "$folder" ' playing: .*three-seconds-1')
  check "and after the last the first" player_wait 15 played three-seconds-1 $((first + 1))
  click cmdRecyclePlayPL
  check "the third click leads back to in order" shows_within 2 loop-button 顺序播放
  second=$(player_said "$folder" ' playing: .*three-seconds-2')
  check "the panel is minimised" minimise
  check "in order plays the next" player_wait 15 played three-seconds-2 $((second + 1))
  check "at the end the panel comes up" player_wait 15 shows panel-state normal
  check "in front" shows in-front panel
  check "and it is stopped" shows_within 5 state '停止: '
  leaves
}

rule_change() {
  begin 3 40 "$clips/long.mp4"
  click_row 0 2
  check "Media Player plays" says_within 20 ' playing: .*long.mp4 | Media Player |'
  click comboPlayRuler
  sleep 0.5
  desktop_screenshot "$shots/rules.png"
  key Home Return
  check "another rule during playback: its engine plays on" \
    says_within 20 ' playing: .*long.mp4 | RealPlayer |'
  check "the panel says so" shows_within 5 state '正在播放: '
  check "the list shows the rule" shows rule 0
  click comboPlayRuler
  key Return
  sleep 1.5
  check "the same rule again changes nothing" test "$(player_said "$folder" ' playing: ')" == 2
}

screen_is() {
  found=$(player_shows screen)
  [[ $found == "$1 "* ]]
}
# Sets menu_x, menu_y, menu_w, menu_h.
screen_menu_is_open() {
  found=$(player_drive menu)
  read -r menu_x menu_y menu_w menu_h <<<"$found"
  [[ -n $menu_h ]]
}
is_under_button() {
  place_of cmdSetScreen
  found="menu at $menu_x $menu_y, button at $x $y $w $h"
  ((menu_x - x <= 4 && x - menu_x <= 4 && menu_y - y - h <= 4 && y + h - menu_y <= 4))
}
# choose N of 3, from 0.
choose() {
  click cmdSetScreen
  player_wait 5 screen_menu_is_open || return
  xdotool mousemove $((menu_x + DESKTOP_ORIGIN_X + 30)) \
    $((menu_y + DESKTOP_ORIGIN_Y + 3 + (menu_h - 6) * (2 * $1 + 1) / 6)) click 1
}
# The picture still plays full screen on the second monitor.
full_screen() {
  check "it is full screen on the second monitor" is_full_screen_right
  check "the button leads out of it" shows screen-button 退出全屏
  click cmdSetScreen
  check "it does" player_wait 5 screen_is 160,128,960,768
  check "now it leads to full screen" shows screen-button '全屏到>'
  click cmdSetScreen
  check "there is a choice" player_wait 5 screen_menu_is_open
  desktop_screenshot "$shots/screens.png"
  check "under the button" is_under_button
  key Escape
  check "取消 is chosen" choose 2
  sleep 1
  check "nothing changes" screen_is 160,128,960,768
  check "屏幕2 is chosen" choose 1
  check "the picture fills the second monitor" player_wait 5 is_full_screen_right
  check "the button says so" shows screen-button 退出全屏
  click cmdSetScreen
  player_wait 5 screen_is 160,128,960,768
  check "主屏幕 is chosen" choose 0
  check "the picture fills the main monitor" player_wait 5 screen_is 0,0,1280,1024
  check "the panel is in front of it" shows in-front panel
  desktop_screenshot "$shots/main-screen.png"
  click cmdSetScreen
  check "and back" player_wait 5 screen_is 160,128,960,768
}

panel_height() {
  IFS=', ' read -r _ _ _ panel_height _ <<<"$(player_shows panel)"
}
height_is_near() {
  panel_height
  found="height $panel_height"
  ((panel_height >= $1 - ${2:-1} && panel_height <= $1 + 1))
}
ends_below_separator() {
  local below
  place_of picSeparator
  below=$y
  place_of frmMain
  found="separator at $below, end at $((y + h))"
  ((y + h == below + 2))
}
# The window ends at the pointer, which takes hold of the border in its middle.
border=6
drag_border_to() {
  panel_height
  middle_of picBottomBorder
  y=$((y + $1 - panel_height))
  xdotool mousemove "$x" $((y - $1 + panel_height)) mousedown 1 mousemove "$x" "$y" mouseup 1
  sleep 0.5
}
heights() {
  local full
  panel_height
  full=$panel_height
  click cmdHideShowPL
  check "隐藏列表: no page is shown" shows_within 5 page none
  sleep 0.5
  check "the window ends two pixels below the separator" ends_below_separator
  desktop_screenshot "$shots/hidden.png"
  click cmdHideShowPL
  check "显示列表: the page is back" shows_within 5 page 1
  check "and the height" height_is_near "$full"
  drag_border_to $((full + 60))
  check "dragging the bottom border makes it higher" height_is_near $((full + 60)) "$border"
  full=$panel_height
  drag_border_to 280
  check "not as low as 4300 twips" height_is_near "$full"
  drag_border_to 300
  check "but a little higher than that" height_is_near 300 "$border"
  desktop_screenshot "$shots/low.png"
}

journey panel-transport
sound
loop_modes
rule_change
full_screen
heights
leaves
player_end
dragging_progress
