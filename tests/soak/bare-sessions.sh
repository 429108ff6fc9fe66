#!/usr/bin/env bash
# What the system itself keeps of each item (see bare_sessions.cpp): films and sounds, each played many
# times by each engine alone.
#
#   bare-sessions.sh [TIMES]    100 unless said; some minutes. PLAYER_PROGRAMS names the folder of
#                               the programs (build/x64)
set -euo pipefail
times=${1:-100}
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tests/media/stage
source tests/media/stage
status=0
for engine in session graph; do
  for file in film.avi silent.avi tone.wav; do
    printf '%s %s: ' "$engine" "$file"
    TESSIVO_TIMEOUT=600 tools/wine-run --name bare "${PLAYER_PROGRAMS:-$root/build/x64}/tests/bare_sessions.exe" \
      "$engine" "$TESSIVO_TEST_MEDIA\\$file" "$times" 300 2>/dev/null || {
      status=1
      echo "failed"
    }
  done
done
exit "$status"
