#include "canvas/canvas.h"

namespace hexlume {

void DashEllipse(Canvas canvas, int32_t x, int32_t y, int32_t left, int32_t top, int32_t right,
                 int32_t bottom, int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t rx,
                 int32_t ry, int32_t centreX, int32_t centreY, COLORREF colour, const double* pattern,
                 int32_t count, int32_t mirror) {}

}  // namespace hexlume
