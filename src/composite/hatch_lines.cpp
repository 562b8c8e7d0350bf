#include "composite/hatch_lines.h"

#include <cmath>

#include "composite/hatch_families.h"
#include "driver/group_reader.h"
#include "driver/numbers.h"

namespace hexlume {

namespace {

// Whole degrees make angles that are compared exactly. The thousandth lets 44.9999999 be 45.
double AngleOf(double degrees) {
  return Trunc(degrees + 0.001) * pi / 180.0;
}

// dashesRead counts those beyond the limit too, so that the family is drawn once all are told.
void AddDash(HatchFamily& family, int32_t& dashesRead, double length) {
  if (dashesRead < hatchDashLimit) family.dashes[family.dashCount++] = length;
  ++dashesRead;
  // Never cleared: the period of a family holds the dashes of all those in front of it.
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
      // The pattern starts at the boundary's lower left corner, not at the drawing's origin.
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
