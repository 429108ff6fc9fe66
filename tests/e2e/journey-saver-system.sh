#!/usr/bin/env bash
# The system's own screen saver, which here is the X server's: off while the player runs, on after it,
# however it was left and whatever was before.
source "$(dirname "${BASH_SOURCE[0]}")/saver.sh"

begin_player() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 1 40 "$clips/film.avi"
  player_start "$folder"
}

from_outside() { player_drive close; }
session_end() { player_drive session-ends; }
by_menu() {
  open_panel_menu && choose 3 2 && player_wait 5 question_is_up && answer cmdYes
}
# The question of the tray's menu, answered by whoever finds its button.
by_tray() {
  open_tray_menu && choose 4 3 && player_wait 5 question_is_up && player_drive answer cmdYes
}

x_saver_is_on() {
  found="timeout $(x_saver)"
  (($(x_saver) > 0))
}

# left_by WAY: with the X server's saver at 600 seconds before.
left_by() {
  xset s 600 600
  begin_player
  check "$1: off while the player runs" player_wait 3 x_saver_is 0
  check "$1: the log says so" said "the system's screen saver and sleep are switched off$"
  check "$1: the way can be gone" "$1"
  check "$1: the player has ended" player_wait 5 has_ended
  check "$1: on again, after as long as before" player_wait 3 x_saver_is 600
  check "$1: the log says so" said "the system's screen saver and sleep are switched on$"
  player_end
}

was_off() {
  xset s off
  begin_player
  check "off before the start: off while it runs" x_saver_is 0
  player_drive close
  check "on afterwards all the same" player_wait 3 x_saver_is_on
  player_end
}

second_start() {
  xset s 600 600
  begin_player
  player_wine "$folder/Tessivo.exe"
  check "a second start leaves it off" x_saver_is 0
  check "and says nothing about it" test "$(player_said "$folder" 'switched on')" == 0
  xset s 600 600
  player_wine "$folder/Tessivo.exe"
  check "nor does it switch it off" x_saver_is 600
  player_drive close
  player_end
}

killed() {
  xset s 600 600
  begin_player
  player_wait 3 x_saver_is 0 || true
  player_drive kill
  player_wait 5 has_ended
  check "after a kill it stays off" x_saver_is 0
  player_start "$folder"
  player_drive close
  check "until the player has been left the next time" player_wait 3 x_saver_is_on
  player_end
}

journey saver-system
tray_start
for way in by_menu by_tray from_outside session_end; do left_by "$way"; done
was_off
second_start
killed
