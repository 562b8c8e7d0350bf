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

// An arc segment as its scope's bulge solver has told it, in model units times 100 and degrees.
struct BulgeArc {
  double bulge;
  double startAngle, sweep;
  double centreX, centreY, radius;
};

// The arc between two vertices on the sheet. It is drawn whole, or not at all where its whole circle isn't in
// the view.
void DrawBulgeArc(Canvas canvas, const ViewRect& view, const BulgeArc& arc, const POINT& from,
                  const POINT& to, const LineStyle& style, int32_t color);

}  // namespace hexlume
