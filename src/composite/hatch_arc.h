// The arcs of a hatch's boundary.
#pragma once

#include <cstdint>

namespace hexlume {

// Computes the arc with this bulge from (x0, y0) to (entX[0], entY[0]), in model units times 100. Sets
// entRadius, entCentreX and entCentreY. startAngle and sweep are degrees; startAngle is that of the first
// vertex mirrored about the X axis, except exactly above and below the centre. bulge must not be 0.
void ArcFromBulge(double bulge, double x0, double y0, double& startAngle, double& sweep);

}  // namespace hexlume
