// A paragraph of MTEXT with a stacked fraction.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"

namespace hexlume {

// Draws the paragraph in entText in up to four pieces: the text in front of the fraction, its upper and lower
// part, and the text behind. Sizes are the sheet's, the anchor is the model's, times 100; angle is in
// radians.
void DrawStackedFraction(Canvas canvas, int32_t height, int32_t width, int32_t escapement, int32_t attach,
                         double angle, double x, double y, int32_t halfWidthFont);

// The height that the last "\H" code of entText tells for the parts, in sheet units; negative: a factor on
// the height of the text around them, -1.0 without such a code.
double ParseStackHeight();

// Moves the anchor from where the attachment point has it to the lower left of the line.
void AnchorStackPart(int32_t height, int32_t attach, double total, double angle, double& x, double& y);

}  // namespace hexlume
