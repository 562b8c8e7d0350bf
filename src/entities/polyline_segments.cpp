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

// The one system whose arcs run the other way round draws them by itself: with the family as the pen's style,
// and upright on a turned sheet too.
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

void DrawBulgeArc(Canvas canvas, const ViewRect& view, const BulgeArc& arc, const POINT& from,
                  const POINT& to, const LineStyle& style, int32_t color) {
  const POINT leftTop = ModelToSheet(arc.centreX - arc.radius, arc.centreY + arc.radius);
  const POINT rightBottom = ModelToSheet(arc.centreX + arc.radius, arc.centreY - arc.radius);
  if (!LiesInView(view, leftTop) || !LiesInView(view, rightBottom)) return;

  if (state.arcClockwise == 1) {
    DrawClockwiseArc(canvas, leftTop, rightBottom, arc.bulge, from, to, style.family, color);
    return;
  }
  const POINT centre = ModelToSheet(arc.centreX, arc.centreY);
  const int32_t radius = Trunc(arc.radius / state.drawScale);
  const Dashes dashes = DashesOf(style);
  if (dashes.count == 0) {
    const double sweep = arc.bulge > 0.0 ? -arc.sweep : arc.sweep;
    PenArc(canvas, centre.x, centre.y, radius, static_cast<float>(arc.startAngle), static_cast<float>(sweep),
           state.centreX, state.centreY, ColorAt(color), PS_SOLID, state.rotated);
  } else {
    // The walker knows one sense only. A negative bulge starts at the negated angle: its dashes lie on the
    // arc reflected in the level line through its centre, and don't join its vertices.
    const double start = arc.bulge > 0.0 ? arc.startAngle : -(arc.startAngle + 360.0);
    DashArc(canvas, centre.x, centre.y, radius, start, -arc.sweep, state.centreX, state.centreY,
            ColorAt(color), dashes.elements, dashes.count, state.rotated);
  }
}

}  // namespace hexlume
