#!/usr/bin/env python3
"""make_zip.py FOLDER ZIP: packs what is in the folder, in the order of the names, with the time of
SOURCE_DATE_EPOCH, so that the same files give the same bytes. Names are marked as UTF-8, which
Windows needs for the Chinese ones."""
import os
import sys
import time
import zipfile


def main():
    folder, archive = sys.argv[1:]
    when = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
    names = sorted(
        os.path.relpath(os.path.join(path, name), folder)
        for path, _, files in os.walk(folder)
        for name in files
    )
    with zipfile.ZipFile(archive + ".new", "w", zipfile.ZIP_DEFLATED, compresslevel=9) as output:
        for name in names:
            entry = zipfile.ZipInfo(name, when)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            with open(os.path.join(folder, name), "rb") as file:
                output.writestr(entry, file.read())
    os.replace(archive + ".new", archive)


main()
