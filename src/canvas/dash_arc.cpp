#include "canvas/canvas.h"

namespace hexlume {

void DashArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, double startAngle, double sweep,
             int32_t centreX, int32_t centreY, COLORREF colour, const double* pattern, int32_t count,
             int32_t mirror) {}

}  // namespace hexlume
