# shellcheck shell=bash
# To be sourced by the measuring scripts, after cd to the project's root:
#
#   figures DIGITS      reads numbers, prints "median (least to most, N times)", or how many are none
#   row CELL…           a line of a table
#   spent_by PID        seconds of processor time, in the program and in the system for it
#   process_named NAME  the process of this Wine environment (PLAYER_NAME) with that name
#   memory_of PID       its memory and the most it ever had, MB
# shellcheck source=tools/desktop
source tools/desktop
# shellcheck source=tools/player
source tools/player

figures() {
  sort -n | awk -v digits="$1" '
    $1 !~ /^[0-9.-]*[0-9]$/ { missing += 1; NR -= 1; next }
    { value[NR] = $1 }
    END {
      if (missing) { print "not seen " missing " times"; exit }
      if (NR == 0) { print "none"; exit }
      half = int((NR + 1) / 2)
      median = NR % 2 ? value[half] : (value[half] + value[half + 1]) / 2
      form = "%." digits "f (%." digits "f to %." digits "f, %d times)\n"
      printf form, median, value[1], value[NR], NR
    }'
}
row() {
  local cell
  printf '|'
  for cell in "$@"; do printf ' %s |' "$cell"; done
  printf '\n'
}
spent_by() {
  awk -v ticks="$(getconf CLK_TCK)" '{ sub(/.*\) /, ""); print ($12 + $13) / ticks }' "/proc/$1/stat"
}
process_named() {
  local process
  for process in $(pgrep "$1"); do
    if tr '\0' '\n' <"/proc/$process/environ" | grep -q "^WINEPREFIX=.*/$PLAYER_NAME/"; then
      echo "$process"
    fi
  done
}
memory_of() {
  awk '/^VmRSS/ { now = $2 } /^VmHWM/ { most = $2 } END { printf "%.0f %.0f\n", now / 1024, most / 1024 }' \
    "/proc/$1/status"
}
