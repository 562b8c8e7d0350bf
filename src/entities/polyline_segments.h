// The segments of POLYLINE and LWPOLYLINE. The two differ in what they do after a rejected segment.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "entities/converter_rules.h"

namespace hexlume {

// Returns the style with width 0: polylines are always drawn with the thinnest pen.
LineStyle WithoutWidth(const LineStyle& style);

// Clamps a segment that is parallel to an axis to the view, in either direction. Returns false and changes
// nothing if it is slanted.
bool ClampSegment(const ViewRect& view, POINT& last, POINT& next);

// Cuts a slanted segment to the view, from its left end to its right one. The caller tests whether
// anything is left.
ClippedSegment CutSegment(const ViewRect& view, const POINT& last, const POINT& next);
ClippedSegment DimCutSegment(const ViewRect& view, const POINT& last, const POINT& next);

// The bulge solver of a scope, and the fields of the record that it reads and sets.
struct ArcScope {
  void (*solve)(double bulge, double x, double y, double* startAngle, double* sweep);
  const double &x, &y;  // vertex where the arc ends
  const double &centreX, &centreY, &radius;
  const int32_t& color;
};

extern const ArcScope entArcs, blockArcs, dimArcs;

// The bulge of an arc segment and the vertex where it starts, in model units times 100.
struct ArcSegment {
  double bulge;
  double startX, startY;
};

// Draws an arc segment that ends at the scope's vertex. It is drawn whole, or not at all if its circle isn't
// completely in the view.
void DrawArcSegment(Canvas canvas, const ViewRect& view, const ArcScope& scope, const ArcSegment& segment,
                    const LineStyle& style);

}  // namespace hexlume
