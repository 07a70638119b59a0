#!/usr/bin/env python3
"""pack_zip.py FOLDER NAME ARCHIVE: packs a folder under a name, in the order of its paths and with the time of
SOURCE_DATE_EPOCH, so that the same files make the same bytes. Names are marked as UTF-8."""
import os
import sys
import time
import zipfile

folder, top, archive = sys.argv[1:4]
date = time.gmtime(int(os.environ["SOURCE_DATE_EPOCH"]))[:6]
files = sorted(os.path.join(place, name) for place, _, names in os.walk(folder) for name in names)
with zipfile.ZipFile(archive + ".new", "w") as packed:
    for path in files:
        entry = zipfile.ZipInfo(top + "/" + os.path.relpath(path, folder), date)
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.external_attr = (0o755 if os.access(path, os.X_OK) else 0o644) << 16
        with open(path, "rb") as file:
            packed.writestr(entry, file.read(), compresslevel=9)
os.replace(archive + ".new", archive)
