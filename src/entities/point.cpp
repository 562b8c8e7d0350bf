// POINT: the mark given by $PDMODE and $PDSIZE. Points have no view test and no line type.
#include "entities/point.h"

#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

constexpr int32_t figureCount = 32;  // $PDMODE is the figure plus 32 times the frame

// The figure is drawn first. The remainder of a negative mode draws a figure only if it is 0.
int32_t FigureOf(const HeaderVars& headerVars) {
  return headerVars.pdMode % figureCount;
}
int32_t FrameOf(const HeaderVars& headerVars) {
  return headerVars.pdMode / figureCount;
}

// All marks are drawn with the dash family of the drawing's first layer, whatever the point's layer. A second
// LAYER table without records keeps it.
int32_t MarkPenStyle() {
  return state.layers.empty() ? 0 : state.layers[0].family;
}

void DrawFigure(Canvas canvas, const POINT& at, const HeaderVars& headerVars, int32_t colorIndex) {
  const COLORREF color = ColorAt(colorIndex);
  const int32_t penStyle = MarkPenStyle();
  switch (FigureOf(headerVars)) {
    case 0: PenPixel(canvas, at.x, at.y, state.centreX, state.centreY, color, state.rotated); break;
    case 2:
      MarkPlus(canvas, at.x, at.y, state.centreX, state.centreY, color, penStyle, headerVars.pdSize,
               state.rotated);
      break;
    case 3:
      MarkCross(canvas, at.x, at.y, state.centreX, state.centreY, color, penStyle, headerVars.pdSize,
                state.rotated);
      break;
    case 4:
      MarkTick(canvas, at.x, at.y, state.centreX, state.centreY, color, penStyle, headerVars.pdSize,
               state.rotated);
      break;
  }
}

void DrawSquare(Canvas canvas, const POINT& at, const HeaderVars& headerVars, int32_t colorIndex) {
  MarkSquare(canvas, at.x, at.y, state.centreX, state.centreY, ColorAt(colorIndex), MarkPenStyle(),
             headerVars.pdSize, state.rotated);
}

}  // namespace

int32_t DrawPoint(const EntityRun& run) {
  LineStyle unusedStyle;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 8:
        if (!ResolveLayer(value, unusedStyle, state.entColor)) return more;
        break;
      case 10: state.entX[0] = GroupHundredths(); break;
      case 20: state.entY[0] = GroupHundredths(); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
    }
  }
  MonochromeRule(state.entColor);

  const POINT at = ModelToSheet(state.entX[0], state.entY[0]);
  DrawFigure(run.canvas, at, run.headerVars, state.entColor);
  const int32_t frame = FrameOf(run.headerVars);
  if (frame == 1 || frame == 3)
    MarkCircle(run.canvas, at.x, at.y, state.centreX, state.centreY, ColorAt(state.entColor), MarkPenStyle(),
               run.headerVars.pdSize, state.arcClockwise, state.rotated);
  if (frame == 2 || frame == 3) DrawSquare(run.canvas, at, run.headerVars, state.entColor);
  return more;
}

int32_t DrawBlockPoint(const BlockRun& run) {
  LineStyle unusedStyle;
  int32_t inherit = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, unusedStyle, inherit); break;  // sets inherit, used for the colour
      case 8:
        if (!ResolveInheritedLayer(unusedStyle, state.blockColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  MonochromeRule(state.blockColor);

  const POINT at = BlockTransform(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  DrawFigure(run.canvas, at, run.headerVars, state.blockColor);
  const int32_t frame = FrameOf(run.headerVars);
  // In a block a pixel replaces the circle.
  if (frame == 1 || frame == 3)
    PenPixel(run.canvas, at.x, at.y, state.centreX, state.centreY, ColorAt(state.blockColor), state.rotated);
  if (frame == 2 || frame == 3) DrawSquare(run.canvas, at, run.headerVars, state.blockColor);
  return more;
}

}  // namespace hexlume
