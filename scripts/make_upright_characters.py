#!/usr/bin/env python3
"""Writes the table of the characters that are upright in vertical text, from the Unicode data (Debian's package
unicode-data has it in /usr/share/unicode).

    scripts/make_upright_characters.py VerticalOrientation.txt >src/platform/portable/upright_characters.inc

There is a row for each range of UTF-16 units whose orientation is U or Tu: its first and its last unit.
"""

import re
import sys

LAST_UNIT = 0xFFFF
LINE = re.compile(r"([0-9A-F]+)(?:\.\.([0-9A-F]+))?\s*;\s*(\w+)")


def upright_units(path):
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            row = LINE.match(line)
            if row and row[3] in ("U", "Tu"):
                yield from range(int(row[1], 16), min(int(row[2] or row[1], 16), LAST_UNIT) + 1)


def main():
    ranges = []
    for unit in sorted(upright_units(sys.argv[1])):
        if ranges and ranges[-1][1] == unit - 1:
            ranges[-1][1] = unit
        else:
            ranges.append([unit, unit])
    print("// Made by scripts/make_upright_characters.py.")
    for first, last in ranges:
        print(f"{{0x{first:04X}, 0x{last:04X}}},")


main()
