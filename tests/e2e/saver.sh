# To be sourced by the journeys of the screen saver; brings what tray.sh does, and panel.sh.
#
#   saver_program NAME [FILE]   puts a program into the player's folder of screen savers: the stand-in
#                               (tests/programs/stand_in_saver.cpp) unless a file is given
#   saver_settings ON MINUTES NAME   stores them; the player must not run
#   touch_mouse             moves the mouse over the panel
#   starts_again            moves the mouse and waits for the next start of the program
#   started_as ARGUMENTS    what the last start was, to the letter: of the program in saver_settings
#   noted FILE PATTERN      how many lines of the stand-in's notes (or another text) match
#   clock_is_at X,Y,W,H     the window of the program 时钟, on the X server's screen
#   no_clock                there is none
#   x_saver                 the seconds of the X server's own screen saver, 0 when it is off
# shellcheck source=tests/e2e/tray.sh
source "$(dirname "${BASH_SOURCE[0]}")/tray.sh"

saver_program() {
  mkdir -p "$folder/SSP"
  cp "${2:-$PLAYER_PROGRAMS/tests/stand_in_saver.exe}" "$folder/SSP/$1.exe"
}

saver_name=
saver_settings() {
  saver_name=$3
  journey_setting screen_saver "$1"
  journey_setting screen_saver_delay_minute "$2"
  journey_setting scr_sav_proc_name "'$3'"
}

touch_step=0
touch_mouse() {
  place_of frmMain
  touch_step=$(((touch_step + 7) % 50))
  xdotool mousemove $((x + w / 2 + touch_step)) $((y + 6))
}

starts() { player_said "$folder" 'screen saver started: '; }
active_again() { player_said "$folder" 'the user is active again$'; }
more_than() {
  found="$("$2")"
  ((found > $1))
}
starts_again() {
  local before
  before=$(starts)
  touch_mouse
  player_wait "${1:-6}" more_than "$before" starts
}
# For things that must not happen.
count_stays() {
  local before
  before=$("$1")
  sleep "$2"
  found="$before, then $("$1")"
  [[ $found == "$before, then $before" ]]
}

log_path() { player_windows_path "$folder/SSP/$saver_name.exe"; }
started_as() {
  found=$(tr -d '\r' <"$folder/Tessivo.log" | sed -n 's/.*screen saver started: //p' | tail -n 1)
  [[ $found == "$(log_path) $1" ]]
}

# The notes appear whole lines at a time.
noted() {
  found=$(grep -c -- "$2" "$folder/SSP/$1.txt" 2>/dev/null) || true
  echo "${found:-0}"
}
notes_of() { cat "$folder/SSP/$1.txt" 2>/dev/null || true; }

clock_window() { xdotool search --onlyvisible --name '^时钟$' 2>/dev/null | head -n 1; }
clock_is_at() {
  local window
  window=$(clock_window)
  found=
  [[ -n $window ]] || return
  found=$(xwininfo -id "$window" | awk '/Absolute upper-left X/ { x = $4 }
    /Absolute upper-left Y/ { y = $4 } /Width/ { w = $2 } /Height/ { print x "," y "," w "," $2 }')
  [[ $found == "$1" ]]
}
no_clock() {
  found=$(clock_window)
  [[ -z $found ]]
}
x_saver() { xset q | awk '/timeout:/ { print $2 }'; }
x_saver_is() {
  found="timeout $(x_saver)"
  [[ $found == "timeout $1" ]]
}
