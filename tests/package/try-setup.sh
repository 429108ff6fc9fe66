#!/usr/bin/env bash
# A new user's way with the setup program: by its windows, from the start menu, upgrade, silently,
# uninstall with and without the data.
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

setup_begin setup
stored() { sqlite3 "$installed/SysConfig" "$1"; }

by_its_windows() {
  run_setup &
  check "the setup program comes up" player_wait 30 window_titled "$titles"
  next_page welcome
  next_page licence
  next_page folder
  next_page components
  check "it installs" player_wait 60 test -e "$installed/Uninstall.exe"
  sleep 2
  next_page finish
  wait $!
  check "and starts the program" player_wait 20 panel_is visible
  leave
}

everything_is_there() {
  local file
  for file in Tessivo.exe Engines.ini TessivoMedia.ico 先读我.txt License.txt Help/FunctionIntroduce.htm \
    DLUrls/wmpXP.htm PlyPcks/说明.htm SSP/时钟.exe SSP/图片欣赏.exe; do
    check "$1: $file is there" test -s "$installed/$file"
  done
  for file in Engines.ini 先读我.txt License.txt; do
    check "$1: the lines of $file end as Windows ends them" has_windows_lines "$installed/$file"
  done
  check "$1: the start menu has three entries" test "$(count_of "$menu")" == 3
  check "$1: the system lists it" has_key "$uninstall_key"
}

from_the_start_menu() {
  start_program "$(windows_path "$menu/泰思维播放器.lnk")"
  check "the start menu starts it" panel_is visible
  check "a file is added and plays" plays "$clips/long.mp4"
  leave
  check "the list is kept" test "$(stored 'select count(*) from play_list')" == 1
}

an_upgrade() {
  sed -i 's/^RealPlayer=auto/RealPlayer=embedded/' "$installed/Engines.ini"
  start_program "$program"
  check "an upgrade while it runs" run_setup /S /AUTOSTART /DESKTOP
  check "has ended it in order" grep -q ' stop' "$installed/Tessivo.log"
  everything_is_there "after the upgrade"
  check "the list is kept" test "$(stored 'select count(*) from play_list')" == 1
  check "the choice of engines is kept" grep -q '^RealPlayer=embedded' "$installed/Engines.ini"
  check "it starts with Windows" has_value "$run_key" Tessivo
  check "it is on the desktop" test -e "$home/Desktop/泰思维播放器.lnk"
  start_program "$program"
  check "it starts again with the list" shows rows 1
  leave
  run_setup /S
  check "the next upgrade keeps the choices" has_value "$run_key" Tessivo
  check "also that of the desktop" test -e "$home/Desktop/泰思维播放器.lnk"
}

# Where Windows looks into the user's classes and the machine's, Wine looks into the machine's alone.
machine_has_the_users_class() {
  player_wine reg export "HKCU\\Software\\Classes\\$1" 'C:\classes.reg' /y >/dev/null
  iconv -f UTF-16 -t UTF-8 "$c/classes.reg" | sed 's/^\[HKEY_CURRENT_USER/[HKEY_LOCAL_MACHINE/' >"$c/machine.reg"
  player_wine reg import 'C:\machine.reg' >/dev/null
}
types() {
  run_setup /S /TYPES
  check "a type is offered" has_value 'HKCU\Software\Classes\.mp4\OpenWithProgids' Tessivo.Media
  check "and not taken, although nobody has it" fails has_default 'HKCU\Software\Classes\.mp4'
  cp "$clips/long.mp4" "$c/影片 一.mp4"
  machine_has_the_users_class Tessivo.Media
  by_shell /progIDOpen Tessivo.Media 'C:\影片 一.mp4'
  player_drive wait
  check "where it is chosen, it opens the file" player_wait 20 shows file '影片 一.mp4'
  leave
  player_wine reg delete 'HKLM\Software\Classes\Tessivo.Media' /f >/dev/null
}

away() {
  uninstall /S
  check "uninstalled: the program is gone" is_away "$installed/Tessivo.exe"
  check "uninstalled: the list and Engines.ini stay, and nothing else" \
    test "$(ls "$installed")" == $'Engines.ini\nSysConfig'
  check "uninstalled: it is the list" test "$(stored 'select count(*) from play_list')" -ge 1
  check "uninstalled: the start menu is as before" is_away "$menu"
  check "uninstalled: the desktop, too" is_away "$home/Desktop/泰思维播放器.lnk"
  check "uninstalled: the system no longer lists it" fails has_key "$uninstall_key"
  check "uninstalled: it no longer starts with Windows" fails has_value "$run_key" Tessivo
  run_setup /S
  start_program "$program"
  check "installed again, it goes on with the list" shows rows 2
  leave
  by_its_windows_away
}

# Enter means no when it asks whether the data goes, too.
by_its_windows_away() {
  titles=$away_titles
  uninstall &
  check "its windows come up" player_wait 30 window_titled "$titles"
  next_page uninstall
  sleep 4
  desktop_screenshot "$shots/page-$((++page))-question.png"
  key Return
  sleep 2
  next_page end
  wait $!
  check "Enter leaves the data" test "$(count_of "$installed")" == 2
}

nothing_is_left() {
  run_setup /S /TYPES /AUTOSTART /DESKTOP
  start_program "$program"
  leave
  uninstall /S /DATA
  check "with the data: nothing is left" is_away "$installed"
  check "nor in the registry" registry_is_clean
}
by_its_windows
everything_is_there "installed"
from_the_start_menu
an_upgrade
types
away
nothing_is_left
