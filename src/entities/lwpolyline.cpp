// LWPOLYLINE: all vertices stand in the one entity. A segment is drawn the moment the Y of its end is read,
// with the X that was read last.
#include "entities/lwpolyline.h"

#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "entities/polyline_segments.h"
#include "entities/styled_strokes.h"

namespace hexlume {

namespace {

constexpr int32_t closedFlag = 1;

// How far the walk over the vertices has come.
struct LwPolylineWalk {
  double bulge = 0.0;  // of the segment to the next vertex
  double prevX = 0.0;  // the vertex where that arc starts
  double prevY = 0.0;
  double firstX = 0.0;
  double firstY = 0.0;
  POINT lastSheet = {};  // where the next line starts
};

// The first vertex.
void StartWalk(Canvas canvas, LwPolylineWalk& walk, double x, double y) {
  walk.firstX = x;
  walk.firstY = y;
  walk.lastSheet = ModelToSheet(x, y);
  // Not turned with the sheet: each segment sets a position of its own.
  MoveToEx(canvas, walk.lastSheet.x, walk.lastSheet.y, nullptr);
}

// Group 42 stands behind the vertex that its arc starts at.
void StartArc(LwPolylineWalk& walk, double bulge, double x, double y) {
  walk.bulge = bulge;
  walk.prevX = x;
  walk.prevY = y;
  walk.lastSheet = ModelToSheet(x, y);
}

// The line from the walk's last point to the next. One that the view doesn't show breaks the chain: the next
// line starts at its end.
void DrawSegment(Canvas canvas, const ViewRect& view, LwPolylineWalk& walk, const POINT& vertex,
                 const LineStyle& style, int32_t color) {
  POINT last = walk.lastSheet;
  POINT next = vertex;
  walk.lastSheet = vertex;
  if (BeyondOneEdge(view, last, next)) {
    MoveToEx(canvas, vertex.x, vertex.y, nullptr);
    return;
  }
  if (ClampSegment(view, last, next)) {
    DrawStyledLine(canvas, last, next, style, color);
    return;
  }
  // A single coordinate of -1 drops the line, although it can be a true one.
  const ClippedSegment cut = CutSegment(view, last, next);
  if (cut.startX != -1 && cut.startY != -1 && cut.endX != -1 && cut.endY != -1)
    DrawStyledLine(canvas, {cut.startX, cut.startY}, {cut.endX, cut.endY}, style, color);
  else
    MoveToEx(canvas, vertex.x, vertex.y, nullptr);
}

// The same in a dimension's inserted block.
void DrawDimInsertSegment(Canvas canvas, const ViewRect& view, LwPolylineWalk& walk, const POINT& vertex,
                          const LineStyle& style, int32_t color) {
  POINT last = walk.lastSheet;
  POINT next = vertex;
  walk.lastSheet = vertex;
  if (BeyondOneEdge(view, last, next)) {
    MoveToEx(canvas, vertex.x, vertex.y, nullptr);
    return;
  }
  if (ClampSegment(view, last, next)) {
    DrawStyledLine(canvas, last, next, style, color);
    return;
  }
  // A coordinate of 0 drops the line here: one that ends at the sheet's upper or left edge can vanish.
  const ClippedSegment cut = DimCutSegment(view, last, next);
  if (cut.startX != 0 && cut.startY != 0 && cut.endX != 0 && cut.endY != 0)
    DrawStyledLine(canvas, {cut.startX, cut.startY}, {cut.endX, cut.endY}, style, color);
  else
    MoveToEx(canvas, vertex.x, vertex.y, nullptr);
}

// The arc to the vertex in entX[0], entY[0].
void DrawArcToVertex(Canvas canvas, const ViewRect& view, LwPolylineWalk& walk, const LineStyle& style) {
  const POINT vertex = ModelToSheet(state.entX[0], state.entY[0]);
  double startAngle;
  double sweep;
  BulgeArcCentre(walk.bulge, walk.prevX, walk.prevY, &startAngle, &sweep);
  DrawBulgeArc(canvas, view,
               {walk.bulge, startAngle, sweep, state.entCentreX, state.entCentreY, state.entRadius},
               ModelToSheet(walk.prevX, walk.prevY), vertex, style, state.entColor);
  walk.bulge = 0.0;
  walk.lastSheet = vertex;
}

// To the one in blockX[0], blockY[0].
void DrawArcToBlockVertex(Canvas canvas, const ViewRect& view, LwPolylineWalk& walk, const LineStyle& style) {
  const POINT vertex = ModelToSheet(state.blockX[0], state.blockY[0]);
  double startAngle;
  double sweep;
  BlockBulgeArcCentre(walk.bulge, walk.prevX, walk.prevY, &startAngle, &sweep);
  DrawBulgeArc(canvas, view,
               {walk.bulge, startAngle, sweep, state.blockCentreX, state.blockCentreY, state.blockRadius},
               ModelToSheet(walk.prevX, walk.prevY), vertex, style, state.blockColor);
  walk.bulge = 0.0;
  walk.lastSheet = vertex;
}

// To the one in dimX[0], dimY[0].
void DrawArcToDimInsertVertex(Canvas canvas, const ViewRect& view, LwPolylineWalk& walk,
                              const LineStyle& style) {
  const POINT vertex = ModelToSheet(state.dimX[0], state.dimY[0]);
  double startAngle;
  double sweep;
  DimBulgeArcCentre(walk.bulge, walk.prevX, walk.prevY, &startAngle, &sweep);
  DrawBulgeArc(canvas, view,
               {walk.bulge, startAngle, sweep, state.dimCentreX, state.dimCentreY, state.dimRadius},
               ModelToSheet(walk.prevX, walk.prevY), vertex, style, state.dimColor);
  walk.bulge = 0.0;
  walk.lastSheet = vertex;
}

}  // namespace

int32_t DrawLwPolyline(const EntityRun& run) {
  LineStyle style;
  int32_t flags = 0;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  // The first vertex ends the header: what stands behind it tells nothing any more.
  for (; more && state.groupCode != 0 && state.groupCode != 10; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
      case 70: flags = Atoi(value); break;
    }
  }
  if (more && state.groupCode == 10) state.entX[0] = Atof(state.groupValue) * 100.0;
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);
  style = WithoutWidth(style);

  while (more && state.groupCode != 0 && state.groupCode != 20) more = ReadGroup(run.stream);
  if (more && state.groupCode == 20) {
    state.entY[0] = Atof(state.groupValue) * 100.0;
    more = ReadGroup(run.stream);
  }
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.entX[0], state.entY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 10: state.entX[0] = Atof(value) * 100.0; break;
      case 20:
        state.entY[0] = Atof(value) * 100.0;
        if (walk.bulge == 0.0)
          DrawSegment(run.canvas, run.view, walk, ModelToSheet(state.entX[0], state.entY[0]), style,
                      state.entColor);
        else
          DrawArcToVertex(run.canvas, run.view, walk, style);
        break;
      case 42: StartArc(walk, Atof(value), state.entX[0], state.entY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.entColor);
  } else {
    state.entX[0] = walk.firstX;
    state.entY[0] = walk.firstY;
    DrawArcToVertex(run.canvas, run.view, walk, style);
  }
  return more;
}

