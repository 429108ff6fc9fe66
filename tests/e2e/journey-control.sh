#!/usr/bin/env bash
# Installed controls in the slots: the test control plays RealPlayer's part, well and badly, Wine's
# own Windows Media Player control the other one's. And what Engines.ini says about it.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

# begin PART RULE FILE: the player plays it.
begin() {
  export TESSIVO_TEST_CONTROL_SCRIPT=$1
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log "$folder"/calls.txt
  player_list "$folder" "$2" 100 "$3"
  player_start "$folder"
  player_drive play
}
leaves() {
  local start=$SECONDS
  player_drive close && said ' stop$' && ((SECONDS - start <= 5))
}
counts() {
  [[ $(player_said "$folder" ' playing: ') == "$1" ]] &&
    [[ $(player_said "$folder" 'error play error: ') == "$2" ]]
}
picture_fills_right() {
  desktop_screenshot "$shots/picture.png"
  player_picture_fills_right "$shots/picture.png"
}
# The test control's picture is an even magenta.
is_magenta() {
  desktop_screenshot "$shots/magenta.png"
  [[ $(/usr/bin/convert "$shots/magenta.png" -crop 1x1+1920+512 -format '%[fx:r>0.7&&g<0.1&&b>0.7]' \
    info:) == 1 ]]
}
is_heard() {
  local level
  level=$(sound_level)
  echo "  level $level"
  at_least "$level" 0.01
}

# falls_back PART RULE: Media Player plays instead.
falls_back() {
  begin "$1" "$2" "$clips/film.avi"
  check "$1, rule $2: Media Player plays" says_within 20 ' playing: .*film.* | Media Player |'
  check "$1, rule $2: its picture is there" player_wait 4 picture_fills_right
  check "$1, rule $2: it ends, nothing failed" says_within 20 ' ended: '
  check "$1, rule $2: it leaves" leaves
  check "$1, rule $2: it began once" counts 1 0
}
# fails PART RULE FILE
fails() {
  begin "$1" "$2" "$3"
  check "$1, rule $2: the message" shows_within 20 note "${3##*/}: ${journey_unplayable[$2]}"
  check "$1, rule $2: stopped" shows state '停止: '
  check "$1, rule $2: it leaves" leaves
  check "$1, rule $2: nothing began, one error" counts 0 1
}

with_test_control() {
  journey control
  journey_random_bytes "$clips/random.avi"
  journey_test_control play
  begin 'play 4000' 2 "$clips/film.avi"
  check "play: the control plays" says_within 20 ' playing: .*film.* | RealPlayer | 00:00:04'
  check "play: its picture is there" player_wait 4 is_magenta
  check "play: it ends" says_within 20 ' ended: '
  check "play: it leaves" leaves
  check "play: the slot held the control" said 'RealPlayer slot: the installed control'
  check "play: it was told to play once" test "$(grep -c '^257 call' "$folder/calls.txt")" == 1
  begin 'play 4000' 1 "$clips/random.avi"
  check "play, rule 1: what Media Player cannot play the control plays" \
    says_within 20 ' playing: .*random.* | RealPlayer | 00:00:04'
  check "play, rule 1: it leaves" leaves
  fails early-stop 2 "$clips/film.avi"
  fails error 2 "$clips/film.avi"
  # One that fails every call counts as missing where there is nothing to stand in for it.
  journey_engines embedded auto
  fails fail 2 "$clips/film.avi"
  fails early-stop 1 "$clips/random.avi"
  falls_back early-stop 0
  falls_back error 0
  falls_back fail 0
  falls_back fail 1
}

# The control never answers: the start is pending until something else is wanted.
with_silent_control() {
  begin silent 2 "$clips/film.avi"
  sleep 3
  check "silent: it neither plays nor fails" counts 0 0
  player_drive play
  check "silent: the panel's button answers" shows state '暂停播放: '
  player_drive stop
  check "silent: so does its stop" shows state '停止: '
  check "silent: it leaves at once" leaves
  begin silent 2 "$clips/film.avi"
  player_drive rule 1 play
  check "silent: another rule abandons it" says_within 20 ' playing: .*film.* | Media Player |'
  check "silent: and the player leaves" leaves
}

# slots TEXT MEDIA REAL: with that Engines.ini.
slots() {
  rm -f "$folder/Tessivo.log"
  player_start "$folder"
  check "$1: Media Player's slot holds $2" said "Media Player slot: $2"
  check "$1: RealPlayer's slot holds $3" said "RealPlayer slot: $3"
  check "$1: it leaves" leaves
}
with_engines_ini() {
  local control='the installed control' embedded='the embedded engine'
  export TESSIVO_TEST_CONTROL_SCRIPT=play
  rm "$folder/Engines.ini"
  slots "without Engines.ini" "$control" "$control"
  journey_engines embedded banana
  slots "an unknown value" "$embedded" "$control"
  check "an unknown value: the log says so" said 'Engines.ini: not understood: RealPlayer=banana'
  journey_engines auto auto
  slots "auto" "$control" "$control"
  cp "$clips/random.avi" "$folder/Engines.ini"
  printf '\0' >>"$folder/Engines.ini"
  slots "random bytes" "$control" "$control"
  check "random bytes: the log says so" said 'error Engines.ini is no such file; the installed controls'
  # No RealPlayer from here on. (journey-players.sh: where it is needed.)
  player_end
  PLAYER_NAME=journey
}

with_media_player_control() {
  journey_clip "$clips/tone.wav" testsrc 6 -vn -c:a pcm_s16le
  journey_engines control embedded
  begin '' 3 "$clips/tone.wav"
  check "Media Player's control plays" says_within 20 ' playing: .*tone.* | Media Player | 00:00:06'
  check "it is heard" is_heard
  check "it ends" says_within 20 ' ended: '
  check "it leaves" leaves
  check "it began once, nothing failed" counts 1 0
  begin '' 3 "$clips/random.avi"
  check "random bytes give the message" shows_within 20 note "random.avi: ${journey_unplayable[3]}"
  check "the player leaves" leaves
  check "one error" counts 0 1
}

with_test_control
with_silent_control
with_engines_ini
with_media_player_control
