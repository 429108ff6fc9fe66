#!/usr/bin/env bash
# The windows of the setup program: what they say, and that they are seen while the control panel is open,
# which lies over all others.
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

setup_begin setup-windows
running='泰思维正在运行。按“确定”退出泰思维并继续。'
panel='^Tessivo 泰思维$'

# Fails when there are such lines.
none_says() { ! found=$(shown | grep -aE -- "$1"); }

while_it_runs() {
  run_setup /S
  start_program "$program"
  run_setup &
  check "an upgrade asks first" player_wait 20 says "$running"
  check "above the panel" player_wait 5 above_the_panel
  desktop_screenshot "$shots/running.png"
  key Escape
  check "not agreed, it ends" fails wait $!
  check "and the program runs on" panel_is visible
  run_setup &
  check "asked once more" player_wait 20 says "$running"
  key Return
  check "agreed, the program ends" player_wait 20 fails window_titled "$panel"
  check "then the pages begin" player_wait 10 says '下一步(&N) >'
  check "nothing has been touched" test -s "$installed/Tessivo.exe"
  start_program "$program"
  next_page running-welcome
  next_page running-licence
  next_page running-folder
  next_page running-components
  check "started again meanwhile, it is asked about at last" player_wait 10 says "$running"
  check "that, too, above the panel" player_wait 5 above_the_panel
  desktop_screenshot "$shots/running-again.png"
  key Return
  check "it goes on to the end" player_wait 60 says '完成(&F)'
  next_page running-finish
  wait $!
  check "and starts the program" player_wait 20 panel_is visible
  leave
}

# The panel of another folder's Tessivo, which is left alone.
texts_of_the_pages() {
  unpack "$c/另一个"
  start_program 'C:\另一个\Tessivo\Tessivo.exe'
  run_setup &
  check "the pages come up" player_wait 30 says '下一步(&N) >'
  check "above the panel" player_wait 5 above_the_panel
  check "welcome: nobody has to close all programs" none_says '你|关闭其他|重新启动计算机'
  next_page welcome
  check "licence: names its button" player_wait 5 says '如果您接受许可证的条款，请点击 [我接受(I)] 继续安装。'
  check "licence: which has that name" says '我接受(&I)'
  next_page licence
  check "folder: the one from before" player_wait 5 says "$(windows_path "$installed")"
  next_page folder
  check "components: say you politely" player_wait 5 says '选择您需要的组件。'
  check "components: throughout" none_says 你
  next_page components
  check "it installs" player_wait 60 says '完成(&F)'
  next_page finish
  wait $!
  check "the panel of the other folder is still there" panel_is visible
}

what_stays() {
  titles=$away_titles
  cp "$installed/SSP/时钟.exe" "$installed/SSP/我的.exe"
  uninstall /DATA &
  check "the uninstaller comes up" player_wait 30 says '卸载(&U)'
  check "above the panel" player_wait 5 above_the_panel
  check "it names the folder" says "$(windows_path "$installed")"
  next_page uninstall
  check "it says that the folder stays, and why" \
    player_wait 20 says "$(windows_path "$installed") 中还有您自己的文件，所以没有删除这个文件夹。"
  next_page stays
  wait $!
  check "the file is there" test "$(cd "$installed" && find . -type f)" == ./SSP/我的.exe
  run_setup /S
  uninstall &
  check "the uninstaller comes up again" player_wait 30 says '卸载(&U)'
  next_page uninstall-keeping
  sleep 4
  key Return
  check "it says what was kept" \
    player_wait 20 says "播放列表、设置和您自己的文件保留在 $(windows_path "$installed") 中。"
  next_page kept
  wait $!
  run_setup /S
  rm "$installed/SSP/我的.exe"
  uninstall /DATA &
  check "the uninstaller comes up a third time" player_wait 30 says '卸载(&U)'
  next_page uninstall-all
  check "where nothing stays it says no more" player_wait 20 says 已完成
  next_page all
  wait $!
  player_wait 5 is_away "$installed"
  check "nothing does" is_away "$installed"
  leave
}

uninstalling_while_it_runs() {
  run_setup /S
  start_program "$program"
  uninstall &
  check "uninstalling asks first, too" player_wait 20 says "$running"
  check "above the panel" player_wait 5 above_the_panel
  desktop_screenshot "$shots/uninstall-running.png"
  key Escape
  wait $! || true
  check "not agreed, nothing is gone" test -s "$installed/Tessivo.exe" -a -s "$installed/Uninstall.exe"
  check "and the program runs on" panel_is visible
  leave
}

# A file cannot be written: half a program is not offered.
in_the_way() {
  titles='^Tessivo 泰思维 安装'
  mkdir -p "$c/挡住/先读我.txt"
  run_setup '/D=C:\挡住' &
  check "it comes up" player_wait 30 says '下一步(&N) >'
  next_page way-welcome
  next_page way-licence
  next_page way-folder
  sleep 1
  # The message that it moves there.
  key Return
  next_page way-components
  check "a file that cannot be written is told" player_wait 20 says '请检查磁盘空间后点击 [重试]，或者点击 [取消] 停止安装。'
  check "and cannot be left out" none_says '忽略|Ignore'
  desktop_screenshot "$shots/in-the-way.png"
  key Escape
  check "it is given up" player_wait 20 says '安装程序未能完成安装。'
  next_page given-up
  wait $! || true
}

while_it_runs
texts_of_the_pages
what_stays
uninstalling_while_it_runs
in_the_way
