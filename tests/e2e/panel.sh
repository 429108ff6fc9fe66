# To be sourced by the journeys of the control panel, which work it with the X server's mouse and
# keyboard:
#
#   place_of NAME           sets x, y, w, h: the control on the X server's screen
#   middle_of NAME          sets x, y
#   click NAME [BUTTON]     in the control's middle
#   click_row N [CLICKS]    on the name in that row of the playlist, from 0
#   tick_row N              on its check box
#   key KEY…                to the window that has the keyboard
#   drop X Y [FILE…]        on the window there; without files their names come from the standard input
#   dialog_says TEXT        a notice is up over the panel
#   enter_closes_notice     it has the keyboard, and Enter closes it
#   row_is N NAME           the name in that row
#   panel_is STATE          visible or hidden
#   hide_panel              by its close box
# shellcheck source=tests/e2e/journey.sh
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

place_of() {
  read -r x y w h < <(player_drive where "$1")
  x=$((x + DESKTOP_ORIGIN_X))
  y=$((y + DESKTOP_ORIGIN_Y))
}
middle_of() {
  place_of "$1"
  x=$((x + w / 2))
  y=$((y + h / 2))
}
click() {
  middle_of "$1"
  xdotool mousemove "$x" "$y" click "${2:-1}"
}
# at_row COMMAND N: sets x, y.
at_row() {
  read -r x y < <(player_drive "$1" "$2")
  x=$((x + DESKTOP_ORIGIN_X))
  y=$((y + DESKTOP_ORIGIN_Y))
}
click_row() {
  at_row row-at "$1"
  xdotool mousemove "$x" "$y" click --repeat "${2:-1}" --delay 60 1
}
tick_row() {
  at_row tick-at "$1"
  xdotool mousemove "$x" "$y" click 1
}
key() { xdotool key --delay 40 "$@"; }
drop() {
  xdotool mousemove "$1" "$2"
  tests/e2e/drop_files.py "$@"
}
dialog_is() {
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == "$1" ]]
}
no_dialog() { dialog_is ''; }
# A notice: its title, its text, its one button; on the panel's monitor.
dialog_says() {
  local place
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == "title 提示|text $1|buttons 确定|place "* ]] || return
  place=${found##*place }
  ((${place%% *} < 1280))
}
player_has_x_focus() { [[ $(xdotool getwindowfocus getwindowname) =~ ^(提示|Tessivo) ]]; }
enter_closes_notice() {
  shows focus cmdYes || return
  # Now and then, when one dialog follows another, the window manager takes the keyboard from all
  # of the player's windows.
  if ! player_wait 2 player_has_x_focus; then
    xdotool search --name '^提示$' windowactivate
    player_wait 2 player_has_x_focus
    echo "the window manager had to be told to give the keyboard to the notice"
  fi
  key Return
  player_wait 5 no_dialog
}
row_is() {
  found=$(player_drive cells "$1")
  [[ $found == "$2 | "* ]]
}
panel_is() {
  found="panel $(player_shows panel)"
  [[ $found == *" $1" ]]
}
# Once the X server gives the panel itself the keyboard, so that the keys reach its close box and not
# that of the picture's window.
hide_panel() {
  activate_panel
  player_wait 10 panel_takes_keyboard || return
  key alt+F4
  player_wait 10 panel_is hidden
}
activate_panel() {
  xdotool search --onlyvisible --name '^Tessivo 泰思维$' windowactivate 2>/dev/null || true
}
panel_takes_keyboard() {
  if [[ $(xdotool getwindowfocus getwindowname) == 'Tessivo 泰思维' ]]; then return; fi
  sleep 0.2
  activate_panel
  return 1
}
