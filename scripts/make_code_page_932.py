#!/usr/bin/env python3
"""Writes the table of code page 932's double-byte characters from Python's codec.

    scripts/make_code_page_932.py >src/platform/code_page_932_table.inc

There is a row for each lead byte with characters (except F0 to F9, the user-defined ones, which are computed) and a
column for each trail byte from 40 to FC; 0 if there is no character.
"""

LEAD_BYTES = [*range(0x81, 0xA0), *range(0xE0, 0xF0), *range(0xFA, 0xFD)]
TRAIL_BYTES = range(0x40, 0xFD)
IN_A_LINE = 14


def character(lead, trail):
    try:
        text = bytes([lead, trail]).decode("cp932")
    except UnicodeDecodeError:
        return 0
    return ord(text) if len(text) == 1 else 0


def main():
    print("// Made by scripts/make_code_page_932.py.")
    for lead in LEAD_BYTES:
        row = [f"0x{character(lead, trail):04X}," for trail in TRAIL_BYTES]
        print(f"// {lead:02X}")
        print("{")
        for start in range(0, len(row), IN_A_LINE):
            print("    " + " ".join(row[start : start + IN_A_LINE]))
        print("},")


main()