int32_t DrawBlockLwPolyline(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  int32_t flags = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0 && state.groupCode != 10; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.blockColor, run.insertColor, inherit)) return more;
        break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
      case 70: flags = Atoi(value); break;
    }
  }
  if (more && state.groupCode == 10) state.blockX[0] = BlockX(Atof(state.groupValue), run.blockOriginX);
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);
  style = WithoutWidth(style);

  while (more && state.groupCode != 0 && state.groupCode != 20) more = ReadGroup(run.stream);
  if (more && state.groupCode == 20) {
    state.blockY[0] = BlockY(Atof(state.groupValue), run.blockOriginY);
    TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
    more = ReadGroup(run.stream);
  }
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.blockX[0], state.blockY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 10: state.blockX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 20:
        state.blockY[0] = BlockY(Atof(value), run.blockOriginY);
        TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
        if (walk.bulge == 0.0)
          DrawSegment(run.canvas, run.view, walk, ModelToSheet(state.blockX[0], state.blockY[0]), style,
                      state.blockColor);
        else
          DrawArcToBlockVertex(run.canvas, run.view, walk, style);
        break;
      case 42: StartArc(walk, Atof(value), state.blockX[0], state.blockY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.blockColor);
  } else {
    state.blockX[0] = walk.firstX;
    state.blockY[0] = walk.firstY;
    DrawArcToBlockVertex(run.canvas, run.view, walk, style);
  }
  return more;
}

int32_t DrawDimInsertLwPolyline(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  int32_t flags = 0;
  state.dimColor = 0;
  int32_t more = ReadGroup(run.stream);
  // It's the first vertex's Y that ends the header here.
  for (; more && state.groupCode != 0 && state.groupCode != 20; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveDimInsertLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.dimColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.dimX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
      case 70: flags = Atoi(value); break;
    }
  }
  if (more && state.groupCode == 20) {
    state.dimY[0] = BlockY(Atof(state.groupValue), run.blockOriginY);
    more = ReadGroup(run.stream);
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.dimColor);
  style = WithoutWidth(style);

  // The insert's angle isn't used at all here.
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.dimX[0], state.dimY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 10: state.dimX[0] = BlockX(Atof(value), run.blockOriginX); break;
      case 20:
        state.dimY[0] = BlockY(Atof(value), run.blockOriginY);
        if (walk.bulge == 0.0)
          DrawDimInsertSegment(run.canvas, run.view, walk, ModelToSheet(state.dimX[0], state.dimY[0]), style,
                               state.dimColor);
        else
          DrawArcToDimInsertVertex(run.canvas, run.view, walk, style);
        break;
      case 42: StartArc(walk, Atof(value), state.dimX[0], state.dimY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawDimInsertSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style,
                         state.dimColor);
  } else {
    state.dimX[0] = walk.firstX;
    state.dimY[0] = walk.firstY;
    DrawArcToDimInsertVertex(run.canvas, run.view, walk, style);
  }
  return more;
}

}  // namespace hexlume
