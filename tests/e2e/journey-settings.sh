#!/usr/bin/env bash
# The settings dialog from the panel's menu: what is saved, what is not, a screen-saver program's own
# settings and preview from there, and leaving while it is up. The file types are the subject of
# journey-associations.sh.
source "$(dirname "${BASH_SOURCE[0]}")/saver.sh"
source tests/e2e/settings.sh

setting_is() {
  found=$(sqlite3 "$folder/SysConfig" "select $1 from sys")
  [[ $found == "$2" ]]
}

saving_and_cancelling() {
  open_settings
  check "the dialog is up" settings_are_up
  check "over the panel's monitor" on_left "$(settings_window)"
  desktop_screenshot "$shots/first-tab.png"
  settings_key alt+n alt+m alt+s
  check "saving closes it" player_wait 3 settings_are_gone
  check "go on after an error: saved" setting_is play_next_item_on_err 1
  check "show the panel at an error: saved" setting_is popu_main_face_for_err 1
  check "what was not touched stays" setting_is "save_play_list || screen_saver" 11
  check "the program and its delay, too" setting_is "scr_sav_proc_name || screen_saver_delay_minute" 时钟12
  open_settings
  settings_key alt+n alt+k alt+c
  check "cancelled: it closes" player_wait 3 settings_are_gone
  check "and nothing changes" setting_is "play_next_item_on_err || save_play_list" 11
  open_settings
  settings_key alt+n Escape
  check "Esc likewise" player_wait 3 settings_are_gone
  check "nothing changes" setting_is play_next_item_on_err 1
}
on_left() {
  local left
  left=$(xwininfo -id "$1" | awk '/Absolute upper-left X/ { print $4 }')
  found="left edge $left"
  ((left >= 0 && left < 1280))
}

of_a_screen_saver() {
  open_settings
  settings_key alt+v
  check "the preview covers the pointer's monitor" player_wait 5 clock_is_at 0,0,1280,1024
  sleep 1
  touch_mouse
  check "a moved mouse ends it" player_wait 5 no_clock
  # A search for windows fails while one goes.
  check "the dialog is still there" player_wait 2 settings_are_up
  xdotool windowactivate "$(settings_window)"
  sleep 0.5
  settings_key alt+t
  check "the program's own settings come up" player_wait 5 program_settings_are_up
  check "over the same monitor" on_left "$(program_settings)"
  desktop_screenshot "$shots/program-settings.png"
  settings_key alt+s
  check "the dialog is switched off meanwhile" settings_are_up
  xdotool windowactivate "$(program_settings)"
  settings_key Escape
  check "they close" player_wait 3 program_settings_are_gone
  sleep 1
  xdotool windowactivate "$(settings_window)"
  settings_key alt+c
  check "and the dialog is back" player_wait 3 settings_are_gone
}
program_settings() { xdotool search --onlyvisible --name '^时钟 *设置$' 2>/dev/null | head -n 1; }
program_settings_are_up() { [[ -n $(program_settings) ]]; }
program_settings_are_gone() { [[ -z $(program_settings) ]]; }

# opens KEY END: that key starts the browser once more, with an address or a path of that end.
opens() {
  local before
  before=$(pages_opened "$2\"$")
  settings_key "$1"
  player_wait 8 is_opened "$2\"$" $((before + 1))
}
help_from_everywhere() {
  journey_browser
  xdotool search --onlyvisible --name '^Tessivo 泰思维$' windowactivate
  sleep 0.5
  check "F1 in the panel opens the help page" opens F1 '\\Help\\FunctionIntroduce\.htm'
  open_settings
  check "F1 on the first tab opens its part" opens F1 ' "file:///Z:/.*/Help/FunctionIntroduce\.htm#Item3'
  open_file_types
  check "F1 on the second tab opens its part" opens F1 '/Help/FunctionIntroduce\.htm#Item10'
  check "the button, too" opens alt+h '/Help/FunctionIntroduce\.htm#Item10'
  settings_key Escape
  check "and the dialog closes" player_wait 3 settings_are_gone
  check "nothing was in the way" test "$(player_said "$folder" 'cannot open')" == 0
  journey_no_browser
}

leaving_meanwhile() {
  open_settings
  settings_key alt+n
  check "the program is ended while the dialog is up" leaves_at_once
  check "what was not saved is not" setting_is play_next_item_on_err 1
}
leaves_at_once() {
  player_drive close
  player_wait 5 has_ended
}

journey settings
player_savers "$folder"
rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
player_list "$folder" 1 40 "$clips/long.mp4"
saver_settings 1 12 时钟
journey_setting play_next_item_on_err 0
player_start "$folder"
player_wait 10 panel_is visible
saving_and_cancelling
of_a_screen_saver
help_from_everywhere
leaving_meanwhile
