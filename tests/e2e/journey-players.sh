#!/usr/bin/env bash
# The player check: what its dialog says without Engines.ini where the RealPlayer control is missing,
# its buttons, the ways out of it, and that it goes by itself when the control is there. And that
# nothing of the kind comes up where the slots have engines of their own.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

title=播放器检查
notes='本播放器需要 Windows Media Player 和 Real Player 播放器的支持，当前这两个播放器的配置状态为：'
missing=' 尚未安装，需要安装 -->'
vista='Windows Media Player 11 for Vista'
download=从网上下载该播放器
install=立即安装该播放器
window_of() { xdotool search --onlyvisible --name "^$1\$" 2>/dev/null | head -n 1; }
is_up() { [[ -n $(window_of "$1") ]]; }
is_gone() { [[ -z $(window_of "$1") ]]; }
has_ended() { ! kill -0 "$PLAYER_PID" 2>/dev/null; }
# says TITLE TEXT: the controls to be seen in it, "name text" each, "|" between.
says() {
  found=$(player_drive form "$1" | tr '\n' '|')
  [[ $found == "$2" ]]
}
# players_are MEDIA REAL: all that is to be seen, and what it says of the two.
players_are() {
  says "$title" "Picture1 |labNotes $notes|picUpdateButtonPal |Picture2 |$1|Picture3 |$2|cmdOk 确定|"
}
media_there='labMediaNotes Windows Media Player 已经安装。'
real_there='labRealNotes Real Player 已经安装。'
media_missing="labMediaNotes $vista$missing|cmdInstallMediaPlayer $download"
real_missing="labRealNotes RealPlayer 11$missing|cmdInstallRealPlayer $download"
real_with_installer="labRealNotes RealPlayer 11$missing|cmdInstallRealPlayer $install"

# begin [ARGUMENT…]: the player starts; nobody waits for a panel.
begin() {
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  TESSIVO_TIMEOUT=300 player_wine "$folder/Tessivo.exe" "$@" &
  PLAYER_PID=$!
}
begin_with_dialog() {
  begin "$@"
  player_wait 30 is_up "$title" || return
  player_wait 5 has_keyboard "$title" || xdotool windowactivate "$(window_of "$title")"
  sleep 0.3
}
has_keyboard() { [[ $(xdotool getwindowfocus getwindowname 2>/dev/null) == "$1" ]]; }
key() {
  xdotool key --delay 40 "$@"
  sleep 0.3
}
# click NAME
click() {
  local x y w h
  read -r x y w h < <(player_drive form-where "$title" "$1")
  xdotool mousemove $((x + DESKTOP_ORIGIN_X + w / 2)) $((y + DESKTOP_ORIGIN_Y + h / 2)) click 1
}
# ends WHAT: the program does, in order, and without having gone on.
ends() {
  local status=0
  if ! player_wait 5 has_ended; then
    check "$1: the program ends" false
    player_end
    return
  fi
  check "$1: the program ends" true
  wait "$PLAYER_PID" || status=$?
  PLAYER_PID=
  check "$1: without an error" test "$status" == 0
  check "$1: the log says why" said ' stop: a player is missing'
  check "$1: nothing was begun" test ! -e "$folder/SysConfig"
}
is_centred() {
  local x y w h
  read -r x y w h < <(player_drive form-where "$title" form)
  found="$x $y $w $h"
  ((x > 0 && y > 0 && (2 * x + w - 1280) ** 2 <= 4 && (2 * y + h - 1024) ** 2 <= 4))
}

without_real_player() {
  begin_with_dialog "$(player_windows_path "$clips/film.avi")"
  check "the dialog comes up" is_up "$title"
  check "it says what is missing, to the letter" players_are "$media_there" "$real_missing"
  check "in the middle of the primary monitor" is_centred
  desktop_screenshot "$shots/real-player-missing.png"
  check "the log says so" said 'RealPlayer is not installed: the RealPlayer control is not installed'
  player_wine "$folder/Tessivo.exe" "$(player_windows_path "$clips/film.avi")"
  check "a second start ends and changes nothing" players_are "$media_there" "$real_missing"
  sleep 4.5
  check "it stays while the player is missing" players_are "$media_there" "$real_missing"
  check "what stays as it is is said once" test "$(player_said "$folder" 'RealPlayer is not')" == 1
  key Escape
  ends "Esc"
  begin_with_dialog
  key Tab Return
  ends "Tab to the last button and Enter"
  begin_with_dialog
  click cmdOk
  ends "the last button by the mouse"
  begin_with_dialog
  key alt+F4
  ends "the close box"
  begin_with_dialog
  player_drive form-session-ends "$title"
  ends "the end of the session"
}

