#include "entities/polyline_segments.h"

#include "canvas/primitive_steps.h"

namespace hexlume {

LineStyle WithoutWidth(const LineStyle& style) {
  return {style.family, style.pattern, 0};
}

bool ClampSegment(const ViewRect& view, POINT& last, POINT& next) {
  if (!ClampAxisParallel(view, next, last)) return false;
  if (last.x < view.left) last.x = view.left;
  if (next.x > view.right) next.x = view.right;
  return true;
}

ClippedSegment CutSegment(const ViewRect& view, const POINT& last, const POINT& next) {
  const POINT& a = next.x < last.x ? next : last;
  const POINT& b = next.x < last.x ? last : next;
  return ClipSegment(view.left, view.top, view.right, view.bottom, a.x, b.x, a.y, b.y);
}

ClippedSegment DimCutSegment(const ViewRect& view, const POINT& last, const POINT& next) {
  const POINT& a = next.x < last.x ? next : last;
  const POINT& b = next.x < last.x ? last : next;
  return DimClipSegment(view.left, view.top, view.right, view.bottom, a.x, b.x, a.y, b.y);
}

namespace {

// Used where the arc direction had to be set. GDI draws the arc and dashes it by the pen's style; the arc
// isn't turned with the sheet.
void DrawClockwiseArc(Canvas canvas, const POINT& leftTop, const POINT& rightBottom, double bulge,
                      const POINT& from, const POINT& to, int32_t family, int32_t color) {
  const POINT& start = bulge > 0.0 ? from : to;
  const POINT& end = bulge > 0.0 ? to : from;
  const SelectedPen pen = SelectNewPen(canvas, family, 0, ColorAt(color));
  Arc(canvas, leftTop.x, leftTop.y, WrapAdd(rightBottom.x, 1), WrapSub(rightBottom.y, 1), start.x, start.y,
      end.x, end.y);
  RestorePen(canvas, pen);
}

}  // namespace

const ArcScope entArcs = {BulgeArcCentre,   state.entX[0],   state.entY[0], state.entCentreX,
                          state.entCentreY, state.entRadius, state.entColor};
const ArcScope blockArcs = {BlockBulgeArcCentre, state.blockX[0],   state.blockY[0], state.blockCentreX,
                            state.blockCentreY,  state.blockRadius, state.blockColor};
const ArcScope dimArcs = {DimBulgeArcCentre, state.dimX[0],   state.dimY[0], state.dimCentreX,
                          state.dimCentreY,  state.dimRadius, state.dimColor};

void DrawArcSegment(Canvas canvas, const ViewRect& view, const ArcScope& scope, const ArcSegment& segment,
                    const LineStyle& style) {
  const double bulge = segment.bulge;
  double startAngle;
  double sweep;
  scope.solve(bulge, segment.startX, segment.startY, &startAngle, &sweep);
  const POINT leftTop = ModelToSheet(scope.centreX - scope.radius, scope.centreY + scope.radius);
  const POINT rightBottom = ModelToSheet(scope.centreX + scope.radius, scope.centreY - scope.radius);
  if (!LiesInView(view, leftTop) || !LiesInView(view, rightBottom)) return;

  if (state.arcClockwise == 1) {
    DrawClockwiseArc(canvas, leftTop, rightBottom, bulge, ModelToSheet(segment.startX, segment.startY),
                     ModelToSheet(scope.x, scope.y), style.family, scope.color);
    return;
  }
  const POINT centre = ModelToSheet(scope.centreX, scope.centreY);
  const int32_t radius = Trunc(scope.radius / state.drawScale);
  const Dashes dashes = DashesOf(style);
  if (dashes.count == 0) {
    PenArc(canvas, centre.x, centre.y, radius, static_cast<float>(startAngle),
           static_cast<float>(bulge > 0.0 ? -sweep : sweep), state.centreX, state.centreY,
           ColorAt(scope.color), PS_SOLID, state.rotated);
  } else {
    // DashArc walks in one direction only. For a negative bulge it starts at the negated angle: the dashes are
    // on the arc mirrored about the horizontal line through its centre, and don't meet its vertices.
    const double start = bulge > 0.0 ? startAngle : -(startAngle + 360.0);
    DashArc(canvas, centre.x, centre.y, radius, start, -sweep, state.centreX, state.centreY,
            ColorAt(scope.color), dashes.elements, dashes.count, state.rotated);
  }
}

}  // namespace hexlume
