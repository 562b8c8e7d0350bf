// CIRCLE: drawn if one of two corners of its bounding box is in the view, without what the edges of the view
// cut off. A circle that surrounds the view isn't drawn.
#include "entities/circle.h"

#include "driver/group_reader.h"
#include "entities/arc_rules.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

constexpr AngleRange wholeCircle = {0.0, 360.0};

// The other two corners aren't tested.
bool CornerLiesInView(const ViewRect& view, const SheetCircle& circle) {
  return LiesInView(view, circle.rightBottom) || LiesInView(view, circle.leftTop);
}

// GDI draws the circle with the selected pen and brush. It isn't turned with the sheet.
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
      case 10: state.entX[0] = GroupHundredths() + run.offsetX; break;
      case 20: state.entY[0] = GroupHundredths() + run.offsetY; break;
      case 40: state.entRadius = GroupHundredths(); break;
      case 62: ResolveColorUnlessZero(value, state.entColor); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  const SheetCircle circle = PlaceCircle(state.entX[0], state.entY[0], state.entRadius);
  if (!CornerLiesInView(run.view, circle)) return more;
  if (state.arcClockwise == 1) {
    // No pen or brush is selected: colour and line type have no effect, and the canvas's brush
    // fills the circle.
    DrawEllipseOf(run.canvas, circle);
    return more;
  }
  const AngleRange range = CutCircleToView(run.view, circle, state.entRadius, wholeCircle);
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
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      case 40: state.blockRadius = GroupHundredths() * state.insertScaleX; break;
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
    const AngleRange range = CutCircleToView(run.view, circle, state.blockRadius, wholeCircle);
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
      case 10: state.dimX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.dimY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      // Scaled by Y, while a circle in a block is scaled by X.
      case 40: state.dimRadius = GroupHundredths() * state.insertScaleY; break;
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
    const AngleRange range = CutCircleToView(run.view, circle, state.dimRadius, wholeCircle);
    DrawAngleRange(run.canvas, circle, range, style, state.dimColor);
  }
  RestorePenAndBrush(run.canvas, selected);
  return more;
}

}  // namespace hexlume
