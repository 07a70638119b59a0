#!/usr/bin/env python3
"""write_file_lists.py FOLDER OUTPUT: what the uninstaller takes away, as lines of NSIS: each file that was installed, then
each folder that is empty by then. What somebody has put there stays."""
import os
import sys

folder, output = sys.argv[1:3]
lines = []
for place, folders, names in os.walk(folder, topdown=False):
    below = os.path.relpath(place, folder)
    target = "$INSTDIR" + ("" if below == "." else "\\" + below.replace("/", "\\"))
    lines += [f'Delete "{target}\\{name}"' for name in sorted(names)]
    if below != ".":
        lines.append(f'RMDir "{target}"')
if not lines:
    sys.exit("nothing to install")
# With a mark: makensis takes a file that is included for one in the system's character set.
with open(os.path.join(output, "uninstall.nsh"), "w", encoding="utf-8-sig") as out:
    out.write("\n".join(lines) + "\n")
