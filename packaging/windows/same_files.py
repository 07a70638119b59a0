#!/usr/bin/env python3
"""same_files.py NEW FOLDER: makes FOLDER what NEW is and takes NEW away. A file that is the same already stays, with its
time, so that a build over FOLDER compiles only what has changed."""
import filecmp
import os
import shutil
import sys

new, folder = sys.argv[1:3]
wanted = set()
for place, _, names in os.walk(new):
    below = os.path.relpath(place, new)
    for name in names:
        wanted.add(os.path.normpath(os.path.join(below, name)))
for place, _, names in os.walk(folder, topdown=False):
    below = os.path.relpath(place, folder)
    for name in names:
        if os.path.normpath(os.path.join(below, name)) not in wanted:
            os.remove(os.path.join(place, name))
    if not os.listdir(place):
        os.rmdir(place)
for each in sorted(wanted):
    source, target = os.path.join(new, each), os.path.join(folder, each)
    if os.path.lexists(target) and not os.path.islink(source) and filecmp.cmp(source, target, shallow=False):
        continue
    os.makedirs(os.path.dirname(target), exist_ok=True)
    if os.path.lexists(target):
        os.remove(target)
    shutil.move(source, target)
    if not os.path.islink(target):
        os.utime(target)
shutil.rmtree(new)
