// LINE: one stroke between two points, the shortest converter that has all steps. The scopes sort the two
// points by different rules, which decides where a dash pattern starts.
#include "entities/line.h"

#include <cstring>
#include <utility>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "entities/kept_line.h"
#include "entities/styled_strokes.h"

namespace hexlume {

int32_t DrawLine(const EntityRun& run) {
  LineStyle style;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 10: state.entX[0] = GroupHundredths(); break;
      case 11: state.entX[1] = GroupHundredths(); break;
      case 20: state.entY[0] = GroupHundredths(); break;
      case 21: state.entY[1] = GroupHundredths(); break;
      case 39: style.width = ResolveWidth(value); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  POINT a = ModelToSheet(state.entX[0], state.entY[0]);
  POINT b = ModelToSheet(state.entX[1], state.entY[1]);
  if (!(state.entX[0] < state.entX[1])) std::swap(a, b);
  if (ViewReject(run.view, a, b)) return more;
  DrawStyledLine(run.canvas, a, b, style, state.entColor);
  return more;
}

// Transform, cut and draw.
static void DrawEndsInBlock(const BlockRun& run, const LineStyle& style) {
  POINT a = BlockTransform(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  POINT b = BlockTransform(state.blockX[1], state.blockY[1], run.blockOriginX, run.blockOriginY);
  if (a.x > b.x) std::swap(a, b);
  if (ViewReject(run.view, a, b)) return;
  DrawStyledLine(run.canvas, a, b, style, state.blockColor);
}

int32_t DrawBlockLine(const BlockRun& run) {
  LinesAlike alike(run.stream);
  LineStyle style;
  int32_t inherit = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadLineGroup(run)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.blockColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 11: state.blockX[1] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 21: state.blockY[1] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  alike.StyleIsRead();
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  DrawEndsInBlock(run, style);
  while (more && alike.TakeNext(run)) DrawEndsInBlock(run, style);
  return more;
}

int32_t DrawDimLine(const EntityRun& run) {
  LineStyle style;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 8:
        if (!ResolveInsertLayer(style, state.entColor)) return more;
        break;
      case 10: state.entX[0] = GroupHundredths() + run.offsetX; break;
      case 11: state.entX[1] = GroupHundredths() + run.offsetX; break;
      case 20: state.entY[0] = GroupHundredths() + run.offsetY; break;
      case 21: state.entY[1] = GroupHundredths() + run.offsetY; break;
      case 39: style.width = ResolveWidth(value); break;
      case 62:
        if (Atoi(value) != 0) state.entColor = Atoi(value);
        state.entColor = ResolveColor(state.entColor);
        break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  POINT a = ModelToSheet(state.entX[0], state.entY[0]);
  POINT b = ModelToSheet(state.entX[1], state.entY[1]);
  if (!(state.entX[0] < state.entX[1])) std::swap(a, b);
  if (BeyondOneEdge(run.view, a, b)) return more;
  ClampAxisParallel(run.view, a, b);  // a slanted line isn't cut
  PenLine(run.canvas, a.x, a.y, b.x, b.y, state.centreX, state.centreY, style.width, ColorAt(state.entColor),
          state.rotated);
  return more;
}

int32_t DrawDimInsertLine(const BlockRun& run) {
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
      case 11: state.dimX[1] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20: state.dimY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 21: state.dimY[1] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 39: style.width = ResolveWidth(value); break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
    }
  }
  MonochromeRule(state.dimColor);

  // The points are neither sorted nor cut. Clamping each coordinate by itself bends a slanted line at the
  // edge of the view.
  POINT a = BlockTransform(state.dimX[0], state.dimY[0], run.blockOriginX, run.blockOriginY);
  POINT b = BlockTransform(state.dimX[1], state.dimY[1], run.blockOriginX, run.blockOriginY);
  if (!LiesInView(run.view, a) && !LiesInView(run.view, b) && run.wholeSheet == 0) return more;
  ClampToView(run.view, a);
  ClampToView(run.view, b);
  if (LinetypeFilter(style.family)) return more;
  PenLine(run.canvas, a.x, a.y, b.x, b.y, state.centreX, state.centreY, style.width, ColorAt(state.dimColor),
          state.rotated);
  return more;
}

}  // namespace hexlume
