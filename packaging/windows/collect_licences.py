#!/usr/bin/env python3
"""collect_licences.py QT_SOURCE FOLDER: the licences of what is linked into the programs of Windows.

Qt says in its source what it holds of others (qt_attribution.json); the licences of the compiler's libraries are those
that Debian ships with them."""
import glob
import json
import os
import shutil
import sys

source, folder = sys.argv[1:3]
# What Qt holds for other systems, other modules, or what this build leaves out.
NOT_LINKED = ("VulkanMemoryAllocator", "android", "gradle", "cocoa", "libpsl", "xcb", "wasm", "qeventdispatcher_cf",
              "forkfd", "pixman", "vulkan", "at-spi", "dbus", "opengl", "linux-headers", "testlib", "psl-data", "catch2",
              "cycle", "valgrind", "callgrind", "libdbus")
DEBIAN = {"mingw-w64.txt": "/usr/share/doc/mingw-w64-x86-64-dev/copyright",
          "gcc.txt": "/usr/share/doc/gcc-mingw-w64-x86-64-posix-runtime/copyright"}


def content(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return file.read()


def attributions():
    for path in sorted(glob.glob(os.path.join(source, "src/**/qt_attribution.json"), recursive=True)):
        parts = json.loads(content(path), strict=False)
        for part in parts if isinstance(parts, list) else [parts]:
            if part.get("QDocModule") in ("qtcore", "qtgui", "qtwidgets") and not part["Id"].startswith(NOT_LINKED):
                yield os.path.dirname(path), part


def licence_files(place, part):
    names = part.get("LicenseFiles") or part.get("LicenseFile") or []
    for name in [names] if isinstance(names, str) else names:
        found = os.path.join(place, part.get("Path", ""), name)
        yield found if os.path.isfile(found) else os.path.join(place, name)


def copyright_of(part):
    words = part.get("Copyright", "")
    return words if isinstance(words, str) else "\n".join(words)


os.makedirs(folder)
for name in ("LGPL-3.0-only.txt", "GPL-3.0-only.txt", "Qt-GPL-exception-1.0.txt"):
    shutil.copyfile(os.path.join(source, "LICENSES", name), os.path.join(folder, name))
count = 0
with open(os.path.join(folder, "qt-third-party.txt"), "w", encoding="utf-8", newline="\r\n") as out:
    out.write("What the Qt that is linked into corvane.exe holds of other authors, as its source code says.\n")
    for place, part in attributions():
        count += 1
        out.write("\n" + "=" * 78 + "\n" + part["Name"] + " " + part.get("Version", "") + "\n")
        for what in (part.get("Homepage"), part.get("QtUsage"), copyright_of(part), part["License"]):
            if what:
                out.write("\n" + what.strip() + "\n")
        for path in licence_files(place, part):
            out.write("\n" + "-" * 78 + "\n" + content(path).strip() + "\n")
if count < 20:
    sys.exit(f"only {count} parts of Qt were found")
for name, path in DEBIAN.items():
    shutil.copyfile(path, os.path.join(folder, name))
