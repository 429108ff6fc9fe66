#!/usr/bin/env bash
# A new user's way with the setup program: by its windows, from the start menu, upgrade, silently,
# uninstall with and without the data.
source "$(dirname "${BASH_SOURCE[0]}")/package.sh"

setup=dist/Tessivo-$version-setup.exe
package_begin setup
installed=$home/AppData/Local/Programs/Tessivo
menu="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/泰思维"
program=$(windows_path "$installed/Tessivo.exe")

run_setup() { player_wine "$setup" "$@"; }
uninstall() {
  # It goes on from a copy, since it deletes itself.
  player_wine "$installed/Uninstall.exe" "$@" || true
  player_wait 20 is_away "$installed/Uninstall.exe"
}
is_away() { [[ ! -e $1 ]]; }
window_titled() {
  found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
  [[ -n $found ]]
}
titles='^Tessivo 泰思维 安装'
page=0
# next_page WHAT: what the page is, and Enter.
next_page() {
  sleep 1
  desktop_screenshot "$shots/page-$((++page))-$1.png"
  xdotool windowactivate "$(xdotool search --onlyvisible --name "$titles" | head -n 1)"
  key Return
}
stored() { sqlite3 "$installed/SysConfig" "$1"; }
has_value() { player_wine reg query "$1" /v "$2" >/dev/null 2>&1; }
has_key() { player_wine reg query "$1" >/dev/null 2>&1; }
fails() { ! "$@"; }
count_of() { find "$1" -type f | wc -l; }

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
  check "$1: the start menu has three entries" test "$(count_of "$menu")" == 3
  check "$1: the system lists it" has_key "$uninstall_key"
}
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessivo'
run_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'

from_the_start_menu() {
  start_program "$(windows_path "$menu/泰思维播放器.lnk")"
  check "the start menu starts it" panel_is visible
  check "a file is added and plays" plays "$clips/long.mp4"
  leave
  check "the list is kept" test "$(stored 'select count(*) from play_list')" == 1
}

an_upgrade() {
  sed -i 's/^RealPlayer=.*/RealPlayer=embedded/' "$installed/Engines.ini"
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
machine_has_the_users_classes() {
  local key
  for key in .mp4 Tessivo.Media; do
    player_wine reg export "HKCU\\Software\\Classes\\$key" 'C:\classes.reg' /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$c/classes.reg" | sed 's/^\[HKEY_CURRENT_USER/[HKEY_LOCAL_MACHINE/' \
      >"$c/machine.reg"
    player_wine reg import 'C:\machine.reg' >/dev/null
  done
}
types() {
  player_wine reg add 'HKCU\Software\Classes\.avi' /ve /d Other.Player /f >/dev/null
  run_setup /S /TYPES
  check "a type is offered" has_value 'HKCU\Software\Classes\.mp4\OpenWithProgids' Tessivo.Media
  cp "$clips/long.mp4" "$c/影片 一.mp4"
  machine_has_the_users_classes
  by_shell 'C:\影片 一.mp4'
  player_drive wait
  check "nobody's type opens with it" player_wait 20 shows file '影片 一.mp4'
  leave
  check "another program's type stays its own" \
    grep -q 'Other.Player' <(player_wine reg query 'HKCU\Software\Classes\.avi' /ve)
}

away() {
  uninstall /S
  check "uninstalled: the program is gone" is_away "$installed/Tessivo.exe"
  check "uninstalled: the data stays, and nothing else" test "$(count_of "$installed")" == 1
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
  titles='^Tessivo 泰思维 (解除安装|卸载)'
  uninstall &
  check "its windows come up" player_wait 30 window_titled "$titles"
  next_page uninstall
  sleep 4
  desktop_screenshot "$shots/page-$((++page))-question.png"
  key Return
  sleep 2
  next_page end
  wait $!
  check "Enter leaves the data" test "$(count_of "$installed")" == 1
}

nothing_is_left() {
  run_setup /S /TYPES /AUTOSTART /DESKTOP
  start_program "$program"
  leave
  uninstall /S /DATA
  check "with the data: nothing is left" is_away "$installed"
  check "nor in the registry" registry_is_clean
}
registry_is_clean() {
  found=$(exported HKCU | grep -iE 'tessivo|泰思维' | head -n 5)
  [[ -z $found ]]
}

by_its_windows
everything_is_there "installed"
from_the_start_menu
an_upgrade
types
player_wine reg delete 'HKCU\Software\Classes\.avi' /f >/dev/null
away
nothing_is_left
