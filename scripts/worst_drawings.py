#!/usr/bin/env python3
"""Writes the drawings of at most 1 MB that take the most time or memory: scripts/worst_drawings.py FOLDER

Each function that has @drawing makes one drawing, which has the function's name. scripts/check_bounds.sh converts them all."""
import os
import sys

MEGABYTE = 1_000_000
drawings = []


def drawing(make):
    drawings.append(make)
    return make


def lines(*groups):
    """The text of groups (code, value)."""
    return "".join(f"{code}\n{value}\n" for code, value in groups)


def entity(name, *groups):
    return lines((0, name), *groups)


def header(width=420, height=297):
    return lines((0, "SECTION"), (2, "HEADER"), (9, "$LIMMIN"), (10, 0), (20, 0), (9, "$LIMMAX"), (10, width),
                 (20, height), (0, "ENDSEC"))


def whole(entities, blocks="", tables="", width=420, height=297):
    text = header(width, height)
    if tables:
        if lines((2, "LAYER")) not in tables:
            tables += layer_table()
        text += lines((0, "SECTION"), (2, "TABLES")) + tables + lines((0, "ENDSEC"))
    if blocks:
        text += lines((0, "SECTION"), (2, "BLOCKS")) + blocks + lines((0, "ENDSEC"))
    return text + lines((0, "SECTION"), (2, "ENTITIES")) + entities + lines((0, "ENDSEC"), (0, "EOF"))


def block(name, content, handle=""):
    owner = lines((330, handle)) if handle else ""
    return lines((0, "BLOCK")) + owner + lines((2, name), (10, 0), (20, 0)) + content + lines((0, "ENDBLK"))


def insert(name):
    return entity("INSERT", (2, name))


