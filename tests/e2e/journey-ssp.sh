#!/usr/bin/env bash
# The two screen-saver programs, started directly: what they cover, what ends them, their settings,
# the pictures they show, what they cost.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
PLAYER_NAME=journey-ssp
name=ssp
folder=build/e2e/ssp
shots=out/ssp
pictures='build/e2e/ssp/图 片'
clock=$folder/SSP/时钟.exe
show=$folder/SSP/图片欣赏.exe

SAVER_PID=
# saver PROGRAM [ARGUMENT…]: in the background. The arguments are joined by blanks: one that holds a
# blank would come in quotes.
saver() {
  TESSIVO_TIMEOUT=300 player_wine "$@" &
  SAVER_PID=$!
}
has_ended() { ! kill -0 "$SAVER_PID" 2>/dev/null; }
# Whether it ends within five seconds, with code 0.
ends() {
  player_wait 5 has_ended || { found="still there"; return 1; }
  wait "$SAVER_PID" && return
  found="exit code $?"
  return 1
}
# Whatever it is that runs still, for the next case.
end_all_savers() {
  player_end
  if [[ -n $SAVER_PID ]]; then wait "$SAVER_PID" 2>/dev/null || true; fi
}

# The visible window of that title.
window_of() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
is_up() { [[ -n $(window_of "$1") ]]; }
is_gone() { [[ -z $(window_of "$1") ]]; }
place_is() {
  local window
  window=$(window_of "$1")
  found="no window"
  [[ -n $window ]] || return
  found=$(xwininfo -id "$window" | awk '/Absolute upper-left X/ { x = $4 } /Absolute upper-left Y/ { y = $4 }
    /Width:/ { w = $2 } /Height:/ { print x "," y "," w "," $2 }')
  [[ $found == "$2" ]]
}
# Where the letters are on the second monitor: WxH+X+Y.
letters() {
  desktop_screenshot "$shots/letters.png"
  convert "$shots/letters.png" -crop 1280x1024+1280+0 +repage -threshold 15% -format '%@' info: 2>/dev/null
}
letters_are_seen() {
  found=$(letters)
  [[ $found =~ ^([0-9]+)x([0-9]+)\+ ]] && ((BASH_REMATCH[1] > 100 && BASH_REMATCH[2] > 15))
}
letter_width() {
  local box
  box=$(letters)
  echo "${box%%x*}"
}
goes_on_for() {
  local end=$((SECONDS + $1))
  while ((SECONDS < end)); do
    if has_ended; then return 1; fi
    sleep 0.2
  done
}
# The pointer moves inside the second monitor: only over its own windows Wine hears of it.
move_pointer() {
  xdotool mousemove 1900 600
  sleep 0.05
  xdotool mousemove 1930 620
}
pointer_to() { xdotool mousemove "$1" "$2"; sleep 0.3; }

refuses() {
  local status=0
  player_wine "$clock" "$@" || status=$?
  found="exit code $status"
  ((status == 2))
}
malformed() {
  local arguments
  for arguments in RUN 'RUN##0##0##8##8##0' 'RUN##a##0##8##8##0##x' 'run##0##0##8##8##0##x' \
    'RUN##0##0##40000##8##0##x' 'SHOW_CONFIG_FACE##1##x' '/s'; do
    check "exit code 2 for $arguments" refuses "$arguments"
  done
  check "nothing of it is seen" is_gone 时钟
}

the_clock() {
  pointer_to 100 900
  saver "$clock" 'RUN##1280##0##1280##1024##1##泰思维' '##' 播放
  check "the clock comes up" player_wait 10 is_up 时钟
  check "exactly over the second monitor" place_is 时钟 1280,0,1280,1024
  check "with letters on black" player_wait 3 letters_are_seen
  desktop_screenshot "$shots/clock.png"
  check "the first monitor is left alone" test "$(xdotool search --onlyvisible --name '^时钟$' | wc -l)" -eq 1
  local before
  before=$(letters)
  check "it goes on without input" goes_on_for 8
  found="$before, then $(letters)"
  check "it wanders" test "$before" != "$(letters)"
  check "it has no keyboard" test "$(xdotool getactivewindow 2>/dev/null || true)" != "$(window_of 时钟)"
  move_pointer
  check "a motion of the pointer ends it" ends

  pointer_to 1900 600
  saver "$clock" 'RUN##1280##0##1280##1024##1##x'
  check "it comes up under the pointer, too" player_wait 10 is_up 时钟
  check "and goes on" goes_on_for 4
  move_pointer
  check "until the pointer moves" ends

  saver "$clock" 'RUN##100##200##300##150##0##x'
  check "any rectangle is covered" player_wait 10 place_is 时钟 100,200,300,150
  sleep 1
  desktop_screenshot "$shots/clock-small.png"
  xdotool mousemove 200 250 click 1
  check "a click on it ends it" ends
}

ended_by_a_key() {
  local clock_pid
  saver "$clock" 'RUN##1280##0##1280##1024##1##x'
  clock_pid=$SAVER_PID
  player_wait 10 is_up 时钟
  pointer_to 100 900
  # A window of another program has the keyboard.
  saver "$show" 'SHOW_CONFIG_FACE##400##300##nobody'
  local show_pid=$SAVER_PID
  player_wait 10 is_up '图片欣赏设置'
  SAVER_PID=$clock_pid
  check "a key in another program's window ends it" after_key
  xdotool key Escape
  SAVER_PID=$show_pid
  check "Escape closes the other one's settings" ends
}
after_key() {
  # The dialog that came up may have ended it already: begin anew, now that all is quiet.
  if has_ended; then
    saver "$clock" 'RUN##1280##0##1280##1024##1##x'
    player_wait 10 is_up 时钟
    xdotool windowactivate --sync "$(window_of '图片欣赏设置')" 2>/dev/null || true
  fi
  goes_on_for 3 || { found="ended by itself"; return 1; }
  xdotool key Tab
  ends
}

previews() {
  pointer_to 1900 600
  saver "$clock" 'RUN##0##0##0##0##0##'
  check "a preview covers the pointer's monitor" player_wait 10 place_is 时钟 1280,0,1280,1024
  check "and goes on" goes_on_for 4
  move_pointer
  check "until the pointer moves" ends
  pointer_to 300 300
  saver "$clock" 'RUN##0##0##0##0##0##'
  check "the other one's, too" player_wait 10 place_is 时钟 0,0,1280,1024
  sleep 1
  xdotool mousemove 320 320
  sleep 0.05
  xdotool mousemove 340 350
  check "which ends the same way" ends
}

# The middle of the dialog, frame and all, is near that point.
is_around() {
  local window x y w h
  window=$(window_of "$1")
  [[ -n $window ]] || { found="no window"; return 1; }
  read -r x y w h < <(xwininfo -id "$window" | awk '/Absolute upper-left X/ { x = $4 }
    /Absolute upper-left Y/ { y = $4 } /Width:/ { w = $2 } /Height:/ { print x, y, w, $2 }')
  found="$x $y $w $h"
  ((x + w / 2 > $2 - 20 && x + w / 2 < $2 + 20 && y + h / 2 > $3 - 30 && y + h / 2 < $3 + 30))
}
settings() {
  local ini=$folder/SSP/时钟.ini wide narrow
  pointer_to 100 900
  saver "$clock" 'SHOW_CONFIG_FACE##1900##500##nobody'
  check "the settings come up" player_wait 10 is_up '时钟设置'
  check "around the point" player_wait 3 is_around '时钟设置' 1900 500
  sleep 1
  desktop_screenshot "$shots/clock-settings.png"
  xdotool key Down
  sleep 0.2
  xdotool key Escape
  check "Escape closes them" ends
  check "and saves nothing" test ! -e "$ini"
  saver "$clock" 'RUN##1280##0##1280##1024##1##x'
  player_wait 10 letters_are_seen || true
  narrow=$(letter_width)
  move_pointer
  ends || true
  pointer_to 100 900
  saver "$clock" 'SHOW_CONFIG_FACE##400##400##nobody'
  player_wait 10 is_up '时钟设置' || true
  sleep 1
  xdotool key Down
  sleep 0.2
  xdotool key alt+d
  sleep 0.2
  xdotool key Return
  check "Enter closes them" ends
  check "the size is saved" grep -q 'Size=large' "$ini"
  check "the date is saved" grep -q 'Date=0' "$ini"
  saver "$clock" 'RUN##1280##0##1280##1024##1##x'
  player_wait 10 letters_are_seen || true
  wide=$(letter_width)
  desktop_screenshot "$shots/clock-large.png"
  found="$narrow, then $wide"
  check "the next clock is larger" test "${wide:-0}" -gt "$((${narrow:-9999} + 100))"
  move_pointer
  ends || true
  pointer_to 100 900
  saver "$clock"
  check "without an argument the settings come up" player_wait 10 is_up '时钟设置'
  check "in the middle of the primary monitor" player_wait 3 is_around '时钟设置' 640 512
  sleep 0.5
  xdotool key Escape
  ends || true
  rm -f "$ini"
}

folder_that_is_not_there() {
  local ini=$folder/SSP/图片欣赏.ini
  pointer_to 100 900
  rm -f "$ini"
  saver "$show" 'SHOW_CONFIG_FACE##1900##500##nobody'
  player_wait 10 is_up '图片欣赏设置' || true
  sleep 1
  desktop_screenshot "$shots/picture-settings.png"
  xdotool key ctrl+a
  xdotool type 'C:\none'
  sleep 0.2
  xdotool key Return
  check "settings with a folder that is not there stay" goes_on_for 2
  desktop_screenshot "$shots/no-folder.png"
  check "a red line says why" at_least "$(red_pixels)" 50
  check "and nothing is saved" test ! -e "$ini"
  xdotool key ctrl+a
  xdotool type '"C:\windows"'
  sleep 0.2
  xdotool key Return
  check "with one that is there they close" ends
  check "and are saved, without the quotes" grep -q '^Folder=C:.windows.$' "$ini"
  rm -f "$ini"
}
# Pixels of dark red on the second monitor.
red_pixels() {
  convert "$shots/no-folder.png" -crop 1280x1024+1280+0 +repage -fuzz 5% -fill white -opaque '#C00000' \
    -fill black +opaque white -format '%[fx:mean*w*h]' info:
}

has_keyboard() {
  found=$(xdotool getactivewindow getwindowname 2>/dev/null)
  [[ $found == "$1" ]]
}
settings_of_an_owner() {
  local owner_pid
  saver "$show" 'SHOW_CONFIG_FACE##400##300##nobody'
  owner_pid=$SAVER_PID
  player_wait 10 is_up '图片欣赏设置'
  saver "$clock" 'SHOW_CONFIG_FACE##1900##500##图片欣赏设置'
  check "settings come up over the window that waits for them" player_wait 10 is_up '时钟设置'
  sleep 1
  desktop_screenshot "$shots/owned.png"
  check "they have the keyboard" has_keyboard '时钟设置'
  xdotool windowactivate --sync "$(window_of '图片欣赏设置')" 2>/dev/null || true
  xdotool key Escape
  check "they close when that window goes" ends
  check "and save nothing" test ! -e "$folder/SSP/时钟.ini"
  kill "$owner_pid" 2>/dev/null || true
  end_all_savers
}

# How the middle of the second monitor looks: red and blue, 0 to 1.
middle() {
  desktop_screenshot "$shots/now.png"
  convert "$shots/now.png" -crop 20x20+1910+502 +repage -format '%[fx:mean.r] %[fx:mean.b]' info:
}
is_red() {
  found=$(middle)
  at_least "${found% *}" 0.95 && at_most "${found#* }" 0.05
}
is_blue() {
  found=$(middle)
  at_most "${found% *}" 0.05 && at_least "${found#* }" 0.95
}
is_both() {
  found=$(middle)
  at_least "${found% *}" 0.05 && at_least "${found#* }" 0.05 || return
  cp "$shots/now.png" "$shots/fade.png"
}
picture_settings() {
  printf '[Pictures]\r\nFolder=%s\r\nSeconds=%s\r\n' "$(player_windows_path "$1")" "$2" \
    >"$folder/SSP/图片欣赏.ini"
}
the_pictures() {
  mkdir -p "$pictures"
  convert -size 400x300 xc:red "$pictures/a 红.png"
  journey_random_bytes "$pictures/b.jpg"
  convert -size 300x500 xc:blue "$pictures/C.jpg"
  echo 'no picture' >"$pictures/d.txt"
  picture_settings "$pictures" 3
  pointer_to 100 900
  saver "$show" 'RUN##1280##0##1280##1024##1##x'
  check "the pictures come up exactly over the second monitor" player_wait 10 place_is 图片欣赏 1280,0,1280,1024
  check "the first picture is seen" player_wait 10 is_red
  desktop_screenshot "$shots/picture-1.png"
  check "one goes over into the other" player_wait 6 is_both
  check "the next one is seen, the damaged one left out" player_wait 4 is_blue
  desktop_screenshot "$shots/picture-2.png"
  check "black lies around it" at_most "$(player_region "$shots/picture-2.png" 300x1000+1290+10 mean)" 0.01
  check "then the first one again" player_wait 8 is_red
  move_pointer
  check "a motion of the pointer ends them" ends
}
without_pictures() {
  mkdir -p "$folder/empty"
  convert -size 400x300 xc:red "$folder/red.png"
  picture_settings "$folder/empty" 3
  pointer_to 100 900
  saver "$show" 'RUN##1280##0##1280##1024##1##x'
  player_wait 10 is_up 图片欣赏
  check "without pictures there is a notice" player_wait 5 letters_are_seen
  desktop_screenshot "$shots/no-pictures.png"
  local before
  before=$(letters)
  sleep 4
  found="$before, then $(letters)"
  check "which wanders" test "$before" != "$(letters)"
  cp "$folder/red.png" "$folder/empty/"
  check "a picture that comes later is seen within 30 seconds" player_wait 35 is_red
  move_pointer
  ends || true
}

# Hundredths of a second of processor time that the program has used.
ticks_of() {
  local pid
  for pid in $(pgrep -f -- "$1"); do
    # Not the scripts and the timeout around it.
    if [[ $(readlink "/proc/$pid/exe") == *wine* ]]; then
      awk '{ sub(/^.*\) /, ""); print $12 + $13 }' "/proc/$pid/stat"
      return
    fi
  done
}
# cost WHAT SECONDS PROGRAM: at most one per cent of a processor.
cost() {
  local before after
  before=$(ticks_of "$3")
  sleep "$2"
  after=$(ticks_of "$3")
  found="${before:-none} to ${after:-none}"
  echo "$name: $1 takes $((${after:-0} - ${before:-0})) hundredths of a second in $2 seconds"
  check "$1 takes little of the processor" \
    test -n "$before" -a -n "$after" -a "$((${after:-999} - ${before:-0}))" -le "$2"
}
costs() {
  local seconds=${TESSIVO_SSP_SECONDS:-30}
  pointer_to 100 900
  saver "$clock" 'RUN##1280##0##1280##1024##1##x'
  player_wait 10 is_up 时钟
  sleep 2
  cost "the clock" "$seconds" 时钟.exe
  move_pointer
  ends || true
  pointer_to 100 900
  picture_settings "$pictures" 300
  saver "$show" 'RUN##1280##0##1280##1024##1##x'
  player_wait 10 is_red || true
  sleep 1
  cost "a picture that stays" "$seconds" 图片欣赏.exe
  move_pointer
  ends || true
}

desktop_start right
player_end
trap 'player_end; desktop_stop' EXIT
rm -rf "$folder"
mkdir -p "$folder" "$shots"
player_savers "$folder"
parts=(malformed the_clock ended_by_a_key previews settings folder_that_is_not_there settings_of_an_owner the_pictures
  without_pictures costs)
# Some of them, in this order, when they are named.
if (($# > 0)); then parts=("$@"); fi
for part in "${parts[@]}"; do "$part"; done
