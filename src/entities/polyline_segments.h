// The segments of POLYLINE and LWPOLYLINE. What becomes of one that the view doesn't show differs between the
// two, and stands there.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "entities/converter_rules.h"

namespace hexlume {

// A style without its width: polylines are drawn as thin as the pen goes, whatever their layer says.
LineStyle WithoutWidth(const LineStyle& style);

// Brings a segment that is parallel to an axis into the view, whichever way it runs. False, with the points
// as they were, if it is slanted.
bool ClampSegment(const ViewRect& view, POINT& last, POINT& next);

// A slanted segment cut to the view, from its left end to its right one. Whether anything is left of it is
// for the caller to tell.
ClippedSegment CutSegment(const ViewRect& view, const POINT& last, const POINT& next);
ClippedSegment DimCutSegment(const ViewRect& view, const POINT& last, const POINT& next);

// The bulge solver of a scope and the fields of the record that it reads and sets.
struct ArcScope {
  void (*solve)(double bulge, double x, double y, double* startAngle, double* sweep);
  const double &x, &y;  // the vertex at which the arc ends
  const double &centreX, &centreY, &radius;
  const int32_t& color;
};

extern const ArcScope entArcs, blockArcs, dimArcs;

// An arc segment: its bulge and the vertex where it starts, model units times 100.
struct ArcSegment {
  double bulge;
  double startX, startY;
};

// Draws an arc segment to the scope's vertex. It is drawn whole, or not at all if its whole circle isn't in
// the view.
void DrawArcSegment(Canvas canvas, const ViewRect& view, const ArcScope& scope, const ArcSegment& segment,
                    const LineStyle& style);

}  // namespace hexlume
