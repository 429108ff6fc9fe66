#!/usr/bin/env bash
# The zip: unpacked in a folder with blanks and Chinese characters it runs and writes nothing outside.
source "$(dirname "${BASH_SOURCE[0]}")/package.sh"

package_begin zip
# What the system itself writes at a program's start is not counted.
outside() {
  find "$c" -type f -newer "$mark" -not -path "$installed/*" -not -path "$c/windows/*" | head -n 5
}
writes_nothing_outside() {
  found=$(outside)
  [[ -z $found ]]
}

unpack "$c/播放 器/大厅 (1)"
installed="$c/播放 器/大厅 (1)/Tessivo"
program=$(windows_path "$installed/Tessivo.exe")
for file in Engines.ini 先读我.txt License.txt; do
  check "the lines of $file end as Windows ends them" has_windows_lines "$installed/$file"
done
mark=$installed/../mark
touch "$mark"
start_program "$program"
check "it starts in a folder with blanks and Chinese characters" panel_is visible
check "a file is added and plays" plays "$clips/long.mp4"
check "it leaves" leave
check "in order" grep -q ' stop' "$installed/Tessivo.log"
start_program "$program"
check "it starts again with the list" shows rows 1
leave
check "nothing is written outside the folder" writes_nothing_outside
before=$(exported 'HKCU\Software')
start_program "$program"
leave
check "nor in the registry" test "$before" == "$(exported 'HKCU\Software')"
