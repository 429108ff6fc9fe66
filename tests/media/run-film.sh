#!/usr/bin/env bash
# The check of a picture that ./run makes (tools/film), on films and screenshots made for it: what is right
# must pass, and what is wrong must not.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/player
source tools/player
# shellcheck source=tools/film
source tools/film
work=$(mktemp -d "${TMPDIR:-/tmp}/tessivo-film.XXXXXX")
trap 'rm -rf "$work"' EXIT

failed=0
check() {
  local what=$1
  shift
  if "$@"; then echo "PASS film: $what"; else echo "FAIL film: $what"; failed=1; fi
}
# shellcheck disable=SC2317  # these are called by check
not() { ! "$@"; }
# shellcheck disable=SC2317
equals() { [[ $1 == "$2" ]]; }

# film NAME COLOUR SIZE [PIXEL_ASPECT]
film() {
  ffmpeg -v error -y -f lavfi -i "color=$2:size=$3:rate=5:duration=2" -vf "setsar=${4:-1}" \
    -c:v mpeg4 "$work/$1.avi" </dev/null
}
# shot NAME COLOUR WIDTHxHEIGHT [BACKGROUND]: such a picture in the middle of the right monitor.
shot() {
  /usr/bin/convert -size 1280x1024 "xc:$film_colour" \( "xc:${4:-black}" -fill "$2" \
    -draw "rectangle $(((1280 - ${3%x*}) / 2)),$(((1024 - ${3#*x}) / 2)) $(((1279 + ${3%x*}) / 2)),$(((1023 + ${3#*x}) / 2))" \
    \) +append "$work/$1.png"
}
# shellcheck disable=SC2317
seen() { film_is_seen "$work/$1.png" "$work/$2.avi"; }

film wide white 640x360
film wider white 956x400
film classic white 640x480
film upright white 480x640
film anamorphic white 640x360 3/4
film dark 0x050505 640x360
ffmpeg -v error -y -f lavfi -i "color=white:size=640x360:rate=5:duration=2" -vf fade=in:st=0.5:d=0.1 \
  -c:v mpeg4 "$work/fade.avi" </dev/null
shot wide white 1280x720
shot wider white 1280x536
shot classic white 1280x960
shot upright white 768x1024
shot full white 1280x1024
shot dark '#050505' 1280x720
shot black black 1280x720
shot desktop "$film_colour" 1280x1024
shot framed white 1280x720 "$film_colour"

for shape in wide wider classic upright; do check "$shape: seen" seen "$shape" "$shape"; done
for shape in wide classic; do check "pixels that are not square, $shape: seen" seen "$shape" anamorphic; done
check "pixels that are not square: the desktop" not seen desktop anamorphic
check "a dark film: seen" seen dark dark
check "stretched over the monitor" not seen full wide
check "of another shape" not seen upright wide
check "the same the other way round" not seen wide upright
check "black instead of a bright film" not seen black wide
check "black instead of a film that begins black" not seen black fade
check "the desktop instead of a film" not seen desktop dark
check "the desktop around a film" not seen framed wide

check "the length" equals "$(film_seconds "$work/wide.avi")" 2
ffmpeg -v error -y -i "$work/wide.avi" -c:v copy -f m4v "$work/raw.m4v" </dev/null
check "no length" equals "$(film_seconds "$work/raw.m4v")" 600
ffmpeg -v error -y -f lavfi -i sine=duration=1 "$work/tone.wav" </dev/null
check "a picture" film_has_picture "$work/wide.avi"
check "no picture" not film_has_picture "$work/tone.wav"
exit "$failed"
