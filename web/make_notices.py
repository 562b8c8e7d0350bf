#!/usr/bin/python3
"""Writes the licences of what is in the viewer: make_notices.py WEB_LIBRARIES OUTPUT [--originals]. The viewer shows them."""

import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
DOCUMENTS = Path("/usr/share/doc")

FONTS = """\
The viewer's fonts "Hexlume Sheet" and "Hexlume Measures" are derived programs, made of the Gothic fonts in Debian's package
fonts-ipafont-gothic (version 003.03) by web/fonts/make_fonts.py in the sources of Hexlume. They are licensed under the agreement
below. They have the characters of code page 932 alone, and no instructions for small screens; "Hexlume Measures" has no outlines.

A copy of the fonts is in the viewer's file itself: compressed with gzip and in base64, under the names sheet.ttf and measures.ttf.
To replace them by the original fonts, build the viewer with the original fonts:

    cmake --preset web -D HEXLUME_ORIGINAL_FONTS=ON && cmake --build --preset web
"""

ORIGINAL_FONTS = """\
The viewer's fonts are the Gothic fonts in Debian's package fonts-ipafont-gothic (version 003.03), unchanged.
"""



def main():
    libraries, output = Path(sys.argv[1]), Path(sys.argv[2])
    parts = [
        ("Hexlume", (ROOT / "LICENSE").read_text("utf-8")),
        ("Fonts", (ORIGINAL_FONTS if "--originals" in sys.argv[3:] else FONTS) + "\n" + (DOCUMENTS / "fonts-ipafont-gothic/copyright").read_text("utf-8")),
        ("FreeType", "Portions of this software are copyright (C) The FreeType Project (www.freetype.org).\n\n"
         + (libraries / "licences/freetype.txt").read_text("utf-8")),
        ("pixman", (libraries / "licences/pixman.txt").read_text("utf-8")),
        ("fast_float", (DOCUMENTS / "libfast-float-dev/copyright").read_text("utf-8")),
        ("emscripten, with the C library musl and LLVM's C++ library", (DOCUMENTS / "emscripten/copyright").read_text("utf-8")),
    ]
    rule = "=" * 78
    text = "\n".join(f"{rule}\n{title}\n{rule}\n\n{body.strip()}\n" for title, body in parts)
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text(text, encoding="utf-8")


main()
