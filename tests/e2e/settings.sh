# To be sourced by the journeys of the settings dialog, after tray.sh, which it needs:
#
#   open_settings           by the panel's menu, and waits for it
#   settings_window         its window on the X server
#   settings_are_up, settings_are_gone
#   settings_key KEY…       to the dialog, and time for it to follow
#   open_file_types         the second tab of the open dialog, and waits until it has been read
#   type_is TYPE YES_OR_NO  whether the dialog has that file type ticked
#   tick_type TYPE          with the mouse

settings_window() { xdotool search --onlyvisible --name '^设置$' 2>/dev/null | head -n 1; }
settings_are_up() { [[ -n $(settings_window) ]]; }
settings_are_gone() { [[ -z $(settings_window) ]]; }
has_keyboard() {
  found=$(xdotool getwindowfocus getwindowname)
  [[ $found =~ $1 ]]
}
open_settings() {
  open_panel_menu
  choose 0 0
  player_wait 5 settings_are_up
  player_wait 3 has_keyboard '^设置$' || xdotool windowactivate "$(settings_window)"
  sleep 0.5
}
settings_key() {
  key "$@"
  sleep 0.4
}

types_are_listed() {
  found="$(player_drive types | wc -l) file types"
  [[ $found != '0 file types' ]]
}
open_file_types() {
  settings_key shift+Tab  # from the first box to the tabs
  settings_key Right
  player_wait 5 types_are_listed
}
type_is() {
  found=$(player_drive types | awk -v type="$1" '$2 == type { print $1 }')
  [[ $found == "$2" ]]
}
tick_type() {
  read -r x y < <(player_drive type-at "$1")
  xdotool mousemove $((x + DESKTOP_ORIGIN_X)) $((y + DESKTOP_ORIGIN_Y)) click 1
  sleep 0.4
}
