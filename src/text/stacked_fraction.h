// A paragraph of MTEXT with a stacked fraction.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace hexlume {

// Draws the paragraph in entText as four pieces: the text before the fraction, its upper part, its lower
// part, and the text after it. height and width are in sheet units, escapement in tenths of a degree, angle
// in radians, x and y in model units times 100. Leaves the last piece in entText.
void DrawStackedFraction(Canvas canvas, int32_t height, int32_t width, int32_t escapement, int32_t attach,
                         double angle, double x, double y, int32_t halfWidthFont);

// Returns the height of the upper and lower part from the last "\H" code of entText, in sheet units. A
// negative result is minus a factor on the height of the text around them, -1.0 without such a code.
double ParseStackHeight();

// Moves the anchor (x, y) from the attachment point to the lower left of the line, for attachments 1, 5 and 9
// alone. total is the line's width in model units times 100.
void AnchorStackPart(int32_t height, int32_t attach, double total, double angle, double& x, double& y);

}  // namespace hexlume
