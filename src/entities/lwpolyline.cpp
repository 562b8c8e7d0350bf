// LWPOLYLINE: all vertices are groups of one entity. A segment is drawn as soon as the Y of its end is read,
// with the X read last.
#include "entities/lwpolyline.h"

#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "entities/polyline_segments.h"
#include "entities/styled_strokes.h"

namespace hexlume {

namespace {

constexpr int32_t closedFlag = 1;

// The state of the loop over the vertices.
struct LwPolylineWalk {
  double bulge = 0.0;  // bulge of the segment to the next vertex
  double prevX = 0.0;  // vertex where that arc starts
  double prevY = 0.0;
  double firstX = 0.0;
  double firstY = 0.0;
  POINT lastSheet = {};  // start of the next line
};

// Starts at the first vertex.
void StartWalk(Canvas canvas, LwPolylineWalk& walk, double x, double y) {
  walk.firstX = x;
  walk.firstY = y;
  walk.lastSheet = ModelToSheet(x, y);
  // Not turned with the sheet: each segment sets its own position.
  MoveToEx(canvas, walk.lastSheet.x, walk.lastSheet.y, nullptr);
}

// Group 42 comes after the vertex where its arc starts.
void StartArc(LwPolylineWalk& walk, double bulge, double x, double y) {
  walk.bulge = bulge;
  walk.prevX = x;
  walk.prevY = y;
  walk.lastSheet = ModelToSheet(x, y);
}

// Draws the line from the last point to vertex. If the view rejects it, the next line starts at its end.
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
  // A single coordinate of -1 drops the line, although -1 can be a valid coordinate.
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
  // A single coordinate of 0 drops the line: one that ends at the sheet's top or left edge can be lost.
  const ClippedSegment cut = DimCutSegment(view, last, next);
  if (cut.startX != 0 && cut.startY != 0 && cut.endX != 0 && cut.endY != 0)
    DrawStyledLine(canvas, {cut.startX, cut.startY}, {cut.endX, cut.endY}, style, color);
  else
    MoveToEx(canvas, vertex.x, vertex.y, nullptr);
}

// Draws the arc from the last vertex to the scope's vertex.
void DrawArcToVertex(Canvas canvas, const ViewRect& view, const ArcScope& scope, LwPolylineWalk& walk,
                     const LineStyle& style) {
  DrawArcSegment(canvas, view, scope, {walk.bulge, walk.prevX, walk.prevY}, style);
  walk.bulge = 0.0;
  walk.lastSheet = ModelToSheet(scope.x, scope.y);
}

}  // namespace

int32_t DrawLwPolyline(const EntityRun& run) {
  LineStyle style;
  int32_t flags = 0;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  // The first vertex ends the header. The groups after it have no effect on style and flags.
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
  if (more && state.groupCode == 10) state.entX[0] = GroupHundredths();
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);
  style = WithoutWidth(style);

  while (more && state.groupCode != 0 && state.groupCode != 20) more = ReadGroup(run.stream);
  if (more && state.groupCode == 20) {
    state.entY[0] = GroupHundredths();
    more = ReadGroup(run.stream);
  }
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.entX[0], state.entY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    switch (state.groupCode) {
      case 10: state.entX[0] = GroupHundredths(); break;
      case 20:
        state.entY[0] = GroupHundredths();
        if (walk.bulge == 0.0)
          DrawSegment(run.canvas, run.view, walk, ModelToSheet(state.entX[0], state.entY[0]), style,
                      state.entColor);
        else
          DrawArcToVertex(run.canvas, run.view, entArcs, walk, style);
        break;
      case 42: StartArc(walk, GroupNumber(), state.entX[0], state.entY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.entColor);
  } else {
    state.entX[0] = walk.firstX;
    state.entY[0] = walk.firstY;
    DrawArcToVertex(run.canvas, run.view, entArcs, walk, style);
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
  if (more && state.groupCode == 10) state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX);
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);
  style = WithoutWidth(style);

  while (more && state.groupCode != 0 && state.groupCode != 20) more = ReadGroup(run.stream);
  if (more && state.groupCode == 20) {
    state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY);
    TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
    more = ReadGroup(run.stream);
  }
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.blockX[0], state.blockY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    switch (state.groupCode) {
      case 10: state.blockX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20:
        state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY);
        TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
        if (walk.bulge == 0.0)
          DrawSegment(run.canvas, run.view, walk, ModelToSheet(state.blockX[0], state.blockY[0]), style,
                      state.blockColor);
        else
          DrawArcToVertex(run.canvas, run.view, blockArcs, walk, style);
        break;
      case 42: StartArc(walk, GroupNumber(), state.blockX[0], state.blockY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.blockColor);
  } else {
    state.blockX[0] = walk.firstX;
    state.blockY[0] = walk.firstY;
    DrawArcToVertex(run.canvas, run.view, blockArcs, walk, style);
  }
  return more;
}

int32_t DrawDimInsertLwPolyline(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  int32_t flags = 0;
  state.dimColor = 0;
  int32_t more = ReadGroup(run.stream);
  // In this scope the first vertex's Y ends the header.
  for (; more && state.groupCode != 0 && state.groupCode != 20; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveDimInsertLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.dimColor, run.insertColor, inherit)) return more;
        break;
      case 10: state.dimX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
      case 70: flags = Atoi(value); break;
    }
  }
  if (more && state.groupCode == 20) {
    state.dimY[0] = BlockY(GroupNumber(), run.blockOriginY);
    more = ReadGroup(run.stream);
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.dimColor);
  style = WithoutWidth(style);

  // The insert's angle isn't used in this scope.
  LwPolylineWalk walk;
  StartWalk(run.canvas, walk, state.dimX[0], state.dimY[0]);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    switch (state.groupCode) {
      case 10: state.dimX[0] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20:
        state.dimY[0] = BlockY(GroupNumber(), run.blockOriginY);
        if (walk.bulge == 0.0)
          DrawDimInsertSegment(run.canvas, run.view, walk, ModelToSheet(state.dimX[0], state.dimY[0]), style,
                               state.dimColor);
        else
          DrawArcToVertex(run.canvas, run.view, dimArcs, walk, style);
        break;
      case 42: StartArc(walk, GroupNumber(), state.dimX[0], state.dimY[0]); break;
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.bulge == 0.0) {
    DrawDimInsertSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style,
                         state.dimColor);
  } else {
    state.dimX[0] = walk.firstX;
    state.dimY[0] = walk.firstY;
    DrawArcToVertex(run.canvas, run.view, dimArcs, walk, style);
  }
  return more;
}

}  // namespace hexlume
