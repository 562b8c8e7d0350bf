// CIRCLE: drawn if one of two corners of its box lies in the view, and then without what the view's edges cut
// from it. A circle all around the view isn't drawn.
#include "entities/circle.h"

#include "driver/group_reader.h"
#include "entities/arc_rules.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

constexpr AngleRange wholeCircle = {0.0, 360.0};

// Its other two corners don't count.
bool CornerLiesInView(const ViewRect& view, const SheetCircle& circle) {
  return LiesInView(view, circle.rightBottom) || LiesInView(view, circle.leftTop);
}

// GDI draws the circle in whatever stands selected; a turned sheet doesn't turn it.
void DrawEllipseOf(Canvas canvas, const SheetCircle& circle) {
  Ellipse(canvas, circle.leftTop.x, circle.leftTop.y, WrapAdd(circle.rightBottom.x, 1),
          WrapSub(circle.rightBottom.y, 1));
}

}  // namespace

int32_t DrawCircle(const EntityRun& run) {
  LineStyle style;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveWholeLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 10: state.entX[0] = Atof(value) * 100.0 + run.offsetX; break;
      case 20: state.entY[0] = Atof(value) * 100.0 + run.offsetY; break;
      case 40: state.entRadius = Atof(value) * 100.0; break;
      case 62: ResolveColorUnlessZero(value, state.entColor); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  const SheetCircle circle = PlaceCircle(state.entX[0], state.entY[0], state.entRadius);
  if (!CornerLiesInView(run.view, circle)) return more;
  if (state.arcClockwise == 1) {
    // Without a pen or brush of its own: neither colour nor line type count, and the canvas's brush fills it.
    DrawEllipseOf(run.canvas, circle);
    return more;
  }
  const AngleRange range = CutToView(run.view, circle, state.entRadius, wholeCircle);
  DrawAngleRange(run.canvas, circle, range, style, state.entColor);
  return more;
}

int32_t DrawBlockCircle(const BlockRun& run) {
  LineStyle style;
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
      case 10: state.blockX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(Atof(value), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      case 40: state.blockRadius = Atof(value) * 100.0 * state.insertScaleX; break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  const SheetCircle circle = PlaceCircle(state.blockX[0], state.blockY[0], state.blockRadius);
  if (!CornerLiesInView(run.view, circle)) return more;

  const PenAndBrush selected = SelectPenAndBrush(run.canvas, style.family, style.width, state.blockColor);
  if (state.arcClockwise == 1) {
    DrawEllipseOf(run.canvas, circle);
  } else {
    const AngleRange range = CutToView(run.view, circle, state.blockRadius, wholeCircle);
    DrawAngleRange(run.canvas, circle, range, style, state.blockColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

int32_t DrawDimInsertCircle(const BlockRun& run) {
  LineStyle style;
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
      case 10: state.dimX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 20: state.dimY[0] = BlockY(Atof(value), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      // The Y scale alone, unlike in a block, where it is the X scale.
      case 40: state.dimRadius = Atof(value) * 100.0 * state.insertScaleY; break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.dimColor);

  TurnAboutOrigin(state.dimX[0], state.dimY[0], run.blockOriginX, run.blockOriginY);
  const SheetCircle circle = PlaceCircle(state.dimX[0], state.dimY[0], state.dimRadius);
  if (!CornerLiesInView(run.view, circle)) return more;

  const PenAndBrush selected = SelectPenAndBrush(run.canvas, style.family, style.width, state.dimColor);
  if (state.arcClockwise == 1) {
    DrawEllipseOf(run.canvas, circle);
  } else {
    const AngleRange range = CutToView(run.view, circle, state.dimRadius, wholeCircle);
    DrawAngleRange(run.canvas, circle, range, style, state.dimColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

}  // namespace hexlume
