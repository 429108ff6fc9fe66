#!/usr/bin/env bash
# File types, from the settings dialog to the shell: a type that another program has is taken in the
# dialog, files of it are started through the shell with a player running and without one, and switching
# it off gives the type back. The registry is compared as it is exported, all classes of it.
#
# Under Wine the user belongs to the local group "Administrators", so that it is the real dialog that
# takes and gives back; access to keys is not checked there. The one before is
# tests/programs/note_arguments.cpp, which notes what the shell started it with.
source "$(dirname "${BASH_SOURCE[0]}")/tray.sh"
source tests/e2e/settings.sh

# What a file's name may hold without leading the shell or the player astray.
awkward="中文 & (1) 100%1 'x' ^!,;=+@# “引号” [a] \$b.avi"

classes() { player_wine reg "$1" "HKCR\\$2" "${@:3}" 2>&1 | tr -d '\r'; }
# A key's default value; nothing when there is none.
value_of() { classes query "$1" /ve | sed -n 's/^ *(Default) *REG_SZ *//p'; }
value_is() {
  found=$(value_of "$1")
  [[ $found == "$2" ]]
}
# The program NAME, which notes into NAME.txt, has the class.
class_of_program() {
  classes add "$1" /ve /d "what $2 plays" /f
  classes add "$1\\DefaultIcon" /ve /d 'C:\theirs.ico,3' /f
  classes add "$1\\shell\\open\\command" /ve /f \
    /d "\"$(player_windows_path "$PLAYER_PROGRAMS/tests/note_arguments.exe")\" $(notes_path "$2") %1"
} >/dev/null
notes_path() { player_windows_path "$folder/$1.txt"; }
without_own_classes() {
  local class
  for class in .avi .mp3 Tessivo.avi Tessivo.mp3 Former.avi Former.mp3 WMP11.AssocFile.AVI; do
    classes delete "$class" /f || true
  done
} >/dev/null
# All classes, but for the key that Tessivo keeps for a type that it once had.
all_classes() {
  player_wine reg export HKCR "$(player_windows_path "$folder/classes.reg")" /y >/dev/null
  iconv -f UTF-16 -t UTF-8 "$folder/classes.reg" | tr -d '\r' |
    awk 'BEGIN { RS = ""; ORS = "\n\n" } !/^\[HKEY_CLASSES_ROOT\\Tessivo\.avi[]\\]/'
}
classes_are_as_in() {
  all_classes >"$folder/now.txt"
  found=$(diff "$folder/$1.txt" "$folder/now.txt" | head -n 20 || true)
  [[ -s $folder/$1.txt && -z $found ]]
}
in_database() {
  found=$(sqlite3 "$folder/SysConfig" "select $1 from file_association where app_association='$2'")
  [[ $found == "$3" ]]
}

