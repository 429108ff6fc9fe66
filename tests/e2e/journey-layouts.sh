#!/usr/bin/env bash
# Wherever the second monitor stands, the picture fills it and the panel stays on the primary.
source "$(dirname "${BASH_SOURCE[0]}")/journey.sh"

# in_layout LAYOUT LEFT TOP WIDTH HEIGHT: the show's monitor as Windows programs see it.
in_layout() {
  local layout=$1 left=$2 top=$3 width=$4 height=$5 middle
  journey "layout-$layout" "$layout"
  player_list "$folder" 3 40 "$clips/film.avi"
  player_start "$folder"
  player_drive play
  check "it plays" says_within 20 ' playing: '
  check "the window fills the second monitor" window_is "screen $left,$top,$width,$height"
  check "the panel stands on the primary one" panel_on_primary
  sleep 1.5
  desktop_screenshot "$shots/playing.png"
  middle=$((width / 2))x$((height / 2))+$((DESKTOP_ORIGIN_X + left + width / 4))
  middle+=+$((DESKTOP_ORIGIN_Y + top + height / 4))
  check "the picture is there" \
    at_least "$(player_region "$shots/playing.png" "$middle" standard_deviation)" 0.05
  player_drive close
  check "it leaves in order" said ' stop$'
  player_end
  desktop_stop
}
window_is() { [[ "screen $(player_shows screen)" == "$1 "* ]]; }
panel_on_primary() {
  local x y w h
  IFS=', ' read -r x y w h _ <<<"$(player_shows panel)"
  ((x >= 0 && y >= 0 && x + w <= 1280 && y + h <= 1024))
}

in_layout left -1280 0 1280 1024
in_layout above 0 -720 1280 720
in_layout three -1280 0 1280 1024
