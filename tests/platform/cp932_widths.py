#!/usr/bin/env python3
"""Writes cp932_widths.txt: how code page 932 holds each BMP code point, as Python's own cp932 codec
(an implementation independent of ICU) converts it. Run from anywhere; the file lands beside this one."""
import os

def ranges(points):
    out = []
    for p in points:
        if out and out[-1][1] == p - 1:
            out[-1][1] = p
        else:
            out.append([p, p])
    return [f"{a:04X}" if a == b else f"{a:04X}-{b:04X}" for a, b in out]

held = {1: [], 2: []}
for p in range(0x10000):
    if 0xD800 <= p <= 0xDFFF:
        continue  # a lone surrogate is no character
    try:
        held[len(chr(p).encode("cp932"))].append(p)
    except UnicodeEncodeError:
        pass

lines = [
    "# Code page 932 as Python's cp932 codec converts each BMP code point (written by cp932_widths.py).",
    "# single / double: the code points held as one / two bytes, as hex ranges; every other code point",
    "# (surrogates aside) is not in the code page and converts to one substitute byte.",
]
for name, size in (("single", 1), ("double", 2)):
    items = ranges(held[size])
    for i in range(0, len(items), 24):
        lines.append(" ".join([name] + items[i:i + 24]))

path = os.path.join(os.path.dirname(os.path.abspath(__file__)), "cp932_widths.txt")
with open(path, "w", encoding="ascii") as f:
    f.write("\n".join(lines) + "\n")
