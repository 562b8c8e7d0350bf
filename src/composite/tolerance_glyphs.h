// The 26 symbols of geometric tolerances, as strokes of our own: they look the same whatever fonts there are.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace hexlume {

// Draw the symbol of a letter at (entX[0], entY[0]), or (blockX[0], blockY[0]), the lower left of its cell,
// and return the cell's width. height is that of the frame's row, in model units times 100. A letter without
// a symbol draws nothing and is 0 wide.
double DrawToleranceGlyphs(Canvas canvas, char symbol, double height);
double DrawBlockToleranceGlyphs(Canvas canvas, char symbol, double height);

// The font of a frame's text, and of the letters in a block's symbols: the system's Japanese one with a fixed
// pitch. The caller deletes it.
HFONT CreateToleranceFont(int32_t height);

}  // namespace hexlume
