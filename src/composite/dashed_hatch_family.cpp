#include "composite/hatch_families.h"

namespace hexlume {

void DrawDashedFamily(Canvas, HatchFamily, const HatchExtent&) {}

}  // namespace hexlume
