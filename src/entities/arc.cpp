// ARC: a part of a circle, counter-clockwise. It is drawn if its start or its end is in the view (in a block,
// if its start is), without what the edges of the view cut off its circle.
#include "entities/arc.h"

#include <cmath>

#include "canvas/left_objects.h"
#include "driver/group_reader.h"
#include "entities/arc_rules.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// The angle of an arc's start or end. degrees is rounded to a float.
struct ArcAngle {
  double degrees = 0.0;
  double radians = 0.0;
};

struct SheetArc {
  SheetCircle circle;
  POINT start, end;
};

ArcAngle ReadAngle(double value) {
  return {static_cast<float>(value), value * pi / 180.0};
}

// Adds the turn of the block. A sum above 360 is reduced by 360, once.
ArcAngle ReadBlockAngle(double value) {
  const double turn = state.insertAngle * 180.0 / pi;
  const double sum = turn + value;
  const double degrees = static_cast<float>(sum > 360.0 ? turn - (360.0 - value) : sum);
  return {degrees, degrees * pi / 180.0};
}

POINT PointAt(double x, double y, double radius, const ArcAngle& angle) {
  return ModelToSheet(std::cos(angle.radians) * radius + x, std::sin(angle.radians) * radius + y);
}

SheetArc PlaceArc(double x, double y, double radius, const ArcAngle& start, const ArcAngle& end) {
  return {PlaceCircle(x, y, radius), PointAt(x, y, radius, start), PointAt(x, y, radius, end)};
}

// Less than three units wide or high.
bool IsTooSmall(const SheetCircle& circle) {
  return WrapSub(circle.rightBottom.x, circle.leftTop.x) < 3 ||
         WrapSub(circle.leftTop.y, circle.rightBottom.y) < 3;
}

// Equal angles give a whole circle.
AngleRange RangeOf(const ArcAngle& start, const ArcAngle& end) {
  if (end.degrees > start.degrees) return {start.degrees, end.degrees - start.degrees};
  return {start.degrees, 360.0 - start.degrees + end.degrees};
}

// Reduces an arc to what cut, the visible part of its circle, leaves of it. The result is always one range,
// and its sweep can be negative if the cut passes 0 degrees.
AngleRange MergeCut(const AngleRange& arc, const AngleRange& cut) {
  if (cut.sweep == 0.0) return arc;
  const double arcEnd = arc.start + arc.sweep;
  // The sweep is subtracted, whatever its sign.
  const bool startsAtCut = arc.start < cut.start && cut.start - cut.sweep < arcEnd;
  const double start = startsAtCut ? cut.start : arc.start;
  double cutEnd = cut.sweep > 0.0 ? cut.start + cut.sweep : cut.start - cut.sweep;
  if (cutEnd > 360.0) cutEnd -= 360.0;
  return {start, (cutEnd <= arcEnd ? cutEnd : arcEnd) - start};
}

AngleRange CutArc(const AngleRange& arc, const SheetCircle& circle, double radius, const ViewRect& view) {
  constexpr AngleRange noCut = {0.0, 0.0};
  return MergeCut(arc, CutCircleToView(view, circle, radius, noCut));
}

// GDI draws the arc with the selected pen and makes the dashes itself. The arc isn't turned with the sheet.
void DrawClockwise(Canvas canvas, const SheetArc& arc) {
  const SheetCircle& circle = arc.circle;
  Arc(canvas, circle.leftTop.x, circle.leftTop.y, WrapAdd(circle.rightBottom.x, 1),
      WrapSub(circle.rightBottom.y, 1), arc.start.x, arc.start.y, arc.end.x, arc.end.y);
}

}  // namespace

int32_t DrawArc(const EntityRun& run) {
  LineStyle style;
  ArcAngle start, end;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveWholeLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 10: state.entX[0] = GroupHundredths() + run.offsetX; break;
      case 20: state.entY[0] = GroupHundredths() + run.offsetY; break;
      case 40: state.entRadius = GroupHundredths() + 0.0001; break;
      case 50: start = ReadAngle(GroupNumber()); break;
      case 51: end = ReadAngle(GroupNumber()); break;
      case 62: ResolveColorUnlessZero(value, state.entColor); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  const SheetArc arc = PlaceArc(state.entX[0], state.entY[0], state.entRadius, start, end);
  if (!LiesInView(run.view, arc.start) && !LiesInView(run.view, arc.end)) return more;

  const PenAndBrush selected = SelectPenAndBrush(run.canvas, style.family, 0, state.entColor);
  if (state.arcClockwise == 1) {
    DrawClockwise(run.canvas, arc);
  } else {
    AngleRange range = RangeOf(start, end);
    if (run.wholeSheet != 1) range = CutArc(range, arc.circle, state.entRadius, run.view);
    DrawAngleRange(run.canvas, arc.circle, range, style, state.entColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

int32_t DrawBlockArc(const BlockRun& run) {
  LineStyle style;
  ArcAngle start, end;
  int32_t inherit = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.blockColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 40: state.blockRadius = GroupHundredths() * state.insertScaleX; break;
      case 50: start = ReadBlockAngle(GroupNumber()); break;
      case 51: end = ReadBlockAngle(GroupNumber()); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  const SheetArc arc = PlaceArc(state.blockX[0], state.blockY[0], state.blockRadius, start, end);
  if (IsTooSmall(arc.circle)) return more;

  // An arc that starts outside the view is dropped, even if it ends inside. Its pen and brush are selected by
  // then and remain on the canvas: later strokes restore them after their own.
  const PenAndBrush selected = SelectPenAndBrush(run.canvas, style.family, 0, state.blockColor);
  if (!LiesInView(run.view, arc.start) || (state.arcClockwise == 1 && !LiesInView(run.view, arc.end))) {
    LeaveSelected(selected.pen.pen);
    return more;
  }
  if (state.arcClockwise == 1) {
    DrawClockwise(run.canvas, arc);
  } else {
    const AngleRange range = CutArc(RangeOf(start, end), arc.circle, state.blockRadius, run.view);
    DrawAngleRange(run.canvas, arc.circle, range, style, state.blockColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

int32_t DrawDimInsertArc(const BlockRun& run) {
  LineStyle style;
  ArcAngle start, end;
  int32_t inherit = 0;
  state.dimColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveDimInsertLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.dimColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.dimX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.dimY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 40: state.dimRadius = GroupHundredths(); break;  // not scaled, unlike the centre
      case 50: start = ReadAngle(GroupNumber()); break;     // not turned, unlike the centre
      case 51: end = ReadAngle(GroupNumber()); break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.dimColor);

  TurnAboutOrigin(state.dimX[0], state.dimY[0], run.blockOriginX, run.blockOriginY);
  const SheetArc arc = PlaceArc(state.dimX[0], state.dimY[0], state.dimRadius, start, end);
  if (!LiesInView(run.view, arc.start) && !LiesInView(run.view, arc.end)) return more;

  const PenAndBrush selected = SelectPenAndBrush(run.canvas, style.family, 0, state.dimColor);
  if (state.arcClockwise == 1) {
    DrawClockwise(run.canvas, arc);
  } else {
    AngleRange range = RangeOf(start, end);
    if (run.wholeSheet != 1) range = CutArc(range, arc.circle, state.dimRadius, run.view);
    DrawAngleRange(run.canvas, arc.circle, range, style, state.dimColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

}  // namespace hexlume
