#include "composite/hatch_lines.h"

#include <cmath>

#include "composite/hatch_families.h"
#include "driver/group_reader.h"
#include "driver/numbers.h"
#include "driver/work_budget.h"

namespace hexlume {

namespace {

// Angles are whole degrees so that they can be compared exactly. Adding 0.001 makes 44.9999999 45.
double AngleOf(double degrees) {
  return Trunc(degrees + 0.001) * pi / 180.0;
}

// dashesRead also counts dashes beyond the limit, so that the family is drawn after its last dash.
void AddDash(HatchFamily& family, int32_t& dashesRead, double length) {
  if (dashesRead < hatchDashLimit)
    family.dashes[family.dashCount++] = length;
  else
    NoteBound(hatchDashesBound);
  ++dashesRead;
  // Never cleared: the period includes the dashes of all families before this one.
  family.period = WrapAdd(family.period, Trunc(std::abs(length)));
}

}  // namespace

void FillHatchLines(TextStream& stream, Canvas canvas, const HatchFill& fill) {
  const HatchExtent& extent = fill.extent;
  const double scale = 1.0 / state.drawScale;
  HatchFamily family;
  int32_t dashesRead = 0;
  int32_t dashTotal = 0;
  int32_t strokesLeft = hatchStrokeLimit;
  while (ReadGroup(stream) && state.groupCode != 98) {
    const double number = Atof(state.groupValue);
    switch (state.groupCode) {
      // The pattern starts at the lower left corner of the boundary's extent, not at the drawing's origin.
      case 43: family.baseX = Trunc(number * 100.0 * scale + extent.left); break;
      case 44: family.baseY = Trunc(number * 100.0 * scale + extent.bottom); break;
      case 45: family.offX = number * 100.0 * scale; break;
      case 46: family.offY = number * 100.0 * scale; break;
      case 49:
        AddDash(family, dashesRead, number * 100.0 * scale);
        if (dashesRead == dashTotal) DrawDashedFamily(canvas, family, extent, strokesLeft);
        break;
      case 53:
        dashesRead = family.dashCount = 0;
        family.angle = AngleOf(number);
        break;
      case 79:
        dashTotal = Atoi(state.groupValue);
        if (dashTotal == 0) DrawContinuousFamily(canvas, family, extent, strokesLeft);
        break;
    }
  }
}

}  // namespace hexlume
