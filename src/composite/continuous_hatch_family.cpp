#include "composite/hatch_families.h"

namespace hexlume {

void DrawContinuousFamily(Canvas, HatchFamily, const HatchExtent&) {}

}  // namespace hexlume
