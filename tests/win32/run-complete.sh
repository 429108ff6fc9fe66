#!/usr/bin/env bash
# Is every test suite that needs monitors or a picture (…OnDesktop) run by one of the scripts? A new one
# that no script's filter names would be skipped in silence.
#
#   run-complete.sh [win32_tests.exe]
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
program=${1:-build/x64/tests/win32_tests.exe}

mapfile -t suites < <(env -u DISPLAY tools/wine-run --name win32 "$program" --gtest_list_tests |
  tr -d '\r' | sed -nE 's/^([^ ]*OnDesktop[^ ]*)\..*/\1/p')
# What the scripts give as filters: words with that ending, outside of comments.
mapfile -t filters < <(find tests -name 'run-*.sh' ! -name run-complete.sh -executable -exec sed '/^ *#/d' {} + |
  grep -oE '[A-Za-z*/]+OnDesktop[A-Za-z*/]*' | sort -u)

run_by_a_script() {
  local filter
  for filter in "${filters[@]}"; do
    # shellcheck disable=SC2053  # a pattern
    if [[ $1 == $filter ]]; then return 0; fi
  done
  return 1
}

failed=0
for suite in "${suites[@]}"; do
  if run_by_a_script "$suite"; then
    echo "PASS $suite is run by a script"
  else
    echo "FAIL $suite is run by no script (tests/*/run-*.sh)"
    failed=1
  fi
done
if ((${#suites[@]} == 0)); then
  echo "FAIL $program has no suite named …OnDesktop"
  failed=1
fi
exit "$failed"
