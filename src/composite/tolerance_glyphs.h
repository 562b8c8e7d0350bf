// The 26 symbols of geometric tolerances, drawn as strokes, so that they don't depend on the installed fonts.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace hexlume {

// Draw the symbol of a letter and return the width of its cell. The lower left corner of the cell is
// (entX[0], entY[0]) or (blockX[0], blockY[0]). height is that of the frame's row, in model units times 100.
// For a letter without a symbol nothing is drawn and the width is 0.
double DrawToleranceGlyphs(Canvas canvas, char symbol, double height);
double DrawBlockToleranceGlyphs(Canvas canvas, char symbol, double height);

// Creates the font of a frame's text, and of the letters in a block's symbols: the system's Japanese font
// with fixed pitch. The caller deletes it.
HFONT CreateToleranceFont(int32_t height);

}  // namespace hexlume
