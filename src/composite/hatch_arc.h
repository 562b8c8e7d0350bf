// The arcs of a hatch's boundary.
#pragma once

#include <cstdint>

namespace hexlume {

// The arc with this bulge from (x0, y0) to (entX[0], entY[0]), model units times 100. entRadius, entCentreX
// and entCentreY receive its circle, startAngle and sweep are degrees. startAngle is that of the first vertex
// mirrored about the X axis, save straight above and below the centre. bulge isn't 0.
void ArcFromBulge(double bulge, double x0, double y0, double& startAngle, double& sweep);

}  // namespace hexlume
