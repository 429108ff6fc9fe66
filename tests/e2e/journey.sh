# To be sourced by the journeys: a desktop, the player in a folder of its own, results as lines.
#
#   journey NAME [LAYOUT]     begins: desktop, sound, folder ($folder), clips ($clips)
#   check WHAT COMMAND…       "PASS WHAT" or "FAIL WHAT"
#   journey_clip FILE SOURCE SECONDS ENCODER_OPTION…
#   journey_random_bytes FILE     no medium
#   journey_setting COLUMN VALUE  of the stored settings, before the player starts
#   journey_engines MEDIA REAL    the choices in Engines.ini, before the player starts
#   journey_browser           a stand-in for the user's browser, from now on; the journey ends with
#                             journey_no_browser
#   pages_opened PATTERN      how many starts of it match, each a line with what it was given
#   journey_test_control PART     the test control plays that part in RealPlayer's slot; what is asked
#                                 of it is in $folder/calls.txt. Ends with the journey.
#
# A command outside of check that fails ends the journey, and counts as a test that failed.
set -Eeuo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/desktop
source tools/desktop
# shellcheck source=tools/player
source tools/player

mpeg4=(-c:v mpeg4 -q:v 4 -c:a libmp3lame)
h264=(-c:v libx264 -preset ultrafast -c:a aac)
clips=build/e2e/clips

journey() {
  PLAYER_NAME=journey
  name=$1
  folder=build/e2e/$name
  shots=out/$name
  mkdir -p "$shots" "$clips"
  desktop_start "${2:-right}"
  sound_start
  player_end
  trap 'player_end; desktop_stop' EXIT
  player_install "$folder"
  journey_clip "$clips/film.avi" testsrc 6 "${mpeg4[@]}"
  journey_clip "$clips/中文 影片.mp4" smptebars 6 "${h264[@]}"
  journey_clip "$clips/long.mp4" testsrc2 60 "${h264[@]}"
}

check() {
  local what="$name: $1"
  found=
  shift
  if "$@"; then
    echo "PASS $what"
  else
    failed "$what"
  fi
}
failed() {
  echo "FAIL $1${found:+ (found: $found)}"
  tail -n 8 "$folder/Tessivo.log" 2>/dev/null | sed 's/^/  log: /' || true
  ((++failures))
  desktop_screenshot "$shots/failed-$failures.png" || true
}
failures=0
# What fails in a subshell and matters fails once more outside.
trap 'if ((BASH_SUBSHELL == 0)); then
  failed "$name: broke off at $BASH_COMMAND (${FUNCNAME[*]:-}, lines $LINENO ${BASH_LINENO[*]:-})"
fi' ERR

journey_clip() {
  local file=$1 source=$2 seconds=$3
  shift 3
  if [[ -e $file ]]; then return; fi
  ffmpeg -v error -y -f lavfi -i "$source=size=320x180:rate=25:duration=$seconds" \
    -f lavfi -i "sine=frequency=440:duration=$seconds" -pix_fmt yuv420p "$@" \
    "${file%/*}/new-${file##*/}" </dev/null
  mv "${file%/*}/new-${file##*/}" "$file"
}

journey_random_bytes() {
  LC_ALL=C awk 'BEGIN { srand(5); for (i = 0; i < 50000; ++i) printf "%c", int(rand() * 255) + 1 }' \
    >"$1"
}

journey_setting() { sqlite3 "$folder/SysConfig" "update sys set $1 = $2"; }

journey_engines() {
  printf '[Engines]\nMediaPlayer=%s\nRealPlayer=%s\n' "$1" "$2" >"$folder/Engines.ini"
}

# As real browsers do, it opens pages of the disk as well as addresses.
journey_browser() {
  local command
  cp "$PLAYER_PROGRAMS/tests/stand_in_saver.exe" "$folder/browser.exe"
  command="\"$(player_windows_path "$folder/browser.exe")\" \"%1\""
  {
    player_wine reg add 'HKCR\TessivoTestPage\shell\open\command' /ve /d "$command" /f
    player_wine reg add 'HKCR\.htm' /ve /d TessivoTestPage /f
    player_wine reg add 'HKCR\http\shell\open\command' /ve /d "$command" /f
  } >/dev/null
}
# What Wine has there from the start.
journey_no_browser() {
  {
    player_wine reg add 'HKCR\.htm' /ve /d htmlfile /f
    player_wine reg delete 'HKCR\TessivoTestPage' /f
    player_wine reg add 'HKCR\http\shell\open\command' /ve \
      /d '"C:\windows\system32\winebrowser.exe" "%1"' /f
  } >/dev/null
}
pages_opened() {
  found=$(grep -c -- "$1" "$folder/browser.txt" 2>/dev/null) || true
  echo "${found:-0}"
}
is_opened() {
  found="$(cat "$folder/browser.txt" 2>/dev/null)"
  (($(pages_opened "$1") >= ${2:-1}))
}

journey_test_control() {
  # An environment of its own, so that no other journey finds the control registered.
  PLAYER_NAME=journey-control
  player_end
  journey_engines embedded control
  player_wine regsvr32 /s "$(player_windows_path "$PLAYER_PROGRAMS/tests/TestControl.dll")"
  export TESSIVO_TEST_CONTROL_SCRIPT=$1
  TESSIVO_TEST_CONTROL_LOG=$(player_windows_path "$folder/calls.txt")
  export TESSIVO_TEST_CONTROL_LOG
}

# What the panel says, after the file's name, when nothing can play a file under that rule.
declare -A journey_unplayable=(
  [0]='无法识别的文件格式' [1]='无法识别的文件格式.'
  [2]='Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.'
  [3]='Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.')

said() { (($(player_said "$folder" "$1") >= ${2:-1})); }
says_within() { player_wait "$1" said "$2" "${3:-1}"; }
# What was found instead is told by check.
shows() {
  found="$1 $(player_shows "$1")"
  [[ $found == "$1 $2" ]]
}
shows_within() { player_wait "$1" shows "$2" "$3"; }
is_full_screen_right() {
  found="screen $(player_shows screen)"
  # No caption, system menu, sizing frame or boxes: no bit of 0xCF0000 is set.
  [[ $found =~ ^screen\ 1280,0,1280,1024\ style\ ([0-9a-f]{8})\ visible$ ]] &&
    ((!(16#${BASH_REMATCH[1]} & 0xCF0000)))
}
# The mean of a part of the desktop now.
brightness() {
  desktop_screenshot "$shots/now.png"
  player_region "$shots/now.png" "$1" mean
}
