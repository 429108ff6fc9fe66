# To be sourced by the scripts that try the packages in dist/, in a Wine that knows nothing of Tessivo.
#
#   package_begin NAME      a fresh Wine, a desktop with two monitors, clips
#   home, c                 the user's folder and the drive C in it, as Linux paths
#   windows_path FILE       of a file on that drive
#   unpack FOLDER           the zip into the folder
#   by_shell PATH [ARG…]    as a double click in the file manager does
#   start_program PATH [ARG…]   likewise; then the panel is there
#   plays FILE              the running program is handed the file, and its picture fills the second monitor
#   exported KEY            the registry below the key, to compare
#   has_windows_lines FILE  every line of the text ends with carriage return and line feed
# shellcheck source=tests/e2e/tray.sh
source "$(dirname "${BASH_SOURCE[0]}")/../e2e/tray.sh"

version=$(sed -n 's/^project(Tessivo VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)

package_begin() {
  rm -rf "${TESSIVO_WINE_DIR:-build/wine}/$1"
  journey "$1"
  PLAYER_NAME=$1
  rm -rf "$folder"
  # Wine takes itself for Windows 7 unless it is told otherwise.
  player_wine reg add 'HKCU\Software\Wine' /v Version /d win10 /f >/dev/null
  player_end
  c=$(realpath "${TESSIVO_WINE_DIR:-build/wine}/$1/visible/drive_c")
  home=$(echo "$c"/users/*/AppData)
  home=${home%/AppData}
}
windows_path() {
  local path=${1#"$c"}
  echo "C:${path//\//\\}"
}
unpack() {
  mkdir -p "$1"
  python3 -m zipfile -e "dist/Tessivo-$version-x64.zip" "$1"
}
by_shell() { player_wine start "$@"; }
start_program() {
  by_shell "$@"
  player_drive wait
}
plays() {
  by_shell "$program" "$(player_windows_path "$1")"
  player_wait 20 shows state '正在播放: ' && shows file "${1##*/}" && is_full_screen_right || return
  sleep 1
  desktop_screenshot "$shots/plays.png"
  player_picture_fills_right "$shots/plays.png"
}
has_windows_lines() {
  found=$(grep -vnP '\r$' "$1" | head -n 1)
  [[ -s $1 && -z $found ]]
}
leave() { player_drive close; }
exported() {
  player_wine reg export "$1" "$(windows_path "$c/export.reg")" /y >/dev/null
  iconv -f UTF-16 -t UTF-8 "$c/export.reg" | tr -d '\r' | grep -v '^#'
  rm "$c/export.reg"
}
