#!/usr/bin/env bash
# A database of Microsoft Access is used through its ODBC driver, and converted when asked. The driver
# is the tests' own, which keeps the rows in SysConfig.rows; Wine's ODBC finds it as Windows' would.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
journey access

converted='Microsoft Access 文件 SysConfig 中的播放列表、设置和文件类型已转入新的数据库 SysConfig.db，今后使用新数据库。原文件没有改动。'

if [[ ! -e build/native/build.ninja ]]; then cmake --preset native >/dev/null; fi
cmake --build --preset native --target access_driver >/dev/null
export ODBCSYSINI=$PWD/$folder
printf '[Microsoft Access Driver (*.mdb)]\nDriver=%s\n' \
  "$PWD/build/native/tests/libaccess_driver.so" >"$folder/odbcinst.ini"

player_list "$folder" 3 40 "$clips/film.avi" "$clips/long.mp4"
mv "$folder/SysConfig" "$folder/SysConfig.rows"
{ printf '\0\1\0\0Standard Jet DB\0' && head -c 20000 /dev/zero; } >"$folder/SysConfig"
sum=$(sha1sum <"$folder/SysConfig")

in_rows() {
  found=$(sqlite3 "$folder/SysConfig.rows" "$1")
  [[ $found == "$2" ]]
}
untouched() { [[ $(sha1sum <"$folder/SysConfig") == "$sum" ]]; }

player_start "$folder" "$(player_windows_path "$clips/中文 影片.mp4")"
check "a file on the command line plays" says_within 20 ' playing: .*中文'
check "it is added behind the file's list" shows rows 3
check "nothing is asked" no_dialog
player_drive volume 77
player_drive close
check "it leaves in order" said ' stop$'
check "the list is stored through the driver" \
  in_rows "select count(*), max(file_name) from play_list" '3|中文 影片.mp4'
check "the settings are stored through the driver" in_rows "select count(*), volume_value from sys" '1|77'
check "there is no other database" test ! -e "$folder/SysConfig.db"

player_start "$folder"
check "the next run has the list" shows rows 3
player_drive close

player_start "$folder"
refusal() { [[ -n $(xdotool search --onlyvisible --name '^泰思维$' 2>/dev/null) ]]; }
refusal_is_gone() { ! refusal; }
TESSIVO_TIMEOUT=60 player_wine "$folder/Tessivo.exe" --Convert &
second=$!
check "a conversion beside a running player is refused with a notice" player_wait 20 refusal
desktop_screenshot "$shots/refused.png"
xdotool search --onlyvisible --name '^泰思维$' windowactivate --sync key Return || true
# The window goes with the press, and Wine may take the key for held down, also in the next window.
xdotool keyup Return
check "which a key closes" player_wait 5 refusal_is_gone
wait "$second" || true
check "the log says so" said 'not converted: another Tessivo is running'
check "the running player goes on" shows rows 3
player_drive close
check "nothing was converted" test ! -e "$folder/SysConfig.db"

player_start "$folder" --convert
check "what has been converted is said" player_wait 5 dialog_says "$converted"
desktop_screenshot "$shots/converted.png"
player_drive answer cmdYes
check "the converted list is there" shows rows 3
player_drive volume 22 close
check "the file itself is as it was" untouched
check "the rows are as they were" in_rows "select volume_value from sys" 77
check "the new database is used from then on" \
  test "$(sqlite3 "$folder/SysConfig.db" "select volume_value from sys")" = 22