# A double click of the file manager, or of any other program, comes down to this.
shell_opens() { TESSIVO_TIMEOUT=${2:-60} player_wine start "$(player_windows_path "$1")"; }
# opened_by PROGRAM FILE: the shell starts it with that file, to the letter.
opened_by() {
  local program=$1 file=$2
  rm -f "$folder/$program.txt"
  shell_opens "$file"
  player_wait 10 test -s "$folder/$program.txt" || return
  found=$(<"$folder/$program.txt")
  [[ ${found#*.txt } == "$(player_windows_path "$file")" ]]
}
nobody_noted() {
  found=$(find "$folder" -name 'former*.txt')
  [[ -z $found ]]
}
plays() {
  local pattern
  pattern=$(sed 's/[][\.*^$]/\\&/g' <<<"$1")
  says_within 20 " playing: .*\\\\$pattern | " "${2:-1}" && shows_within 5 file "$1"
}
picture_fills_right() {
  desktop_screenshot "$shots/$1.png"
  player_picture_fills_right "$shots/$1.png"
}
processes_are() {
  found="$(player_wine "$PLAYER_PROGRAMS/tests/send_request.exe" players | tr -d '\r') processes"
  [[ $found == "$1 processes" ]]
}
stops() { player_drive stop && shows_within 5 state '停止: '; }

begin_with_two_types() {
  PLAYER_NAME=journey-associations
  player_end
  without_own_classes
  class_of_program Former.avi former
  class_of_program Former.mp3 former-mp3
  classes add .avi /ve /d Former.avi /f >/dev/null
  classes add .avi /v PerceivedType /d video /f >/dev/null
  classes add '.avi\OpenWithProgids' /v Former.avi /t REG_NONE /f >/dev/null
  classes add .mp3 /ve /d Former.mp3 /f >/dev/null
  player_list "$folder" 1 40
  # Two that others have, and one that nobody has: it is left alone as long as it is not ticked.
  sqlite3 "$folder/SysConfig" \
    "delete from file_association where app_association not in ('.avi', '.flv', '.mp3')"
  mkdir -p "$folder/films of mine"
  film="$folder/films of mine/film.avi"
  other="$folder/films of mine/$awkward"
  cp "$clips/film.avi" "$film"
  cp "$clips/film.avi" "$other"
}

before_it_is_taken() {
  all_classes >"$folder/before.txt"
  check "the shell opens a film with the program that has the type" opened_by former "$film"
  check "whatever its name" opened_by former "$other"
  player_start "$folder"
  player_wait 10 panel_is visible
  open_settings
  open_file_types
  check "the log says that the file types are open" said 'the user is an administrator '
  check "the type is not ticked" type_is .avi no
  tick_type .avi
  check "it can be ticked" type_is .avi yes
  desktop_screenshot "$shots/ticked.png"
  settings_key alt+c
  check "cancelled: the dialog is gone" player_wait 3 settings_are_gone
  check "and all classes are as before" classes_are_as_in before
  open_settings
  settings_key alt+s
  check "saved without the second tab: the dialog is gone" player_wait 3 settings_are_gone
  check "and all classes are as before, too" classes_are_as_in before
  check "as is the table" in_database "old_app_id || '-'" .avi -
}

taking() {
  open_settings
  open_file_types
  tick_type .avi
  settings_key alt+s
  check "saving closes the dialog" player_wait 5 settings_are_gone
  check "the type is ours" value_is .avi Tessivo.avi
  check "with the program's path" \
    value_is 'Tessivo.avi\shell\open\command' "\"$(player_windows_path "$folder/Tessivo.exe")\" %1"
  check "and its icon's" \
    value_is 'Tessivo.avi\DefaultIcon' "$(player_windows_path "$folder/TessivoMedia.ico")"
  check "who had it is kept" in_database old_app_id .avi Former.avi
  check "the other type is left alone" value_is .mp3 Former.mp3
}

through_the_shell() {
  rm -f "$folder"/former*.txt
  check "the shell hands a film to the player that runs" shell_opens "$film"
  check "it plays" plays film.avi
  check "it is in the list" row_is 0 film.avi
  check "its picture fills the second monitor" player_wait 5 picture_fills_right running
  check "one player" processes_are 1
  sleep 0.4
  check "another one, whatever its name" shell_opens "$other"
  check "plays" plays "$awkward"
  check "is in the list" row_is 1 "$awkward"
  check "one player still" processes_are 1
  check "the one before hears nothing of it" nobody_noted
  check "it is stopped" stops
  ends "leaving with the type taken"
}
ends() {
  check "$1" player_drive close
  player_end
}

without_a_player() {
  local file=$1 number=$2
  shell_opens "$file" 86400 &
  PLAYER_PID=$!
  player_drive wait
  check "without a player the shell starts one" processes_are 1
  check "it plays the film" plays "${file##*/}" "$number"
  check "its picture fills the second monitor" player_wait 5 picture_fills_right "started-$number"
  check "it is stopped" stops
  ends "it leaves"
}

giving_back() {
  player_start "$folder"
  player_wait 10 panel_is visible
  open_settings
  open_file_types
  check "the type is ticked" type_is .avi yes
  check "the other one is not" type_is .mp3 no
  tick_type .avi
  settings_key alt+s
  check "saving closes the dialog" player_wait 5 settings_are_gone
  check "all classes are as before the type was taken" classes_are_as_in before
  check "the shell opens a film with the one before" opened_by former "$film"
  check "whatever its name" opened_by former "$other"
  check "the player that runs hears nothing of it" shows rows 4
}

# Who had the type is gone when it is given back.
to_a_fall_back() {
  open_settings
  open_file_types
  tick_type .avi
  settings_key alt+s
  player_wait 5 settings_are_gone
  check "the type is taken again" value_is .avi Tessivo.avi
  classes delete Former.avi /f >/dev/null
  class_of_program WMP11.AssocFile.AVI fallback
  open_settings
  open_file_types
  tick_type .avi
  settings_key alt+s
  player_wait 5 settings_are_gone
  check "whose one before is gone goes to the fall-back" value_is .avi WMP11.AssocFile.AVI
  check "which the shell then starts" opened_by fallback "$other"
  check "and which is kept as the one before" in_database old_app_id .avi WMP11.AssocFile.AVI
  ends "leaving with the type given back"
}

journey associations
begin_with_two_types
before_it_is_taken
taking
through_the_shell
without_a_player "$film" 2
without_a_player "$other" 2
giving_back
to_a_fall_back
