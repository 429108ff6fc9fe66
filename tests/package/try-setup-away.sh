#!/usr/bin/env bash
# What uninstalling takes away and what it leaves: a program that runs, the types that the settings dialog
# took, list and settings, a database of Microsoft Access.
source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
source tests/e2e/settings.sh

setup_begin setup-away
local_data=$home/AppData/Local/Tessivo

# Everything in the folder and what the system knows.
state() {
  find "$installed" -type f -exec sha256sum {} + | sort
  exported "$uninstall_key"
}
while_a_saver_runs() {
  local before clock
  run_setup /S
  # What an upgrade would replace.
  echo changed >>"$installed/先读我.txt"
  before=$(state)
  player_wine "$installed/SSP/时钟.exe" &
  clock=$!
  check "the clock's settings are open" player_wait 20 window_titled '^时钟'
  check "an upgrade is given up then" gives_up run_setup /S
  check "and has changed nothing" test "$(state)" == "$before"
  check "uninstalling, too" gives_up uninstall_in_place "$installed" /S
  check "and has changed nothing" test "$(state)" == "$before"
  xdotool windowactivate "$(xdotool search --onlyvisible --name '^时钟' | head -n 1)"
  key Escape
  wait "$clock" || true
  check "closed, the upgrade is made" run_setup /S
  check "it is" fails grep -q changed "$installed/先读我.txt"
}

types() { player_wine reg "$1" "HKCR\\$2" "${@:3}" >/dev/null; }
dialog_takes() {
  start_program "$program"
  open_settings
  open_file_types
  tick_type "$1"
  settings_key Return
  check "the dialog has taken $1" player_wait 5 value_is "HKCR\\$1" '' "Tessivo$1"
  leave
}
types_are_handed_back() {
  types add .ogg /ve /d Other.Player /f
  # A Tessivo of another folder has this one.
  types add .wma /ve /d Tessivo.wma /f
  types add 'Tessivo.wma\shell\open\command' /ve /d '"C:\else\Tessivo.exe" %1' /f
  types add '.avi\OpenWithProgids' /v Other.Player /f
  dialog_takes .avi
  run_setup /S
  check "an upgrade leaves the type" value_is 'HKCR\.avi' '' Tessivo.avi
  uninstall /S
  check "uninstalled: the type is nobody's" fails has_default 'HKCR\.avi'
  check "uninstalled: of its key the rest stays" has_value 'HKCR\.avi\OpenWithProgids' Other.Player
  check "uninstalled: the identifier is gone" fails has_key 'HKCR\Tessivo.avi'
  check "uninstalled: another program's type stays" value_is 'HKCR\.ogg' '' Other.Player
  check "uninstalled: so does that of another folder" value_is 'HKCR\.wma' '' Tessivo.wma
  check "uninstalled: with its identifier" has_key 'HKCR\Tessivo.wma'
}

settings_are_kept() {
  run_setup /S
  sed -i 's/^RealPlayer=auto/RealPlayer=embedded/' "$installed/Engines.ini"
  echo 'Size=3' >"$installed/SSP/时钟.ini"
  mkdir -p "$local_data"
  echo 'Size=4' >"$local_data/时钟.ini"
  uninstall /S
  check "kept: the choice of engines" grep -q '^RealPlayer=embedded' "$installed/Engines.ini"
  check "kept: a saver's settings" grep -q '^Size=3' "$installed/SSP/时钟.ini"
  check "kept: also those in the user's folder" grep -q '^Size=4' "$local_data/时钟.ini"
}
only_what_is_not_ours_stays() {
  run_setup /S
  { printf '\0\1\0\0Standard Jet DB\0'; head -c 4000 /dev/zero; } >"$installed/SysConfig"
  touch "$installed"/SysConfig{.db,.db.old-1,.damaged-1,-journal,' - 副本'} "$local_data/Tessivo.log"
  uninstall /S /DATA
  check "with the data: the Access database and a copy of the user's stay" \
    test "$(ls "$installed")" == $'SysConfig\nSysConfig - 副本'
  check "with the data: nothing is left in the user's folder" is_away "$local_data"
  check "nor in the registry" registry_is_clean
}
the_question_names_it() {
  run_setup /S
  titles=$away_titles
  uninstall &
  check "its windows come up" player_wait 30 window_titled "$titles"
  next_page uninstall
  sleep 4
  desktop_screenshot "$shots/question.png"
  key Return
  sleep 2
  next_page end
  wait $!
  check "the Access database is kept" test -s "$installed/SysConfig"
}

while_a_saver_runs
types_are_handed_back
settings_are_kept
only_what_is_not_ours_stays
the_question_names_it
