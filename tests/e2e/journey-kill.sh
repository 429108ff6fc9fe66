#!/usr/bin/env bash
# The player is killed at many moments of leaving, saving among them: the stored list is the old one
# or the new one, complete.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey kill

items=20000
player_list "$folder" 3 40 "$clips/film.avi"
sqlite3 "$folder/SysConfig" "with recursive n(i) as (select 2 union all select i + 1 from n where i < $items)
  insert into play_list (item_order, flag_for_play_list, file_name, file_path, is_play_item)
  select i, 'F2026' || printf('%08d', i), 'n' || i, 'Z:\\no\\such\\' || i || '.avi', 0 from n;"
rm -f "$folder/before"

stored() { sqlite3 "$folder/SysConfig" 'select count(*) from play_list'; }
is_whole() {
  [[ $(sqlite3 "$folder/SysConfig" 'pragma integrity_check') == ok ]] &&
    [[ $(sqlite3 "$folder/SysConfig" 'select max(item_order) from play_list') == "$(stored)" ]]
}
old_or_new() { is_whole && (($(stored) == $1 || $(stored) == $1 + 1)); }

old_lists=0
new_lists=0
for delay in 100 205 215 225 235 245 255 270 290 320 360 420 500 3000; do
  before=$(stored)
  player_start "$folder" "$(player_windows_path "$clips/film.avi")"
  says_within 20 ' playing: '
  player_drive closekill "$delay"
  check "killed $delay ms after closing: the old list or the new one" old_or_new "$before"
  if (($(stored) == before)); then ((++old_lists)); else ((++new_lists)); fi
  rm -f "$folder/Tessivo.log"
done
echo "old list $old_lists times, new list $new_lists times"
check "both happened" test "$old_lists" -gt 0 -a "$new_lists" -gt 0