def fill(piece, around=2000):
    """As many copies of a text as fit into a drawing."""
    return piece * ((MEGABYTE - around) // len(piece))


def nested(content, levels=40, fan=2):
    """Blocks that insert the one before them several times, around this content."""
    blocks = block("B0", content)
    for level in range(1, levels + 1):
        blocks += block(f"B{level}", insert(f"B{level - 1}") * fan)
    return whole(insert(f"B{levels}"), blocks)


def layer_table(*groups):
    return lines((0, "TABLE"), (2, "LAYER"), (0, "LAYER"), (2, 0), (70, 0), (62, 7), *groups, (0, "ENDTAB"))


def dash_table(first=1, second=-1):
    return lines((0, "TABLE"), (2, "LTYPE"), (0, "LTYPE"), (2, "DASHED"), (73, 2), (49, first), (49, second), (0, "ENDTAB"))


def hatch_start(pattern="SOLID"):
    return lines((0, "HATCH"), (2, pattern))


def line_corners(*corners):
    return lines((72, 0), (73, 0)) + "".join(lines((10, x), (20, y)) for x, y in corners) + lines((97, 0))


SMALL_BOX = line_corners((0, 0), (400, 0), (400, 280), (0, 280))


# Boundaries of hatches.

def ellipses(count, half_width, half_height):
    start = lines((72, 3), (10, 0), (20, 0), (11, half_width), (21, 0), (40, half_height / half_width))
    return start + lines((51, 0)) * count


@drawing
def ellipses_in_one_hatch():
    """Each of 4,000,000 rows."""
    return whole(hatch_start() + ellipses(1000, 20000, 20000) + lines((75, 0)))


@drawing
def ellipses_in_many_hatches():
    return whole(fill(hatch_start() + ellipses(2, 20000, 20000) + lines((75, 2))))


@drawing
def wide_ellipses():
    """60,000,000 wide and 6 high."""
    return whole(fill(hatch_start() + ellipses(100, 300000, 0.03) + lines((75, 0))))


@drawing
def wide_ellipses_of_patterns():
    return whole(fill(hatch_start("LINES") + ellipses(100, 12000, 0.01) + lines((75, 0), (98, 0))))


@drawing
def rows_of_two_corners():
    """30,000,000 rows each, 16 bytes."""
    path = lines((10, 0), (20, 150000), (10, 1), (20, -150000), (97, 0))
    return whole(fill(hatch_start() + lines((72, 0), (73, 0)) + path * 1000 + lines((75, 0))))


@drawing
def tall_slanted_paths():
    path = lines((10, 0), (20, 9000), (10, 1), (20, -9000), (97, 0))
    return whole(fill(hatch_start() + lines((72, 0), (73, 0)) + path * 1000 + lines((75, 0))))


@drawing
def arcs_of_many_turns():
    """83 turns each."""
    arc = lines((72, 2), (10, 0), (20, 0), (40, 20), (50, 0), (51, 29990), (73, 1), (97, 0))
    return whole(fill(hatch_start() + arc * 900 + lines((75, 0))))


@drawing
def large_arcs_of_many_turns():
    arc = lines((72, 2), (10, 0), (20, 0), (40, 2000), (50, 0), (51, 29990), (73, 1), (97, 0))
    return whole(fill(hatch_start() + arc * 900 + lines((75, 0))))


@drawing
def arcs_without_room():
    """The first arc fills the path, the others find it full."""
    return whole(hatch_start() + lines((72, 2), (10, 0), (20, 0), (40, 20), (50, 0), (51, 29990)) +
                 fill(lines((73, 1))) + lines((97, 0), (75, 0)))


@drawing
def bulges_of_full_turns():
    edge = lines((42, 1e9), (10, 100), (20, 100), (10, 0), (20, 0))
    return whole(fill(hatch_start() + lines((72, 0), (73, 0)) + edge * 40 + lines((97, 0))) + lines((75, 0)))


@drawing
def combs():
    """Two combs across each other have a hole for each pair of teeth."""
    across, down = "", ""
    for i in range(2000):
        at = i * 0.04
        across += lines((10, at), (20, 0), (10, at), (20, 200), (10, at + .02), (20, 200), (10, at + .02), (20, 0))
        down += lines((10, 0), (20, at), (10, 200), (20, at), (10, 200), (20, at + .02), (10, 0), (20, at + .02))
    pair = hatch_start() + lines((72, 0), (73, 0)) + across + lines((97, 0)) + down + lines((97, 0), (75, 0))
    return whole(pair + pair)


@drawing
def stars():
    """All edges cross each other on the way down, so that each row is sorted anew."""
    path = ""
    for i in range(2000):
        path += lines((10, i * .1), (20, 0), (10, 200 - i * .1), (20, 250))
    return whole(hatch_start() + fill(lines((72, 0), (73, 0)) + path + lines((97, 0))) + lines((75, 0)))


@drawing
def hatches_of_corners():
    """The corners in one path."""
    corners = "".join(lines((10, i % 400), (20, (i * 7) % 280)) for i in range(29000))
    return whole(hatch_start() + lines((72, 0), (73, 0)) + corners + lines((97, 0), (75, 0)))


def pattern(angle, offset, dashes=()):
    start = lines((78, 1), (53, angle), (43, 0), (44, 0), (45, 0), (46, offset), (79, len(dashes)))
    return start + "".join(lines((49, dash)) for dash in dashes)


@drawing
def dense_hatches():
    piece = hatch_start("LINES") + SMALL_BOX + lines((75, 0)) + pattern(0, 0.0001) + lines((98, 0))
    return whole(fill(piece))


@drawing
def families_of_one_hatch():
    return whole(hatch_start("LINES") + SMALL_BOX + lines((75, 0)) + fill(pattern(45, 0.01)) + lines((98, 0)))


@drawing
def dense_dashed_hatches():
    piece = hatch_start("X") + SMALL_BOX + lines((75, 0)) + pattern(45, 0.01, (.01, -.01)) + lines((98, 0))
    return whole(fill(piece))


@drawing
def gaps_of_hatches():
    piece = hatch_start("X") + SMALL_BOX + lines((75, 0)) + pattern(30, 0.01, (-.01, -.01)) + lines((98, 0))
    return whole(fill(piece))


@drawing
def dotted_hatches():
    piece = hatch_start("X") + SMALL_BOX + lines((75, 0)) + pattern(30, 0.05, (0, -.05)) + lines((98, 0))
    return whole(fill(piece))


@drawing
def clip_regions():
    """Each hatch has a large circle as its clip region and one line."""
    piece = (hatch_start("X") + ellipses(1, 140, 140) + lines((75, 0)) + pattern(30, 5000) + lines((98, 0)))
    return whole(fill(piece))


@drawing
def filled_circles():
    return whole(fill(hatch_start() + ellipses(1, 140, 140) + lines((75, 0))))


@drawing
def rings():
    piece = hatch_start() + "".join(ellipses(1, radius, radius) for radius in range(1, 140)) + lines((75, 0))
    return whole(fill(piece))


# Lookups.

def dim_styles(count):
    table = lines((0, "TABLE"), (2, "DIMSTYLE"))
    return table + "".join(lines((0, "DIMSTYLE"), (2, i)) for i in range(count)) + lines((0, "ENDTAB"))


@drawing
def styles_of_a_tolerance():
    return whole(entity("TOLERANCE") + lines((3, "x")) * 120000, tables=dim_styles(25000))


@drawing
def styles_of_a_leader():
    return whole(entity("LEADER") + lines((3, "x")) * 120000, tables=dim_styles(25000))


@drawing
def arrows_of_leaders():
    blocks = "".join(lines((0, "BLOCK"), (330, i), (2, "")) for i in range(30000))
    leader = entity("LEADER", (3, "a"), (20, 0))
    table = lines((0, "TABLE"), (2, "DIMSTYLE"), (0, "DIMSTYLE"), (2, "a"), (341, "x"), (0, "ENDTAB"))
    return whole(leader * 20000, blocks, table)


@drawing
def layers_of_entities():
    table = lines((0, "TABLE"), (2, "LAYER")) + "".join(
        lines((0, "LAYER"), (2, i)) for i in range(25000)) + lines((0, "ENDTAB"))
    return whole(entity("LINE") + fill(lines((8, 24999)), len(table) + 2000), tables=table)


@drawing
def line_types_of_entities():
    value = "PHANTOM" * 35
    return whole(entity("LINE") + fill(lines((6, value))), tables=dash_table())


@drawing
def tables_of_tables():
    return whole("", tables=fill(lines((0, "TABLE"), (2, "LTYPE"), (0, "ENDTAB"))))


@drawing
def sections_of_blocks():
    return header() + fill(lines((0, "SECTION"), (2, "BLOCKS"), (0, "BLOCK"), (2, "A"), (0, "ENDSEC"))) + lines(
        (0, "SECTION"), (2, "ENTITIES"), (0, "ENDSEC"), (0, "EOF"))


# Texts.

def mtext(text, height=1):
    return entity("MTEXT", (40, height), (1, text))


# A text beside the sheet isn't drawn, but is kept.
LINES_TO_REPEAT = entity("TEXT", (10, -999), (1, "\\P" * 120))


@drawing
def nested_percent_codes():
    return nested(mtext("%%x" * 82))


@drawing
def nested_tolerances():
    return nested(entity("TOLERANCE", (1040, 1), (1, "{\\Fgdt;j}" * 25 + "%%v" * 5)))


@drawing
def nested_paragraphs():
    return nested(mtext("a")).replace(lines((2, "ENTITIES")), lines((2, "ENTITIES")) + LINES_TO_REPEAT)


@drawing
def nested_braces():
    return nested(mtext("{\\a" * 80))


@drawing
def nested_texts():
    return nested(entity("TEXT", (40, 1), (1, "Text")))


@drawing
def nested_fitted_texts():
    return nested(entity("TEXT", (40, 1), (72, 5), (11, 100), (1, "あ".encode("cp932").decode("latin-1") * 120)))


@drawing
def nested_inserts():
    return nested("", 40)


@drawing
def nested_lines():
    return nested(entity("LINE", (11, 10), (21, 10)))


@drawing
def nested_points():
    return nested(entity("POINT", (10, 10), (20, 10)))


@drawing
def nested_circles():
    return nested(entity("CIRCLE", (10, 10), (20, 10), (40, 5)))


@drawing
def nested_ellipses():
    return nested(entity("ELLIPSE", (10, 10), (20, 10), (11, 5), (40, .5), (41, 0), (42, 7)))


@drawing
def nested_splines():
    points = "".join(lines((10, i % 20), (20, i % 7)) for i in range(8000))
    knots = "".join(lines((40, i)) for i in range(8004))
    return nested(entity("SPLINE", (73, 8000)) + knots + points)


@drawing
def crossing_splines():
    """Each crosses itself some million times."""
    points = "".join(lines((10, i * 37 % 400), (20, i * 91 % 280)) for i in range(8000))
    knots = "".join(lines((40, i)) for i in range(8004))
    return whole(fill(entity("SPLINE", (73, 8000)) + knots + points))


@drawing
def nested_polylines():
    vertices = "".join(lines((0, "VERTEX"), (10, i % 20), (20, i % 7), (42, 1)) for i in range(8000))
    return nested(entity("POLYLINE") + vertices + lines((0, "SEQEND")))


@drawing
def nested_dashes():
    dashed = whole(insert("B40"), "", dash_table(0.02, -0.02))
    blocks = nested(entity("LINE", (8, 0), (6, "DASHED"), (11, 300), (21, 0)))
    section = blocks[blocks.index(lines((0, "SECTION"), (2, "BLOCKS"))):blocks.index(lines((2, "ENTITIES")))]
    return dashed.replace(lines((0, "SECTION"), (2, "ENTITIES")), section + lines((2, "ENTITIES")))


@drawing
def nested_deep():
    return nested(entity("LINE", (11, 10), (21, 10)), 12000)


@drawing
def block_in_itself():
    return whole(insert("A") * 1000, block("A", insert("A")))


@drawing
def blocks_of_inserts():
    """Inserts of one block of many lines, from the ENTITIES section."""
    content = entity("LINE", (11, 9)) * 20000
    return whole(insert("A") * 30000, block("A", content))


@drawing
def blocks_of_texts():
    content = entity("TEXT", (40, 1), (1, "Text")) * 12000
    return whole(insert("A") * 30000, block("A", content))


@drawing
def blocks_of_comments():
    """Nothing to draw, but much to read."""
    return whole(insert("A") * 30000, block("A", fill(lines((0, "X")), 400000)))


@drawing
def dimensions_of_texts():
    content = entity("MTEXT", (40, 1), (1, "%%x" * 60)) * 2000
    return whole(entity("DIMENSION", (2, "A")) * 25000, block("A", content))


@drawing
def lines_of_another_text():
    """MTEXTs that repeat another entity's 120 lines."""
    content = mtext("%%x" * 82) * 3400
    return whole(LINES_TO_REPEAT + insert("A"), block("A", content))


@drawing
def texts_without_end():
    return whole(fill(mtext("\\P" * 120)))


@drawing
def texts():
    return whole(fill(entity("TEXT", (40, 1), (1, "a"))))


@drawing
def texts_of_many_heights():
    return whole("".join(entity("TEXT", (40, i / 100), (1, "a")) for i in range(35000)))


@drawing
def fractions():
    return whole(fill(mtext("a\\S1^ 2;" + "\\P\\S1^ 2;" * 22)))


@drawing
def tolerances():
    return whole(fill(entity("TOLERANCE", (1040, 1), (1, "{\\Fgdt;j}" * 28))))


# Metafiles without end.

@drawing
def dashed_spline():
    return whole(entity("SPLINE", (74, 330000), (11, 0), (21, 0)) * 20000)


@drawing
def fit_points():
    return whole(fill(entity("SPLINE", (74, 330000), (11, 5), (21, 5), (74, 330000))))


@drawing
def dashed_arcs():
    arc = entity("ARC", (8, 0), (6, "DASHED"), (10, 200), (20, 150), (40, 140), (50, 0), (51, 359))
    return whole(arc * 10000, "", dash_table(1e-6, -1e-6))


@drawing
def dashed_lines():
    line = entity("LINE", (8, 0), (6, "DASHED"), (10, 0), (20, 0), (11, 400), (21, 280))
    return whole(line * 10000, "", dash_table(1e-2, -1e-6))


@drawing
def dotted_lines():
    line = entity("LINE", (8, 0), (6, "DASHED"), (10, 0), (20, 0), (11, 400), (21, 280))
    return whole(line * 10000, "", dash_table(1e-6, -1e-6))


@drawing
def dashed_ellipses():
    ellipse = entity("ELLIPSE", (8, 0), (6, "DASHED"), (10, 200), (20, 150), (11, 140), (40, .5), (41, 0), (42, 7))
    return whole(ellipse * 10000, "", dash_table(1e-6, -1e-6))


@drawing
def wide_polylines():
    vertex = entity("VERTEX", (10, 0), (20, 0), (40, 9), (41, 5)) + entity("VERTEX", (10, 300), (20, 200), (40, 5))
    return whole(entity("POLYLINE", (66, 1)) + fill(vertex) + lines((0, "SEQEND")))


@drawing
def light_polylines():
    return whole(entity("LWPOLYLINE") + fill(lines((10, 9), (20, 3), (42, 1), (10, 300), (20, 200), (42, -1))))


# Pictures.

@drawing
def wide_lines():
    return whole(fill(entity("LINE", (8, 0), (10, 5), (20, 5), (11, 400), (21, 280))),
                 tables=layer_table((370, 1000000)))


@drawing
def long_lines():
    return whole(fill(entity("LINE", (10, 0), (20, 0), (11, 400), (21, 280))))


@drawing
def large_circles():
    return whole(fill(entity("CIRCLE", (10, 200), (20, 150), (40, 140))))


@drawing
def huge_circles():
    return whole(fill(entity("CIRCLE", (10, 1e6), (20, 150), (40, 1e6))))


@drawing
def solids():
    return whole(fill(entity("SOLID", (10, 0), (20, 0), (11, 400), (21, 0), (12, 0), (22, 280), (13, 400),
                             (23, 280))))


@drawing
def leaders_of_dashes():
    table = dash_table() + layer_table((6, "DASHED"))
    leader = entity("LEADER", (8, 0), (10, 1), (20, 1)) + lines((10, 400), (20, 280), (10, 1), (20, 1)) * 100
    return whole(fill(leader), tables=table)


@drawing
def large_texts():
    return whole(fill(entity("TEXT", (40, 250), (1, "WWWWWWWWWW"))))


FAR = 90000  # mm, beside any sheet: what is there is computed but not drawn


@drawing
def far_polylines():
    vertices = "".join(lines((0, "VERTEX"), (10, FAR + i % 20), (20, i % 7), (42, 1)) for i in range(2000))
    return nested(entity("POLYLINE") + vertices + lines((0, "SEQEND")))


@drawing
def far_light_polylines():
    vertices = "".join(lines((10, FAR + i % 20), (20, i % 7), (42, 1)) for i in range(2000))
    return nested(entity("LWPOLYLINE", (90, 2000)) + vertices)


@drawing
def far_paragraphs():
    return nested(entity("MTEXT", (10, FAR), (20, 5), (40, 3), (1, "\\P" * 120)) * 1000)


@drawing
def far_lines_of_another_text():
    text = entity("MTEXT", (10, FAR), (20, 5))
    return nested(text * 1000).replace(lines((2, "ENTITIES")), lines((2, "ENTITIES")) + LINES_TO_REPEAT)


@drawing
def far_alignments():
    return nested(entity("TEXT", (10, FAR), (20, 5), (1, "\\A1;" * 60)) * 300)


@drawing
def far_alignments_of_paragraphs():
    return nested(entity("MTEXT", (10, FAR), (20, 5), (1, "\\A1;" * 60)) * 300)


@drawing
def far_ellipses():
    return nested(entity("ELLIPSE", (10, FAR), (20, 5), (11, 9), (21, 3), (40, .5), (41, .3), (42, 5)) * 3000)


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    for make in drawings:
        if len(sys.argv) > 2 and make.__name__ not in sys.argv[2:]:
            continue
        text = make().encode("latin-1")
        if len(text) > MEGABYTE:
            raise SystemExit(f"{make.__name__} has {len(text)} bytes")
        with open(os.path.join(folder, make.__name__ + ".dxf"), "wb") as file:
            file.write(text)


if __name__ == "__main__":
    main()
