#!/usr/bin/env bash
# The setup program and folders: one that holds another program, one that may not be written, another one
# than before, one whose Tessivo does not run.
# The super-user may write everywhere unless that right is taken away.
if [[ $(id -u) == 0 && -z ${TESSIVO_BOUND:-} ]]; then
  TESSIVO_BOUND=yes exec setpriv --inh-caps=-dac_override,-dac_read_search \
    --bounding-set=-dac_override,-dac_read_search "$0" "$@"
fi
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

setup_begin setup-folders

folder_with_another_program() {
  local other=$c/别的软件
  mkdir "$other"
  cp "$PLAYER_PROGRAMS/tests/note_arguments.exe" "$other/Uninstall.exe"
  check "a folder with another program's uninstaller is refused" gives_up run_setup /S '/D=C:\别的软件'
  check "it stays as it was" test "$(ls "$other")" == Uninstall.exe
  check "it is still the other one's" cmp "$PLAYER_PROGRAMS/tests/note_arguments.exe" "$other/Uninstall.exe"
  check "and nothing is registered" registry_is_clean
}

message_is_up() { [[ $(xdotool search --onlyvisible --name "$titles" | wc -l) == 2 ]]; }
message_is_gone() { ! message_is_up; }
# by_windows_up_to_the_folder NAME FOLDER: and Enter on that page, then its message is closed by the key
# Escape, and the setup program left.
by_windows_up_to_the_folder() {
  run_setup "/D=$2" &
  check "$1: its windows come up" player_wait 30 window_titled "$titles"
  next_page "$1-welcome"
  next_page "$1-licence"
  next_page "$1-folder"
  check "$1: the page of the folder says so" player_wait 5 message_is_up
  desktop_screenshot "$shots/$1.png"
  key Escape
  check "$1: and is there again" player_wait 5 message_is_gone
  key Escape
  check "$1: leaving it is asked for" player_wait 5 message_is_up
  key Return
  wait $! || true
}

folder_that_cannot_be_written() {
  mkdir "$c/只读"
  chmod a-w "$c/只读"
  trap 'chmod -R u+w "$c/只读"; player_end; desktop_stop' EXIT
  check "a folder that cannot be written is refused" gives_up run_setup /S '/D=C:\只读'
  check "also as that of a new folder" gives_up run_setup /S '/D=C:\只读\一\二'
  by_windows_up_to_the_folder read-only 'C:\只读'
  by_windows_up_to_the_folder read-only-above 'C:\只读\一'
  check "nothing has been written" registry_is_clean
}

only_data_is_in() {
  found=$(cd "$1" && find . -type f | sort | tr '\n' ' ')
  [[ $found == './Engines.ini ./SSP/时钟.ini ./SysConfig ' ]]
}
# Another folder than before: the program moves.
another_folder() {
  local new=$c/Moved stray=$c/旧的
  run_setup /S /AUTOSTART
  start_program "$program"
  check "a file is added and plays" plays "$clips/long.mp4"
  leave
  sed -i 's/^RealPlayer=auto/RealPlayer=embedded/' "$installed/Engines.ini"
  echo 'Size=3' >"$installed/SSP/时钟.ini"
  cp -r "$installed" "$stray"
  by_windows_up_to_the_folder move 'C:\Moved'
  check "nothing has moved" test -s "$installed/Tessivo.exe" -a ! -e "$new"
  start_program "$program"
  check "set up in another folder while it runs" run_setup /S '/D=C:\Moved'
  check "the program is there" test -s "$new/Tessivo.exe" -a -s "$new/Uninstall.exe"
  check "with the list" test "$(sqlite3 "$new/SysConfig" 'select count(*) from play_list')" == 1
  check "the choice of engines" grep -q '^RealPlayer=embedded' "$new/Engines.ini"
  check "and the saver's settings" grep -q '^Size=3' "$new/SSP/时钟.ini"
  check "the program is gone from the old folder" is_away "$installed/Tessivo.exe"
  check "where the data stays, and nothing else" only_data_is_in "$installed"
  check "the start with Windows has moved" value_is "$run_key" Tessivo '"C:\Moved\Tessivo.exe"'
  player_wine "$stray/Uninstall.exe" /S || true
  check "the uninstaller of a former folder" player_wait 20 is_away "$stray/Uninstall.exe"
  check "removes what is there" is_away "$stray/Tessivo.exe"
  check "and not the start with Windows" has_value "$run_key" Tessivo
  check "nor the entry in the system's list" value_is "$uninstall_key" InstallLocation 'C:\Moved'
  start_program "$(windows_path "$menu/泰思维播放器.lnk")"
  check "nor the start menu" shows rows 1
  leave
  installed=$new
}

# Somebody moved the folder by hand: the uninstaller in it still cleans up.
folder_moved_by_hand() {
  mv "$installed" "$c/搬走"
  installed=$c/搬走
  uninstall /S /DATA
  check "uninstalled from where it was moved to: nothing is left" is_away "$installed"
  check "nor in the registry" registry_is_clean
}

tessivo_of_another_folder() {
  installed=$home/AppData/Local/Programs/Tessivo
  run_setup /S
  unpack "$c/另一个"
  start_program 'C:\另一个\Tessivo\Tessivo.exe'
  chmod a-w "$installed/Tessivo.exe"
  check "a program that cannot be written is not replaced" gives_up run_setup /S
  check "and the Tessivo of another folder runs on" panel_is visible
  chmod u+w "$installed/Tessivo.exe"
  check "then it is replaced, while that one runs" run_setup /S
  check "which runs on" panel_is visible
  leave
}

folder_with_another_program
folder_that_cannot_be_written
another_folder
folder_moved_by_hand
tessivo_of_another_folder
