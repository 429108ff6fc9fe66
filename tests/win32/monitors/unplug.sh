#!/usr/bin/env bash
# Takes the monitor right of the primary away and tells the running programs.
#
#   unplug.sh display_change.exe      (in the environment of a running Windows program)
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../.." && pwd)
xrandr --delmonitor RIGHT
"$root/tools/wine-run" --keep --name monitors "$1"
