#!/usr/bin/env python3
"""Searches for drawings of at most 1 MB that take much time or memory: scripts/find_worst.py TOOL FOLDER SECONDS [SEED]

A drawing is a random entity, or some, in a random place: repeated in the ENTITIES section, in a block that is inserted many
times or nested, in a dimension, as the boundary or the pattern of a hatch. The worst ones are changed further and are kept in
the folder, each with its figures in worst.txt."""
import os
import random
import sys
import tempfile
import time

import check_bounds
import worst_drawings as w

NUMBERS = ["0", "1", "-1", "0.001", "1e-6", "0.1", "5", "90", "100", "359", "1000", "29990", "250000", "3e5", "1e6", "1e9", "-1e9",
           "1e300", "2147483647", "-2147483648", "NAN", ""]
TEXTS = ["a", "%%x" * 80, "%%d" * 80, "%%u%%" * 50, "\x81%%x" * 60, "\\P" * 120, "{\\a" * 80, "{\\a;b}" * 40, " (" * 120,
         "\\S1^ 2;" * 36, "\\A1;" * 60, "\\U+2205" * 30, "\\fMS|" + "W" * 200, "{\\Fgdt;j}" * 28, "%%v" * 80, "\x82\xa0" * 120,
         "\\H0.5x;\\S" + "1" * 200, "}" * 200 + "{\\", "(" * 120 + " " * 120, ";" + "{\\" * 100]
NAMES = ["0", "DASHED", "CONTINUOUS", "PHANTOM2DASHED", "BYBLOCK", "x"]
KINDS = ["LINE", "ARC", "CIRCLE", "ELLIPSE", "POINT", "POLYLINE", "LWPOLYLINE", "SPLINE", "SOLID", "TRACE", "TEXT", "MTEXT", "INSERT",
         "TOLERANCE", "LEADER", "ATTRIB", "DIMENSION", "HATCH", "VERTEX", "SEQEND"]
CODES = [1, 2, 3, 6, 7, 8, 10, 11, 12, 13, 20, 21, 22, 23, 39, 40, 41, 42, 43, 44, 45, 46, 49, 50, 51, 52, 53, 62, 70, 71, 72, 73, 74, 75,
         76, 78, 79, 91, 92, 93, 97, 98, 210, 230, 1000, 1040]


def value_of(code, dice):
    if code == 1:
        return dice.choice(TEXTS)
    if code == 2:
        return dice.choice(["A", "B0", "B3", "SOLID", "LINES", "x"])
    if code in (3, 6, 7, 8, 1000):
        return dice.choice(NAMES)
    if code in (10, 20, 11, 21, 12, 22) and dice.random() < .7:
        return str(dice.randrange(-20, 400))
    return dice.choice(NUMBERS)


def groups(dice):
    chosen = [(code, value_of(code, dice)) for code in dice.choices(CODES, k=dice.randrange(1, 14))]
    if dice.random() < .5:
        chosen += [(code, value_of(code, dice)) for code in (10, 20, 11, 21, 40)]
    text = w.lines(*chosen)
    repeated = dice.choice([1, 1, 1, 2, 10, 100, 1000])
    return (text * repeated)[:200_000].rsplit("\n", 1)[0] + "\n" if repeated > 1 else text


def random_entity(dice):
    if dice.random() < .35:
        return hatch(dice)
    kind = dice.choice(KINDS)
    return w.lines((0, kind)) + groups(dice)


def number(dice):
    return dice.choice(["0.001", "0.01", "0.1", "1", "10", "140", "300", "3000", "20000", "300000", "-5", "359", "29990", "0"])


def hatch(dice):
    text = w.hatch_start(dice.choice(["SOLID", "X"]))
    for _ in range(dice.choice([1, 1, 2, 5, 50])):
        kind = dice.randrange(4)
        if kind == 0:
            text += w.ellipses(dice.choice([1, 1, 3, 100, 1000]), float(number(dice)) or 1, float(number(dice)) or 1)
        elif kind == 1:
            text += w.lines((72, 2), (10, number(dice)), (20, number(dice)), (40, number(dice)), (50, 0), (51, number(dice)),
                            (73, dice.choice([0, 1])), (97, 0))
        elif kind == 2:
            corners = [(number(dice), number(dice)) for _ in range(dice.choice([2, 3, 10, 100]))]
            text += w.line_corners(*corners)
        else:
            corners = "".join(w.lines((10, number(dice)), (20, number(dice)), (42, dice.choice([0, 1, -1, 1e9, 1e-9])))
                              for _ in range(dice.choice([2, 5, 50])))
            text += w.lines((72, 1), (73, 1)) + corners + w.lines((97, 0))
    text += w.lines((75, dice.choice([0, 1, 2])))
    for _ in range(dice.choice([1, 1, 3])):
        dashes = tuple(dice.choice([0, .01, -.01, 1, -1, 1e-6, 1e5]) for _ in range(dice.choice([0, 0, 1, 2, 90])))
        text += w.lines((78, 1), (53, dice.choice([0, 30, 45, 89, 90, 120, 180, 270, 359])), (43, number(dice)), (44, number(dice)),
                        (45, number(dice)), (46, number(dice)), (79, len(dashes)))
        text += "".join(w.lines((49, dash)) for dash in dashes)
    return text + w.lines((98, 0))


