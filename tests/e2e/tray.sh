# To be sourced by the journeys of the notification area and of leaving; brings what panel.sh does.
# Positions are the X server's.
#
#   begin [FILE…]           stores the files, starts the player and waits for its icon
#   icons_are N             so many icons are in the notification area
#   to_icon                 the pointer onto the icon
#   click_icon [BUTTON]     a click on it (1 left, 3 right)
#   double_click_icon
#   open_tray_menu          by the right button, and waits for it
#   open_background_menu    the panel's, likewise
#   open_panel_menu         by the panel's button, likewise
#   menu_is_open            sets menu_x, menu_y, menu_w, menu_h
#   menu_is_closed
#   choose ENTRY BARS       in the menu just opened: the entry (from 0) that so many bars precede
#   dialog_on_left BEGIN    a dialog, told to begin so, is wholly on the panel's monitor; sets dialog_x,
#                           dialog_y, dialog_w, dialog_h
#   question_is_up          the one whether to leave, to the letter, there
#   about_is_up             likewise
#   answer BUTTON           the dialog, with the mouse: cmdYes or cmdNo
#   dialog_key KEY…         to the dialog
#   leaves WHAT COMMAND…    the command is the decision to leave: the player ends within two seconds,
#                           in order, and nothing of it stays on the desktop
# shellcheck source=tests/e2e/panel.sh
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"

patience=2000  # milliseconds from the decision to leave to the end of the process

begin() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 3 40 "$@"
  player_start "$folder"
  player_wait 10 icons_are 1
}

icons_are() {
  found="$(tray_icons | wc -l) icons"
  [[ $found == "$1 icons" ]]
}
# Low, because for ten seconds the tail of what the icon has to say lies over its upper part.
to_icon() {
  local left top
  read -r left top < <(xwininfo -id "$(tray_icons | head -n 1)" |
    awk '/Absolute upper-left X/ { x = $4 } /Absolute upper-left Y/ { print x, $4 }')
  xdotool mousemove $((left + 6)) $((top + 20))
}
click_icon() {
  to_icon
  xdotool click "${1:-1}"
}
double_click_icon() {
  to_icon
  xdotool click --repeat 2 --delay 60 1
}

menu_x=0 menu_y=0 menu_w=0 menu_h=0
menu_is_open() {
  found=$(player_drive menu)
  read -r menu_x menu_y menu_w menu_h <<<"$found"
  [[ -n $menu_h ]] || return
  menu_x=$((menu_x + DESKTOP_ORIGIN_X))
  menu_y=$((menu_y + DESKTOP_ORIGIN_Y))
}
menu_is_closed() {
  found=$(player_drive menu)
  [[ -z $found ]]
}
# A second click too soon after the last would be a double click, which means nothing.
open_tray_menu() {
  sleep 0.6
  click_icon 3
  player_wait 5 menu_is_open
}
open_panel_menu() {
  click cmdMenu
  player_wait 5 menu_is_open
}
# Right of the state's text the panel is bare.
open_background_menu() {
  place_of frmMain
  xdotool mousemove $((x + w - 4)) $((y + 4)) click 3
  player_wait 5 menu_is_open
}

menu_frame=3
menu_entry=17
menu_bar=9
choose() {
  xdotool mousemove $((menu_x + 40)) \
    $((menu_y + menu_frame + menu_entry * $1 + menu_bar * $2 + menu_entry / 2))
  sleep 0.2
  xdotool click 1
}
dialog_on_left() {
  found=$(player_drive dialog | tr '\n' '|')
  [[ $found == "$1"*'place '* ]] || return
  read -r dialog_x dialog_y dialog_w dialog_h <<<"$(tr -d '|' <<<"${found##*place }")"
  ((dialog_x >= 0 && dialog_y >= 0 && dialog_x + dialog_w <= 1280 && dialog_y + dialog_h <= 1024))
}
dialog_x=0 dialog_y=0 dialog_w=0 dialog_h=0
question_is_up() { dialog_on_left 'title 提示|text 您真的要关闭该程序吗?      |buttons 是 否|'; }
about_is_up() { dialog_on_left 'title 关于泰思维|'; }
answer() {
  local x y w h
  read -r x y w h < <(player_drive dialog-where "$1")
  xdotool mousemove $((x + DESKTOP_ORIGIN_X + w / 2)) $((y + DESKTOP_ORIGIN_Y + h / 2)) click 1
}
# The window manager does not always give the keyboard to a dialog that follows a click elsewhere
# than in the player's windows.
has_x_focus() {
  found=$(xdotool getwindowfocus getwindowname 2>/dev/null)
  [[ $found == "$1" ]]
}
dialog_key() {
  local title
  title=$(player_drive dialog | sed -n 's/^title //p')
  if ! has_x_focus "$title"; then
    xdotool search --onlyvisible --name "^$title\$" windowactivate 2>/dev/null
    player_wait 5 has_x_focus "$title" || return
  fi
  key "$@"
}

# Set when an engine hangs: now and then Wine, when it ends the process, crashes in that thread.
engine_hangs=
has_ended() { ! kill -0 "$PLAYER_PID" 2>/dev/null; }
# The player's, and what Wine shows when a program has crashed.
no_window_stays() {
  found=$(xwininfo -root -tree | grep -iE '"(tessivo|winedbg)\.exe"' || true)
  [[ -z $found ]]
}
leaves() {
  local what=$1 from took decision status=0
  shift
  from=$(date +%s%3N)
  "$@" &
  decision=$!
  if ! player_wait 5 has_ended; then
    check "$what: it ends" false
    player_end
    return
  fi
  took=$(($(date +%s%3N) - from))
  wait "$decision" || true
  echo "$name: $what: ended after $took ms"
  check "$what: it ends in time" test "$took" -le "$patience"
  wait "$PLAYER_PID" || status=$?
  PLAYER_PID=
  if [[ -z $engine_hangs ]]; then check "$what: without an error" test "$status" == 0; fi
  check "$what: in order" said ' stop$'
  sleep 0.1
  check "$what: the icon is gone" icons_are 0
  check "$what: no window stays" no_window_stays
}
