#!/usr/bin/python3
"""Makes the viewer's fonts of the Japanese Gothics of Debian's package fonts-ipafont-gothic.

    make_fonts.py FOLDER [--originals]

A web page has no installed fonts, and the library must measure texts as it does on Linux. So the viewer has the fonts that the
library uses there, with the characters of code page 932 alone and without instructions for small screens:

    sheet.ttf     the Gothic of fixed pitch
    measures.ttf  the proportional Gothic, which texts in vertical writing are measured with. It has no outlines

The measures of all characters are checked against those of the original fonts. The fonts are derived programs in the sense of
the IPA Font License: they have other names and the same licence. With --originals the original fonts are copied instead.
fonts.json has the table of fonts.
"""

import ctypes
import io
import json
import shutil
import sys
from pathlib import Path

from fontTools import subset
from fontTools.ttLib import TTFont, newTable
from fontTools.ttLib.tables._g_l_y_f import Glyph

ORIGINALS = Path("/usr/share/fonts/opentype/ipafont-gothic")
FONTS = [
    # file, original, name, families by which drawings and the library ask for it, outlines
    ("sheet.ttf", "ipag.ttf", "Hexlume Sheet", ["IPAGothic", "IPAゴシック"], True),
    ("measures.ttf", "ipagp.ttf", "Hexlume Measures", ["IPAPGothic", "IPA Pゴシック"], False),
]
LICENCE = "IPA Font License Agreement v1.0"
PIXELS_PER_EM = [1, 2, 3, 7, 10, 11, 12, 13, 16, 24, 31, 37, 48, 64, 97, 100, 128, 199, 256, 1000, 2047, 2048]


def code_page_932():
    """All characters that the library makes of bytes, with those of user-defined codes, which the fonts may have."""
    characters = {*range(0x81), *range(0xE000, 0xE758), *range(0xF8F0, 0xF8F4), *range(0xFF61, 0xFFA0)}
    for lead in [*range(0x81, 0xA0), *range(0xE0, 0xFD)]:
        for trail in range(0x40, 0xFD):
            try:
                characters.add(ord(bytes([lead, trail]).decode("cp932")))
            except UnicodeDecodeError:
                pass
    return characters


def set_names(font, name):
    copyright_notice = font["name"].getDebugName(0)
    table = newTable("name")
    table.names = []
    texts = {
        0: copyright_notice, 1: name, 2: "Regular", 3: f"{name} 1.0", 4: name, 5: "Version 1.0", 6: name.replace(" ", ""),
        10: "Characters of code page 932. To replace it by the original font, see fonts/notices.txt.",
        13: LICENCE, 14: "https://moji.or.jp/ipafont/license/",
    }
    for number, text in texts.items():
        table.setName(text, number, 3, 1, 0x409)
    font["name"] = table


def drop_outlines(font):
    """Empties all glyphs. A vertical measure counts from the top of a glyph's box, which is 0 then."""
    glyphs, metrics = font["glyf"], font["vmtx"].metrics
    for name in font.getGlyphOrder():
        top = getattr(glyphs[name], "yMax", 0) if glyphs[name].numberOfContours != 0 else 0
        height, bearing = metrics[name]
        metrics[name] = (height, bearing + top)
        glyphs[name] = Glyph()


def derive(original, name, outlines):
    font = TTFont(original, recalcBBoxes=False, recalcTimestamp=False)
    options = subset.Options()
    options.hinting = False
    options.layout_features = ["vert"]
    options.notdef_outline = True
    options.drop_tables += ["GDEF", "gasp"]
    options.name_IDs = [0]
    subsetter = subset.Subsetter(options)
    subsetter.populate(unicodes=code_page_932())
    subsetter.subset(font)
    if not outlines:
        drop_outlines(font)
    set_names(font, name)
    file = io.BytesIO()
    font.save(file, reorderTables=True)
    return file.getvalue()


