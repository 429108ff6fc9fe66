#!/usr/bin/env bash
# Each of the four play rules: a film with picture and sound from the rule's first engine, a file
# that neither engine can play, and the next film after it. Then a file that only the second engine
# can play.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

declare -A engine=([0]=RealPlayer [1]='Media Player' [2]=RealPlayer [3]='Media Player')

picture_fills_right() {
  desktop_screenshot "$shots/$1.png"
  player_picture_fills_right "$shots/$1.png"
}
# The clip's tone has a level of 0.088 at full volume.
is_heard() {
  local level
  level=$(sound_level)
  echo "  level $level"
  at_least "$level" 0.075 && at_most "$level" 0.1
}

# Both slots are filled by the embedded engines.
with_rule() {
  local rule=$1
  journey "rule-$rule"
  journey_clip "$clips/ten-seconds.mp4" testsrc 10 "${h264[@]}"
  journey_random_bytes "$clips/random.avi"
  player_list "$folder" "$rule" 100 "$clips/ten-seconds.mp4" "$clips/random.avi" "$clips/film.avi"
  journey_setting play_next_item_on_err 1
  player_start "$folder"
  player_drive play
  check "the rule's first engine plays" says_within 20 " playing: .*ten-seconds.* | ${engine[$rule]} |"
  check "its picture fills the second monitor" player_wait 4 picture_fills_right first
  check "its sound is heard" is_heard
  check "random bytes give the rule's message" \
    shows_within 30 note "random.avi: ${journey_unplayable[$rule]}"
  check "the next film plays" says_within 20 " playing: .*film.* | ${engine[$rule]} |"
  check "its picture fills the second monitor, too" player_wait 4 picture_fills_right next
  check "its sound is heard, too" is_heard
  check "the list comes to its end" says_within 20 ' ended: .*film'
  check "two files ended, one failed" said_exactly 2 ' ended: ' 1 'error play error: '
  player_drive close
  check "it leaves in order" said ' stop$'
  player_end
  desktop_stop
}
said_exactly() {
  [[ $(player_said "$folder" "$2") == "$1" && $(player_said "$folder" "$4") == "$3" ]]
}

# Of the pictures that Wine and its GStreamer know, this is one for DirectShow alone.
second_engine() {
  journey rule-second-engine
  journey_clip "$clips/cinepak.avi" testsrc 6 -c:v cinepak -pix_fmt rgb24 -c:a pcm_s16le
  player_list "$folder" 3 100 "$clips/cinepak.avi"
  player_start "$folder"
  player_drive play
  check "Media Player alone cannot play it" \
    shows_within 20 note "cinepak.avi: ${journey_unplayable[3]}"
  check "it never began" said_exactly 0 ' playing: ' 1 'error play error: '
  player_drive close
  rm -f "$folder"/SysConfig* "$folder"/Tessivo.log
  player_list "$folder" 1 100 "$clips/cinepak.avi"
  player_start "$folder"
  player_drive play
  check "where Media Player is preferred RealPlayer plays it" \
    says_within 20 ' playing: .*cinepak.avi | RealPlayer | 00:00:06'
  check "its picture fills the second monitor" player_wait 4 picture_fills_right cinepak
  check "its sound is heard" is_heard
  check "it ends" says_within 20 ' ended: '
  check "it began once, and nothing failed" said_exactly 1 ' playing: ' 0 'error play error: '
  player_drive close
  check "it leaves in order" said ' stop$'
  player_end
  desktop_stop
}

for rule in 0 1 2 3; do with_rule "$rule"; done
second_engine
