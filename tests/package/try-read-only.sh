#!/usr/bin/env bash
# The zip in a folder that may not be written: the program says so and plays.
# The super-user may write everywhere unless that right is taken away.
if [[ $(id -u) == 0 && -z ${TESSIVO_BOUND:-} ]]; then
  TESSIVO_BOUND=yes exec setpriv --inh-caps=-dac_override,-dac_read_search \
    --bounding-set=-dac_override,-dac_read_search "$0" "$@"
fi
source "$(dirname "${BASH_SOURCE[0]}")/package.sh"

notice='无法写入程序文件夹中的数据库 SysConfig，播放列表和设置不会保存。请把泰思维放到您有权写入的文件夹中。'
package_begin read-only
unpack "$c/只读"
installed=$c/只读/Tessivo
program=$(windows_path "$installed/Tessivo.exe")
chmod -R a-w "$c/只读"
trap 'player_end; desktop_stop; chmod -R u+w "$c/只读"' EXIT
check "the folder cannot be written" test ! -w "$installed"
start_program "$program"
check "the program says so" player_wait 10 dialog_says "$notice"
desktop_screenshot "$shots/notice.png"
check "Enter closes the notice" enter_closes_notice
check "a file is added and plays" plays "$clips/long.mp4"
check "it leaves" leave
check "nothing was written there" test ! -e "$installed/SysConfig" -a ! -e "$installed/Tessivo.log"
check "the log is in the user's folder" grep -q ' stop' "$home/AppData/Local/Tessivo/Tessivo.log"
