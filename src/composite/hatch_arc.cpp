#include "composite/hatch_arc.h"

namespace hexlume {

void ArcFromBulge(double, double, double, double&, double&) {}

}  // namespace hexlume