with_its_buttons() {
  begin_with_dialog
  click cmdInstallRealPlayer
  check "without a page the log says so" \
    says_within 5 'cannot open .*\\DLUrls\\realXP.htm, shell code '
  key Return
  check "Enter presses the button that has the keyboard" says_within 5 'cannot open .*realXP.htm' 2
  key Escape
  ends "after that"
  # A stand-in, in a folder with a blank, and a program named like the part before it.
  mkdir -p "$folder/PlyPcks"
  cp "$PLAYER_PROGRAMS/tests/stand_in_saver.exe" "$folder/PlyPcks/rpInstall_XP.exe"
  cp "$PLAYER_PROGRAMS/tests/stand_in_saver.exe" "${folder%% *}.exe"
  begin_with_dialog
  check "with an installer the button says so" players_are "$media_there" "$real_with_installer"
  desktop_screenshot "$shots/installer.png"
  click cmdInstallRealPlayer
  check "it starts the installer" player_wait 10 test -s "$folder/PlyPcks/rpInstall_XP.txt"
  check "with an ordinary window and without arguments" installer_was_started
  check "and nothing else" test ! -e "${folder%% *}.txt"
  check "the log says whether the user is an administrator" said 'the user is an administrator '
  check "the dialog stays" is_up "$title"
  key Escape
  ends "after that"
  rm -r "$folder/PlyPcks"
}
installer_was_started() {
  found=$(head -n 1 "$folder/PlyPcks/rpInstall_XP.txt" | tr -d '\r')
  [[ $found =~ ^start\ style\ 1\ tick\ [0-9]+:\ \"[^\"]*rpInstall_XP.exe\"\ *$ ]]
}

with_an_old_media_player() {
  cp "$PLAYER_PROGRAMS/tests/OldPlayer.dll" "$folder/wmp.dll"
  begin_with_dialog
  check "Media Player 8 is too old" players_are "$media_missing" "$real_missing"
  desktop_screenshot "$shots/both-missing.png"
  rm "$folder/wmp.dll"
  check "a newer one is seen within seconds" \
    player_wait 6 players_are "$media_there" "$real_missing"
  key Escape
  ends "after that"
}

control_library=$(player_windows_path "$PLAYER_PROGRAMS/tests/TestControl.dll")
is_registered() { player_wine regsvr32 /s "$control_library"; }
is_withdrawn() { player_wine regsvr32 /s /u "$control_library"; }
when_it_is_installed() {
  local from took
  begin_with_dialog
  is_registered
  from=$(date +%s%3N)
  player_wait 10 has_ended || true
  took=$(($(date +%s%3N) - from))
  echo "$name: ended $took ms after the control was there"
  check "it goes by itself within some two seconds" test "$took" -le 3000
  ends "the player is there"
  begin
  check "the next start goes on" player_drive wait
  check "without the dialog" is_gone "$title"
  check "with the control" said 'RealPlayer slot: the installed control'
  check "the log says that both are there" said 'RealPlayer is installed'
  player_drive close
  player_end
  is_withdrawn
}

# Windows 10 says what it is to a program that names it, and then no product would be offered.
on_windows_10() {
  PLAYER_NAME=journey-windows-10
  player_wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
  begin_with_dialog
  check "Windows 10 counts as Vista" players_are "$media_there" "$real_missing"
  key Escape
  ends "Windows 10"
  player_end
  PLAYER_NAME=journey-control
}

# Without Media Foundation's libraries, as on editions N.
without_media_foundation() {
  export WINEDLLOVERRIDES='mscoree,mshtml,winemenubuilder.exe=;mf,mfplat='
  starts_with control auto
  starts_with auto auto
  check "auto: the log says what is missing" said 'Media Foundation is not there: no mfplat.dll'
  cp "$PLAYER_PROGRAMS/tests/OldPlayer.dll" "$folder/wmp.dll"
  journey_engines embedded auto
  begin_with_dialog
  check "embedded: Media Player is asked for instead" players_are "$media_missing" "$real_there"
  key Escape
  ends "without Media Foundation"
  begin_with_dialog --convert
  key Escape
  ends "without Media Foundation, with --convert"
  check "a conversion that was not done is in the log" said 'not converted: a player is missing'
  rm "$folder/wmp.dll"
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 1 40 "$clips/film.avi"  # Media Player is preferred
  player_start "$folder"
  player_drive play
  check "a file fails in the slot without an engine" says_within 30 '0x8007007e'
  check "and is played by the other engine" says_within 30 ' playing: .*film'
  desktop_screenshot "$shots/without-media-foundation.png"
  player_drive close
  player_end
  export -n WINEDLLOVERRIDES
  unset WINEDLLOVERRIDES
}

# starts_with MEDIA REAL: by that Engines.ini nothing is missing.
starts_with() {
  journey_engines "$1" "$2"
  begin
  check "$1, $2: it starts" player_drive wait
  check "$1, $2: without the dialog" is_gone "$title"
  player_drive close
  player_end
}
with_engines_ini() {
  starts_with auto auto
  starts_with embedded embedded
  starts_with control auto
  check "control, auto: Media Player was looked for" said 'Windows Media Player is installed'
  check "control, auto: RealPlayer was not" test "$(player_said "$folder" 'RealPlayer is')" == 0
  journey_engines embedded control
  begin_with_dialog
  check "embedded, control: RealPlayer is missing" players_are "$media_there" "$real_missing"
  check "embedded, control: Media Player was not looked for" \
    test "$(player_said "$folder" 'Windows Media Player is')" == 0
  key Escape
  ends "embedded, control"
}

journey players
# The environment in which the test control comes and goes.
PLAYER_NAME=journey-control
player_end
is_withdrawn || true
folder="$folder/两个 播放器"
player_install "$folder"
rm "$folder/Engines.ini"
without_real_player
with_its_buttons
with_an_old_media_player
when_it_is_installed
with_engines_ini
on_windows_10
without_media_foundation