PLACES = ["entities", "inserts", "nested", "dimensions", "dimension inserts", "leaders"]


class Candidate:
    def __init__(self, dice):
        self.pieces = [random_entity(dice) for _ in range(dice.choice([1, 1, 2, 3]))]
        self.change_place(dice)

    def change_place(self, dice):
        self.place = dice.choice(PLACES)
        self.dash = dice.choice([(1, -1), (1e-6, -1e-6), (1e-2, -1e-2), (1e-6, 1), (1e5, -1e-5)])
        self.size = dice.choice([1, 1, 1, 10, 100])
        self.share = dice.choice([0, .01, .5, .9])
        self.fan = dice.choice([2, 2, 3, 10, 50])
        self.start = dice.choice([0, 0, 0, 30, 90000])  # mm to the right: beside the sheet nothing is drawn, but much is computed

    def child(self, dice):
        other = Candidate.__new__(Candidate)
        other.__dict__ = dict(self.__dict__, pieces=list(self.pieces))
        change = dice.randrange(4)
        if change == 0:
            other.change_place(dice)
        elif change == 1:
            other.pieces.append(random_entity(dice))
        elif change == 2:
            at = dice.randrange(len(other.pieces))
            rows = other.pieces[at].split("\n")
            for _ in range(dice.choice([1, 3])):
                row = dice.randrange(len(rows) // 2 or 1) * 2
                if row + 1 < len(rows) and rows[row].isdigit() and rows[row] != "0":
                    rows[row + 1] = str(value_of(int(rows[row]), dice))
            other.pieces[at] = "\n".join(rows)
        else:
            at = dice.randrange(len(other.pieces))
            other.pieces[at] = other.pieces[at] * dice.choice([2, 10])
        return other

    def insert(self, name):
        return w.entity("INSERT", (2, name), (10, self.start)) if self.start else w.insert(name)

    def text(self):
        content = "".join(self.pieces)[:400_000]
        content = content[:content.rfind("\n") + 1]
        many = max(1, int(self.share * (w.MEGABYTE - 3000) / max(1, len(content))))
        size = 420 * self.size, 297 * self.size
        tables = w.dash_table(*self.dash) + w.layer_table((6, "DASHED"))
        left = max(1, (w.MEGABYTE - 3000 - many * len(content)) // 30)
        if self.place == "entities":
            return w.whole(w.fill(content, 3000), "", tables, *size)
        if self.place == "nested":
            blocks = w.block("B0", content * many)
            for level in range(1, 30):
                blocks += w.block(f"B{level}", w.insert(f"B{level - 1}") * self.fan)
            return w.whole(self.insert("B29"), blocks, tables, *size)
        blocks = w.block("A", content * many, "1F")
        if self.place == "inserts":
            return w.whole(self.insert("A") * left, blocks, tables, *size)
        if self.place == "dimensions":
            return w.whole(w.entity("DIMENSION", (2, "A")) * left, blocks, tables, *size)
        if self.place == "dimension inserts":
            blocks += w.block("D", w.insert("A"))
            return w.whole(w.entity("DIMENSION", (2, "D")) * left, blocks, tables, *size)
        tables += w.lines((0, "TABLE"), (2, "DIMSTYLE"), (0, "DIMSTYLE"), (2, "S"), (341, "1F"), (0, "ENDTAB"))
        return w.whole(w.entity("LEADER", (3, "S"), (20, 5)) * left, blocks, tables, *size)


def measure(tool, candidate, dice):
    way = dice.choice(["emf", "full", "fit", "view", "turned", "list", "png", "svg", "pdf", "png-full", "svg-full"])
    with tempfile.TemporaryDirectory() as folder:
        path = os.path.join(folder, "a.dxf")
        text = candidate.text().encode("latin-1")[:w.MEGABYTE]
        with open(path, "wb") as file:
            file.write(text)
        seconds, megabytes, code, said = check_bounds.run(tool, path, way, folder)
    return max(seconds, megabytes / 100), seconds, megabytes, way, code, said, text


def main():
    tool, folder, limit = sys.argv[1], sys.argv[2], float(sys.argv[3])
    dice = random.Random(int(sys.argv[4]) if len(sys.argv) > 4 else 1)
    os.makedirs(folder, exist_ok=True)
    best, tried, end = [], 0, time.monotonic() + limit
    while time.monotonic() < end:
        candidate = dice.choice(best)[1].child(dice) if len(best) > 5 and dice.random() < .6 else Candidate(dice)
        score, seconds, megabytes, way, code, said, text = measure(tool, candidate, dice)
        tried += 1
        if len(best) < 30 or score > best[-1][0]:
            best = sorted(best + [(score, candidate)], key=lambda row: -row[0])[:30]
        if score > 8 or code < 0:
            with open(os.path.join(folder, f"{tried}.dxf"), "wb") as file:
                file.write(text)
        if score > 3 or code < 0:
            with open(os.path.join(folder, "worst.txt"), "a") as log:
                log.write(f"{tried} {way} {seconds:.2f} s {megabytes:.0f} MB {code} {candidate.place} {said[-70:]}\n")
    print(f"{tried} drawings, the worst score is {best[0][0]:.2f}")


if __name__ == "__main__":
    main()