class Measurer:
    """What the library reads of a font, through the same FreeType."""

    library = ctypes.CDLL("libfreetype.so.6")
    NO_SCALE, NO_HINTING, NO_BITMAP = 1, 2, 8

    def __init__(self, data):
        self.data = data
        self.handle, self.face = ctypes.c_void_p(), ctypes.c_void_p()
        assert self.library.FT_Init_FreeType(ctypes.byref(self.handle)) == 0
        assert self.library.FT_New_Memory_Face(self.handle, data, ctypes.c_long(len(data)), ctypes.c_long(0), ctypes.byref(self.face)) == 0
        self.substitutes = vertical_glyphs(data)

    def glyph(self, character):
        return self.library.FT_Get_Char_Index(self.face, ctypes.c_ulong(character))

    def across(self, glyph):
        advance = ctypes.c_long()
        assert self.library.FT_Get_Advance(self.face, glyph, self.NO_SCALE, ctypes.byref(advance)) == 0
        return advance.value

    def down(self, character, ppem):
        glyph = self.glyph(character)
        glyph = self.substitutes.get(glyph, glyph)
        assert self.library.FT_Set_Pixel_Sizes(self.face, 0, ppem) == 0
        assert self.library.FT_Load_Glyph(self.face, glyph, self.NO_HINTING | self.NO_BITMAP) == 0
        slot = ctypes.cast(self.face.value + GLYPH_SLOT, ctypes.POINTER(ctypes.c_void_p))[0]
        return ctypes.cast(slot + VERTICAL_ADVANCE, ctypes.POINTER(ctypes.c_long))[0]


# Places in FT_FaceRec and FT_GlyphSlotRec where a long has 64 bits.
GLYPH_SLOT = 152
VERTICAL_ADVANCE = 48 + 7 * 8


def vertical_glyphs(data):
    font = TTFont(io.BytesIO(data), lazy=True)
    table = font["GSUB"].table
    numbers = font.getReverseGlyphMap()
    script = next(record.Script for record in table.ScriptList.ScriptRecord if record.ScriptTag == "kana")
    features = [table.FeatureList.FeatureRecord[i] for i in script.DefaultLangSys.FeatureIndex]
    substitutes = {}
    for feature in features:
        if feature.FeatureTag != "vert":
            continue
        for lookup in feature.Feature.LookupListIndex:
            for single in table.LookupList.Lookup[lookup].SubTable:
                for glyph, other in single.mapping.items():
                    substitutes.setdefault(numbers[glyph], numbers[other])
    return substitutes


def header_measures(data):
    font = TTFont(io.BytesIO(data), lazy=True)
    return [
        font["head"].unitsPerEm, font["head"].xMin, font["head"].xMax, font["hhea"].ascent, font["hhea"].descent,
        font["hhea"].advanceWidthMax, font["OS/2"].usWinAscent, font["OS/2"].usWinDescent, font["OS/2"].xAvgCharWidth,
        font["post"].isFixedPitch, "vhea" in font,
    ]


def check_measures(derived, original):
    if header_measures(derived) != header_measures(original):
        raise SystemExit(f"measures differ: {header_measures(derived)} {header_measures(original)}")
    own, first = Measurer(derived), Measurer(original)
    for character in sorted(code_page_932()):
        if own.across(own.glyph(character)) != first.across(first.glyph(character)):
            raise SystemExit(f"U+{character:04X} has another width")
        for ppem in PIXELS_PER_EM:
            if own.down(character, ppem) != first.down(character, ppem):
                raise SystemExit(f"U+{character:04X} has another height at {ppem} pixels an em")


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    rows = []
    for file, original, name, families, outlines in FONTS:
        data = (ORIGINALS / original).read_bytes()
        if "--originals" in sys.argv[2:]:
            file = original
            shutil.copyfile(ORIGINALS / original, folder / file)
        else:
            derived = derive(ORIGINALS / original, name, outlines)
            check_measures(derived, data)
            (folder / file).write_bytes(derived)
        rows.append({"file": file, "families": families, "outlines": outlines})
    (folder / "fonts.json").write_text(json.dumps(rows, ensure_ascii=False, indent=1) + "\n", encoding="utf-8")


main()
