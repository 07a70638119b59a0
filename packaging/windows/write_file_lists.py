#!/usr/bin/env python3
"""write_file_lists.py FOLDER OUTPUT: the files of the installer as lines of NSIS. install.nsh puts them in, in the order of their
paths; uninstall.nsh takes each of them away, then each folder that is empty by then. What somebody has put there stays."""
import os
import sys

folder, output = map(os.path.abspath, sys.argv[1:3])
installed, removed = [], []
for place, folders, names in os.walk(folder):
    folders.sort()
    below = os.path.relpath(place, folder)
    target = "$INSTDIR" + ("" if below == "." else "\\" + below.replace("/", "\\"))
    if names:
        installed.append(f'SetOutPath "{target}"')
    # Backwards: what stands deepest goes first.
    removed.append(f'RMDir "{target}"' if below != "." else "")
    for name in sorted(names):
        installed.append(f'File "{os.path.join(place, name)}"')
        removed.append(f'Delete "{target}\\{name}"')
if not installed:
    sys.exit("nothing to install")
for name, lines in (("install.nsh", installed), ("uninstall.nsh", reversed(removed))):
    # With a mark: makensis takes a file that is included for one in the system's character set.
    with open(os.path.join(output, name), "w", encoding="utf-8-sig") as out:
        out.write("\n".join(lines) + "\n")
