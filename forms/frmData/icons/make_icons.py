#!/usr/bin/env python3
"""Writes the toolbar icons (16x16 PNG) from the pixel art below; run once after editing the art.
Standard library only, so it runs anywhere the project builds."""

import os
import struct
import zlib

PALETTE = {
    ".": (0, 0, 0, 0),
    "k": (40, 40, 40, 255),      # outline
    "w": (255, 255, 255, 255),
    "g": (170, 170, 170, 255),
    "b": (40, 80, 160, 255),
    "l": (150, 190, 240, 255),
    "G": (30, 140, 60, 255),
    "y": (250, 220, 90, 255),
}

ICONS = {
    "New": """
................
...kkkkkkkk.....
...kwwwwwwkk....
...kwwwwwwkwk...
...kwwwwwwkkkk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kwwwwwwwwwk..
...kkkkkkkkkkk..
................
""",
    "Save": """
................
.kkkkkkkkkkkkkk.
.kbbwwwwwwwwbbk.
.kbbwwwwwwwwbbk.
.kbbwwwwwwwwbbk.
.kbbwwwwwwwwbbk.
.kbbbbbbbbbbbbk.
.kbbbbbbbbbbbbk.
.kbbbggggggbbbk.
.kbbbgkkgggbbbk.
.kbbbgkkgggbbbk.
.kbbbgkkgggbbbk.
.kbbbggggggbbbk.
.kkkkkkkkkkkkkk.
................
................
""",
    "Back": """
................
................
......kk........
.....kGk........
....kGGk........
...kGGGkkkkkkk..
..kGGGGGGGGGGk..
.kGGGGGGGGGGGk..
.kGGGGGGGGGGGk..
..kGGGGGGGGGGk..
...kGGGkkkkkkk..
....kGGk........
.....kGk........
......kk........
................
................
""",
    "Forward": """
................
................
........kk......
........kGk.....
........kGGk....
..kkkkkkkGGGk...
..kGGGGGGGGGGk..
..kGGGGGGGGGGGk.
..kGGGGGGGGGGGk.
..kGGGGGGGGGGk..
..kkkkkkkGGGk...
........kGGk....
........kGk.....
........kk......
................
................
""",
    "Find": """
................
....kkkkk.......
...klllllk......
..klwllllllk....
..klwlllllk.....
..kllllllllk....
..klllllllk.....
..kllllllllk....
...klllllk......
....kkkkkkk.....
..........kkk...
...........kkk..
............kkk.
.............kk.
................
................
""",
    "Copy": """
................
.kkkkkkkk.......
.kwwwwwwk.......
.kwkkkkwk.......
.kwwwwkkkkkkkk..
.kwkkkkwwwwwwk..
.kwwwwkwkkkkwk..
.kwkkkkwwwwwwk..
.kwwwwkwkkkkwk..
.kkkkkkwwwwwwk..
......kwkkkkwk..
......kwwwwwwk..
......kwkkkwwk..
......kwwwwwwk..
......kkkkkkkk..
................
""",
    "View Details": """
................
.kkkkkkkkkkkkkk.
.kyyyyyyyyyyyyk.
.kkkkkkkkkkkkkk.
.kwwwwwwwwwwwwk.
.kwbbwkkkkkkwwk.
.kwwwwwwwwwwwwk.
.kwbbwkkkkkkkwk.
.kwwwwwwwwwwwwk.
.kwbbwkkkkkwwwk.
.kwwwwwwwwwwwwk.
.kwbbwkkkkkkwwk.
.kwwwwwwwwwwwwk.
.kkkkkkkkkkkkkk.
................
................
""",
    "Macro": """
................
.kkkkkkkkkkkkkk.
.kwwwwwwwwwwwwk.
.kwbbbbbbbbbbwk.
.kwwwwwwwwwwwwk.
.kkkkkkkkkkkkkk.
.kwwwwwkwwwwwwk.
.kwbbbwkwbbbbwk.
.kwwwwwkwwwwwwk.
.kkkkkkkkkkkkkk.
.kwwwkwwwwkwwwk.
.kwbwkwbbwkwbwk.
.kwwwkwwwwkwwwk.
.kkkkkkkkkkkkkk.
................
................
""",
}


def png(rows):
    raw = b"".join(b"\0" + bytes(c for ch in row for c in PALETTE[ch]) for row in rows)
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


here = os.path.dirname(os.path.abspath(__file__))
for key, art in ICONS.items():
    rows = art.strip().splitlines()
    assert len(rows) == 16 and all(len(r) == 16 for r in rows), key
    with open(os.path.join(here, key.lower().replace(" ", "-") + ".png"), "wb") as f:
        f.write(png(rows))
