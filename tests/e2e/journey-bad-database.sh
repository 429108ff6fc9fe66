#!/usr/bin/env bash
# Whatever lies where the database should be, the player starts, says what it found, loses nothing
# and leaves in order.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey bad-database

# The player opens, plays a file and closes.
opens_and_plays() {
  rm -f "$folder/Tessivo.log"
  player_start "$folder" "$(player_windows_path "$clips/film.avi")" &&
    says_within 20 ' playing: ' && player_drive close && said ' stop$'
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
check "a truncated database: the player works" opens_and_plays
check "a truncated database is kept aside as it was" same "$folder/SysConfig.damaged-1" "$sum"
check "a truncated database: the next run has the list" rows_after_restart 1

fresh
LC_ALL=C awk 'BEGIN { srand(3); for (i = 0; i < 20000; ++i) printf "%c", int(rand() * 255) + 1 }' \
  >"$folder/SysConfig"
sum=$(sha1sum <"$folder/SysConfig")
check "random bytes: the player works" opens_and_plays
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
