#!/usr/bin/env bash
# The mouse pointer hides when it rests over the picture, comes back when it moves, and stays over
# the panel. With each engine, because each draws into windows of its own.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

# grab WITH_POINTER X,Y,WIDTH,HEIGHT FILE: a part of the desktop, 1 with the pointer, 0 without.
grab() {
  local x y width height
  IFS=, read -r x y width height <<<"$2"
  ffmpeg -v error -y -f x11grab -draw_mouse "$1" -video_size "${width}x$height" \
    -grab_x "$x" -grab_y "$y" -i "$DISPLAY" -frames:v 1 "$3" </dev/null
}
# Whether the pointer is seen near its place: whether it makes a difference there.
pointer_is_seen() {
  local X Y differing
  eval "$(xdotool getmouselocation --shell)"
  grab 1 "$((X - 32)),$((Y - 32)),64,64" "$shots/with.png"
  grab 0 "$((X - 32)),$((Y - 32)),64,64" "$shots/without.png"
  differing=$(/usr/bin/compare -metric AE -fuzz 10% "$shots/with.png" "$shots/without.png" null: \
    2>&1) || true
  ((${differing%%[. ]*} >= 20))
}
pointer_is_hidden() { ! pointer_is_seen; }
picture_is_there() {
  grab 0 1280,162,1280,700 "$shots/picture.png"
  at_least "$(player_region "$shots/picture.png" 1280x700+0+0 standard_deviation)" 0.05
}
whole() { grab 1 0,0,2560,1024 "$shots/$1.png"; }

# rest_and_move X Y WHERE: hidden by a rest of more than five seconds, not of three, back at a touch.
# A look at the pointer may take a second where the machine is busy.
rest_and_move() {
  xdotool mousemove "$1" "$2"
  sleep 3
  check "after three seconds over $3 the pointer is still seen" pointer_is_seen
  sleep 4
  whole "hidden over $3"
  check "after more than five seconds over $3 it is hidden" pointer_is_hidden
  sleep 2
  check "it stays hidden while it rests" pointer_is_hidden
  xdotool mousemove_relative -- -7 5
  sleep 1
  check "a touch brings it back" pointer_is_seen
}

# with_rule NUMBER NAME: X positions are those of the second monitor, at 1280,0.
with_rule() {
  journey "pointer-$2"
  # Nothing in the picture moves but the pointer.
  journey_clip "$clips/still.mp4" smptebars 120 "${h264[@]}"
  player_list "$folder" "$1" 40 "$clips/still.mp4"
  xdotool mousemove 1920 500
  player_start "$folder"
  check "the window fills the second monitor" is_full_screen_right
  player_drive play
  check "it plays" says_within 20 ' playing: '
  check "the picture is there" player_wait 10 picture_is_there
  rest_and_move 1920 400 "the picture"
  rest_and_move 1920 60 "the black above it"
  xdotool mousemove 640 512
  sleep 7
  whole "over the panel"
  check "over the panel it stays" pointer_is_seen
  xdotool mousemove 1920 400
  sleep 7
  check "over the picture it hides again" pointer_is_hidden
  player_drive close
  check "it leaves in order" said ' stop$'
  player_end
  desktop_stop
}

with_rule 1 media-player
with_rule 2 real-player
