# To be sourced by the scripts that try the setup program; brings what package.sh does.
#
#   setup_begin NAME          a fresh Wine; the paths below
#   installed, menu, program  the folder it installs into, that of the start menu, the program for Windows
#   run_setup [ARG…]          waits for its end
#   uninstall [ARG…]          likewise
#   uninstall_in_place FOLDER [ARG…]   without a copy of itself: gives its exit code, and leaves itself
#   next_page WHAT            Enter in its window, which is kept as a picture of that name
#   window_titled PATTERN     is there
#   shown                     what its windows and messages say
#   says TEXT                 one of the lines of it is that
#   above_the_panel           the uppermost of its windows is
#   has_value KEY NAME, has_key KEY, value_is KEY NAME TEXT     in the registry; NAME "" is the default
#   has_default KEY           of a key that exists
#   is_away PATH, fails COMMAND…, gives_up COMMAND… (exit code 2), count_of FOLDER (files)
#   registry_is_clean         nothing of Tessivo is in the user's
# shellcheck source=tests/package/package.sh
source "$(dirname "${BASH_SOURCE[0]}")/package.sh"

setup=dist/Tessivo-$version-setup.exe
uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessivo'
run_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'

setup_begin() {
  package_begin "$1"
  installed=$home/AppData/Local/Programs/Tessivo
  menu="$home/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/泰思维"
  program=$(windows_path "$installed/Tessivo.exe")
}
run_setup() { player_wine "$setup" "$@"; }
uninstall() {
  # It goes on from a copy, since it deletes itself.
  player_wine "$installed/Uninstall.exe" "$@" || true
  player_wait 20 is_away "$installed/Uninstall.exe"
  # The folder, when it is empty, goes at last.
  sleep 1
}
uninstall_in_place() { player_wine "$1/Uninstall.exe" "${@:2}" "_?=$(windows_path "$1")"; }

window_titled() {
  found=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | head -n 1)
  [[ -n $found ]]
}
titles='^Tessivo 泰思维 安装'
away_titles='^Tessivo 泰思维 (解除安装|卸载)'
# tests/programs/window_texts.cpp
shown() { player_wine "$PLAYER_PROGRAMS/tests/window_texts.exe" 'Tessivo 泰思维 ' | tr -d '\r'; }
says() {
  found=$(shown)
  if grep -aqxF -- "$1" <<<"$found"; then return; fi
  found=$(head -c 300 <<<"$found" | tr -s '\n' '|')
  return 1
}
above_the_panel() {
  local window
  # From the lowest to the uppermost, which decides.
  found='neither'
  for window in $(xprop -root _NET_CLIENT_LIST_STACKING | grep -o '0x[0-9a-f]*'); do
    case $(xdotool getwindowname "$window" 2>/dev/null) in
      'Tessivo 泰思维') found='the panel' ;;
      'Tessivo 泰思维 '*) found='the setup program' ;;
    esac
  done
  [[ $found == 'the setup program' ]]
}
has_keyboard() { [[ $(xdotool getwindowfocus getwindowname 2>/dev/null) =~ $1 ]]; }
page=0
next_page() {
  sleep 1
  desktop_screenshot "$shots/page-$((++page))-$1.png"
  xdotool windowactivate "$(xdotool search --onlyvisible --name "$titles" | head -n 1)"
  player_wait 3 has_keyboard "$titles" || true
  sleep 0.5
  key Return
}

has_value() { player_wine reg query "$1" /v "$2" >/dev/null 2>&1; }
has_key() { player_wine reg query "$1" >/dev/null 2>&1; }
value_is() {
  local name=(/v "$2")
  if [[ -z $2 ]]; then name=(/ve); fi
  found=$(player_wine reg query "$1" "${name[@]}" 2>/dev/null | tr -d '\r' | sed -n 's/.* REG_SZ *//p')
  [[ $found == "$3" ]]
}
has_default() { exported "$1" | awk '/^\[/ { ++keys } keys == 1' | grep -q '^@='; }
registry_is_clean() {
  found=$(exported HKCU | grep -iE 'tessivo|泰思维' | head -n 5)
  [[ -z $found ]]
}
is_away() { [[ ! -e $1 ]]; }
fails() { ! "$@"; }
gives_up() {
  local code=0
  "$@" || code=$?
  found="exit code $code"
  [[ $code == 2 ]]
}
count_of() { find "$1" -type f | wc -l; }
