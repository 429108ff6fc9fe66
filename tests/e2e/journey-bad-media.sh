#!/usr/bin/env bash
# Media that is missing, empty, random, vanishes while it plays, or has an unusual name.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"
journey bad-media

media=build/e2e/media
rm -rf "$media"
mkdir -p "$media"
: >"$media/empty.avi"
journey_random_bytes "$media/random.avi"
cp "$clips/film.avi" "$media/gone.avi"
cp "$clips/film.avi" "$media/Ünïcödé ♫ 🎬.avi"
# A path of 300 characters.
deep=$media
while ((${#deep} < 230 - ${#PWD})); do deep+=/0123456789; done
deep+=/$(printf 'long%.0s' {1..12})
mkdir -p "$deep"
long=$deep/$(printf 'n%.0s' {1..60}).avi
cp "$clips/film.avi" "$long"

fails_with() {
  local rule=$1 file=$2
  rm -f "$folder"/SysConfig "$folder"/Tessivo.log
  player_list "$folder" "$rule" 40 "$media/$file"
  player_start "$folder"
  player_drive play
  shows_within 20 note "$file: ${journey_unplayable[$rule]}" && shows state '停止: ' &&
    [[ $(player_said "$folder" 'play error: ') == 1 ]] && player_drive close && said ' stop$'
}
plays() {
  rm -f "$folder"/SysConfig "$folder"/Tessivo.log
  player_list "$folder" "$1" 40 "$2"
  player_start "$folder"
  player_drive play
  says_within 20 ' playing: ' && says_within 20 ' ended: ' && player_drive close && said ' stop$'
}

for rule in 0 1 2 3; do
  check "an empty file under rule $rule gives its message" fails_with "$rule" empty.avi
  check "random bytes under rule $rule give its message" fails_with "$rule" random.avi
done
for rule in 2 3; do
  check "a path of ${#long} characters and more plays under rule $rule" plays "$rule" "$long"
  check "a name outside the code page plays under rule $rule" plays "$rule" "$media/Ünïcödé ♫ 🎬.avi"
done

rm -f "$folder"/SysConfig "$folder"/Tessivo.log
player_list "$folder" 3 40 "$media/gone.avi"
rm "$media/gone.avi"
player_start "$folder"
player_drive play
check "a missing file gives its message" shows_within 10 note 'gone.avi: 要播放的文件不存在.'
player_drive close

for rule in 2 3; do
  cp "$clips/film.avi" "$media/gone.avi"
  rm -f "$folder"/SysConfig "$folder"/Tessivo.log
  player_list "$folder" "$rule" 40 "$media/gone.avi" "$clips/film.avi"
  player_start "$folder"
  player_drive play
  check "under rule $rule a file plays" says_within 20 ' playing: .*gone'
  rm "$media/gone.avi"
  check "when it vanishes meanwhile the list goes on" says_within 30 ' playing: .*film'
  player_drive close
  check "and the player leaves in order" said ' stop$'
done
