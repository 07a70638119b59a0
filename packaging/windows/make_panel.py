#!/usr/bin/env python3
"""make_panel.py FILE: the plain side of the installer's last page, a bitmap in the colour of the program's icon."""
import struct
import sys

WIDTH, HEIGHT, COLOUR = 164, 314, (0x8B, 0x6F, 0x1F)  # blue, green, red
row = bytes(COLOUR) * WIDTH + b"\0" * (-3 * WIDTH % 4)
size = 54 + len(row) * HEIGHT
with open(sys.argv[1], "wb") as out:
    out.write(struct.pack("<2sIHHI", b"BM", size, 0, 0, 54))
    out.write(struct.pack("<IiiHHIIiiII", 40, WIDTH, HEIGHT, 1, 24, 0, len(row) * HEIGHT, 2835, 2835, 0, 0))
    out.write(row * HEIGHT)
