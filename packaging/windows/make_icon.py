"""Packs the icons that a Linux build has drawn into one file as Windows wants it.

make_icon.py build/share/icons/hicolor packaging/windows/corvane.ico
"""
import struct
import sys

theme, target = sys.argv[1:]
images = []
for size in (16, 24, 32, 48, 64, 256):
    with open(f"{theme}/{size}x{size}/apps/corvane.png", "rb") as file:
        images.append((size, file.read()))
place = 6 + 16 * len(images)
directory = struct.pack("<HHH", 0, 1, len(images))
for size, content in images:
    directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(content), place)
    place += len(content)
with open(target, "wb") as file:
    file.write(directory + b"".join(content for _, content in images))
