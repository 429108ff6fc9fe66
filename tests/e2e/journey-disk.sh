#!/usr/bin/env bash
# The disk is full, or the folder or the database come to be read-only, from the start or while the
# program runs: it plays and leaves, says what it cannot keep, and the stored list stays.
# The super-user may write everywhere unless that right is taken away.
if [[ $(id -u) == 0 && -z ${TESSIVO_BOUND:-} ]]; then
  TESSIVO_BOUND=yes exec setpriv --inh-caps=-dac_override,-dac_read_search \
    --bounding-set=-dac_override,-dac_read_search "$0" "$@"
fi
# A process that may write no more gets a signal, which is to be an error instead.
trap '' XFSZ
source "$(dirname "${BASH_SOURCE[0]}")/panel.sh"
journey disk

cannot_be_made='数据库 SysConfig 现在无法建立或读取（磁盘可能已满，详见 Tessivo.log），播放列表和设置可能不会保存。请检查磁盘，再重新启动泰思维。'
read_only='无法写入程序文件夹中的数据库 SysConfig，播放列表和设置不会保存。请把泰思维放到您有权写入的文件夹中。'
trap 'chmod -R u+w "$folder"; player_end; desktop_stop' EXIT

stored() { sqlite3 "$folder/SysConfig" 'select count(*) from play_list'; }
is_sound() { [[ $(sqlite3 "$folder/SysConfig" 'pragma integrity_check') == ok ]]; }
starts_over() {
  chmod -R u+w "$folder"
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 3 40 "$clips/long.mp4"
}
# A file more, which plays.
plays_another() {
  player_start "$folder" "$(player_windows_path "$clips/film.avi")" && says_within 20 ' playing: '
}
says_and_plays() {
  plays_another && player_wait 5 dialog_says "$1" || return
  desktop_screenshot "$shots/$2.png"
  player_drive answer cmdYes close && said ' stop$'
}
leaves_and_says() { player_drive close && said ' playlist not saved: ' && said ' stop$'; }
old_list() { is_sound && [[ $(stored) == 1 ]]; }
next_run_keeps() {
  rm -f "$folder/Tessivo.log"
  plays_another && player_drive close && is_sound && [[ $(stored) == 2 ]]
}
# No file of the player may grow beyond so many bytes: its database is larger.
fill_disk() {
  local process
  for process in $(pgrep -x Tessivo.exe); do
    if grep -qF "$folder/Tessivo.exe" "/proc/$process/cmdline"; then
      prlimit --fsize=20000 --pid "$process"
      return
    fi
  done
  return 1
}

starts_over
check "a full disk while it runs: it plays" plays_another
check "a full disk while it runs: no file may grow" fill_disk
check "a full disk while it runs: it leaves and says so" leaves_and_says
check "a full disk while it runs: the old list is there" old_list
check "a full disk while it runs: the next run keeps its list" next_run_keeps

starts_over
check "a folder made read-only while it runs: it plays" plays_another
chmod a-w "$folder"
check "a folder made read-only while it runs: it leaves and says so" leaves_and_says
check "a folder made read-only while it runs: the old list is there" old_list
rm -f "$folder/Tessivo.log" 2>/dev/null || true
check "a folder that is read-only from the start: it says so and plays" \
  says_and_plays "$read_only" folder
check "a folder that is read-only from the start: the old list is there" old_list
chmod u+w "$folder"
check "a folder that may be written again: the next run keeps its list" next_run_keeps

starts_over
check "a database made read-only while it runs: it plays" plays_another
chmod a-w "$folder/SysConfig"
check "a database made read-only while it runs: it leaves and says so" leaves_and_says
check "a database made read-only while it runs: the old list is there" old_list
chmod u+w "$folder/SysConfig"
check "a database that may be written again: the next run keeps its list" next_run_keeps

starts_over
rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
ulimit -S -f 16
check "a full disk at the first start: it plays" plays_another
ulimit -S -f unlimited
says_so_and_leaves() {
  player_wait 5 dialog_says "$cannot_be_made" || return
  desktop_screenshot "$shots/first-start.png"
  player_drive answer cmdYes close && said ' stop$'
}
check "a full disk at the first start: it says so" says_so_and_leaves
check "a full disk at the first start: the next run has no list, and keeps one" \
  eval 'plays_another && player_drive close && is_sound && [[ $(stored) == 1 ]]'
