#!/usr/bin/env bash
# Whatever lies where the database should be, the player starts, says what it found, loses nothing
# and leaves in order.
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
journey bad-database

damaged='数据库 SysConfig 已损坏，无法读取其中的播放列表和设置。原文件保留在程序文件夹中，文件名以 SysConfig.damaged 开头；现在使用新的空列表。'
access='数据库 SysConfig 是 Microsoft Access 文件，在这台电脑上无法读取（没有它的驱动程序，或文件已损坏，详见 Tessivo.log）。原文件没有改动；播放列表和设置现在保存在新的数据库 SysConfig.db 中。要转入原有的数据，请用 32 位版运行一次 Tessivo.exe --convert（详见使用说明）。'
failed='SysConfig 没有转换，原因详见 Tessivo.log。'
not_converted="${failed}原有的文件没有改动。"

# The player opens, plays a file and closes.
opens_and_plays() {
  rm -f "$folder/Tessivo.log"
  player_start "$folder" "$(player_windows_path "$clips/film.avi")" &&
    says_within 20 ' playing: ' && player_drive close && said ' stop$'
}
# The same, with a notice over the panel, which holds nothing up.
says_so_and_plays() {
  rm -f "$folder/Tessivo.log"
  player_start "$folder" "$(player_windows_path "$clips/film.avi")" &&
    says_within 20 ' playing: ' && player_wait 5 dialog_says "$1" || return
  desktop_screenshot "$shots/notice.png"
  player_drive answer cmdYes close && said ' stop$'
}
same() { [[ $(sha1sum <"$1") == "$2" ]]; }
rows_after_restart() {
  local rows
  player_start "$folder"
  rows=$(player_shows rows)
  player_drive close
  [[ $rows == "$1" ]]
}
fresh() { rm -f "$folder"/SysConfig* "$folder"/Tessivo.log; }

check "no database: the player works" opens_and_plays
check "no database: the next run has the list" rows_after_restart 1

fresh
: >"$folder/SysConfig"
check "an empty file: the player works" opens_and_plays
check "an empty file: the next run has the list" rows_after_restart 1

truncate -s 3000 "$folder/SysConfig"
sum=$(sha1sum <"$folder/SysConfig")
check "a truncated database: the player says so and works" says_so_and_plays "$damaged"
check "a truncated database is kept aside as it was" same "$folder/SysConfig.damaged-1" "$sum"
check "a truncated database: the next run has the list" rows_after_restart 1

fresh
LC_ALL=C awk 'BEGIN { srand(3); for (i = 0; i < 20000; ++i) printf "%c", int(rand() * 255) + 1 }' \
  >"$folder/SysConfig"
sum=$(sha1sum <"$folder/SysConfig")
check "random bytes: the player says so and works" says_so_and_plays "$damaged"
check "random bytes are kept aside as they were" same "$folder/SysConfig.damaged-1" "$sum"

fresh
player_list "$folder" 7 32767 "$clips/film.avi"
in_database() { sqlite3 "$folder/SysConfig" "$1"; }
in_database "update sys set recycle_play = 'x', volume_value = 99999999999,
  current_play_position = 'nonsense', current_play_item_len = null, save_play_list = 1;
  update play_list set item_order = 'first', is_play_item = 'yes', file_name = null;"
check "wrong types and numbers out of range: the player works" opens_and_plays
check "wrong types and numbers out of range: no file is taken for damaged" test ! -e "$folder/SysConfig.damaged-1"
check "wrong types and numbers out of range: the list is kept" rows_after_restart 2

fresh
{ printf '\0\1\0\0Standard Jet DB\0' && head -c 20000 /dev/zero; } >"$folder/SysConfig"
sum=$(sha1sum <"$folder/SysConfig")
check "an Access file: the player says so and works" says_so_and_plays "$access"
check "an Access file stays as it was" same "$folder/SysConfig" "$sum"
check "an Access file: the next run has the list, from the new database" rows_after_restart 1
converts_or_says_so() {
  player_start "$folder" --convert && player_wait 5 dialog_says "$not_converted" || return
  desktop_screenshot "$shots/not-converted.png"
  player_drive answer cmdYes && [[ $(player_shows rows) == 1 ]] && player_drive close
}
check "an Access file that cannot be converted: the player says so and works" converts_or_says_so
check "an Access file that cannot be converted stays as it was" same "$folder/SysConfig" "$sum"
rm "$folder/SysConfig"
check "an Access file that is gone: the next run has the list of the new database" rows_after_restart 1
check "an Access file that is gone: there is no other database" test ! -e "$folder/SysConfig"
truncate -s 3000 "$folder/SysConfig.db"
check "a truncated new database: the player names it" says_so_and_plays "${damaged//SysConfig/SysConfig.db}"

fresh
{ printf '\0\1\0\0Standard Jet DB\0' && head -c 20000 /dev/zero; } >"$folder/SysConfig"
says_both() {
  player_start "$folder" --convert && player_wait 5 dialog_says "$failed$access" || return
  desktop_screenshot "$shots/both.png"
  player_drive answer cmdYes close
}
check "a conversion that cannot be: the player also says what is used now" says_both

fresh
player_list "$folder" 1 40 "$clips/film.avi" "$clips/long.mp4"

# Another program holds the database while the player runs.
rows_before=$(in_database "select count(*) from play_list")
mkfifo "$folder/hold"
sqlite3 "$folder/SysConfig" <"$folder/hold" &
holder=$!
exec 8>"$folder/hold"
echo 'begin exclusive;' >&8
sleep 0.5
check "held by another program: the player works" opens_and_plays
check "held by another program: the log says so" said 'SysConfig'
echo 'rollback;' >&8
exec 8>&-
wait "$holder" || true
rm "$folder/hold"
check "held by another program: nothing is lost" \
  test "$(in_database "select count(*) from play_list")" = "$rows_before"
