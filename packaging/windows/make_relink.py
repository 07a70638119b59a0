#!/usr/bin/env python3
"""make_relink.py BUILD QT FOLDER SCRIPT: what a user needs to link corvane.exe with another Qt: its objects and libraries,
and the arguments of the linker with @QT@ for the folder of Qt."""
import json
import os
import shlex
import shutil
import subprocess
import sys

build, qt, folder, script = map(os.path.abspath, sys.argv[1:5])
RULE = "CXX_EXECUTABLE_LINKER__corvane_Release"
commands = json.loads(subprocess.run(["ninja", "-C", build, "-t", "compdb", "-x", RULE], check=True, capture_output=True,
                                     text=True).stdout)
assert len(commands) == 1, "one program is linked"
# CMake sets what comes before and after a link apart: ": && COMPILER ... && :".
words = shlex.split(commands[0]["command"].split(" && ")[1])
kept, own = [], 0
arguments = iter(words[1:])
for word in arguments:
    if word == "-o":
        next(arguments)
        continue
    # What is about compiling, and about a library for others that a program does not have.
    if word.startswith(("-ffile-prefix-map", "-O", "-D", "-Wl,--out-implib", "-Wl,--major-image", "-Wl,--minor-image")):
        continue
    path = os.path.normpath(os.path.join(build, word))
    if word.startswith("-"):
        assert build not in word, word
        kept.append(word.replace(qt, "@QT@"))
    elif path.startswith(qt + os.sep):
        kept.append("@QT@" + path[len(qt):])
    else:
        below = os.path.join("objects", os.path.relpath(path, build).replace("..", "above"))
        os.makedirs(os.path.dirname(os.path.join(folder, below)), exist_ok=True)
        shutil.copyfile(path, os.path.join(folder, below))
        kept.append(below)
        own += 1
assert own > 10 and any("libQt6Widgets" in word for word in kept), "objects and Qt are both there"
with open(os.path.join(folder, "link.txt"), "w", encoding="utf-8") as out:
    out.writelines(f'"{word}"\n' for word in kept)
shutil.copy(script, folder)
