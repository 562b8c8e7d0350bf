// POLYLINE: drawn segment by segment in the order of the file. Only the vertex before the current one is
// kept. A segment's bulge belongs to the vertex where it starts, so an arc is drawn when its end is read.
#include "entities/polyline.h"

#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"
#include "entities/polyline_segments.h"
#include "entities/styled_strokes.h"

namespace hexlume {

namespace {

constexpr int32_t closedFlag = 1;

// The state of the loop over the vertices.
struct PolylineWalk {
  double bulge = 0.0;      // bulge of the vertex just read, until it is used
  int32_t pendingArc = 0;  // 1 if the segment to the next vertex is an arc
  double prevBulge = 0.0;  // bulge of that arc
  double prevX = 0.0;      // vertex where that arc starts
  double prevY = 0.0;
  double firstX = 0.0;
  double firstY = 0.0;
  POINT lastSheet = {};  // start of the next line
};

// Makes the current vertex the start of the next segment.
void MoveOn(PolylineWalk& walk, double x, double y) {
  walk.lastSheet = ModelToSheet(x, y);
  if (walk.bulge != 0.0) {
    walk.pendingArc = 1;
    walk.prevBulge = walk.bulge;
    walk.prevX = x;
    walk.prevY = y;
  }
  walk.bulge = 0.0;
}

void MoveOnFromArc(PolylineWalk& walk, double x, double y) {
  if (walk.bulge == 0.0) {
    walk.prevBulge = 0.0;
    walk.pendingArc = 0;
  }
  MoveOn(walk, x, y);
}

// Draws the line from the last point to next. Returns false if the view rejects it: the next line then starts
// at the same point, and a bulge read for the rejected vertex is used for the vertex after it.
bool DrawSegment(Canvas canvas, const ViewRect& view, const PolylineWalk& walk, POINT next,
                 const LineStyle& style, int32_t color) {
  POINT last = walk.lastSheet;
  if (BeyondOneEdge(view, last, next)) return false;
  if (ClampSegment(view, last, next)) {
    DrawStyledLine(canvas, last, next, style, color);
    return true;
  }
  // A single coordinate of -1 drops the line, although -1 can be a valid coordinate.
  const ClippedSegment cut = CutSegment(view, last, next);
  if (cut.startX != -1 && cut.startY != -1 && cut.endX != -1 && cut.endY != -1)
    DrawStyledLine(canvas, {cut.startX, cut.startY}, {cut.endX, cut.endY}, style, color);
  return true;
}

ArcSegment PendingArc(const PolylineWalk& walk) {
  return {walk.prevBulge, walk.prevX, walk.prevY};
}

// A VERTEX has no line type or layer of its own. One without a bulge leaves bulge unchanged.
int32_t ReadVertex(TextStream& stream, double& bulge) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 10: state.entX[0] = GroupHundredths(); break;
      case 20: state.entY[0] = GroupHundredths(); break;
      case 42: bulge = GroupNumber(); break;
    }
  }
  return more;
}

int32_t ReadBlockVertex(TextStream& stream, double& bulge, double blockOriginX, double blockOriginY) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 10: state.blockX[0] = BlockX(GroupNumber(), blockOriginX); break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), blockOriginY); break;
      case 42: bulge = GroupNumber(); break;
    }
  }
  TurnAboutOrigin(state.blockX[0], state.blockY[0], blockOriginX, blockOriginY);
  return more;
}

}  // namespace

int32_t DrawPolyline(const EntityRun& run) {
  LineStyle style;
  int32_t flags = 0;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
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
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);
  style = WithoutWidth(style);
  if (!more || !AtGroup(0, "VERTEX")) return more;

  PolylineWalk walk;
  more = ReadVertex(run.stream, walk.bulge);
  walk.firstX = state.entX[0];
  walk.firstY = state.entY[0];
  MoveOn(walk, walk.firstX, walk.firstY);
  // Not turned with the sheet: each segment sets its own position.
  MoveToEx(run.canvas, walk.lastSheet.x, walk.lastSheet.y, nullptr);
  while (more && AtGroup(0, "VERTEX")) {
    more = ReadVertex(run.stream, walk.bulge);
    const double x = state.entX[0];
    const double y = state.entY[0];
    if (walk.pendingArc == 1) {
      DrawArcSegment(run.canvas, run.view, entArcs, PendingArc(walk), style);
      MoveOnFromArc(walk, x, y);
    } else if (DrawSegment(run.canvas, run.view, walk, ModelToSheet(x, y), style, state.entColor)) {
      MoveOn(walk, x, y);
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.prevBulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.entColor);
  } else {
    state.entX[0] = walk.firstX;
    state.entY[0] = walk.firstY;
    DrawArcSegment(run.canvas, run.view, entArcs, PendingArc(walk), style);
  }
  return more;
}

int32_t DrawBlockPolyline(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  int32_t flags = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
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
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);
  style = WithoutWidth(style);
  if (!more || !AtGroup(0, "VERTEX")) return more;

  PolylineWalk walk;
  more = ReadBlockVertex(run.stream, walk.bulge, run.blockOriginX, run.blockOriginY);
  walk.firstX = state.blockX[0];
  walk.firstY = state.blockY[0];
  MoveOn(walk, walk.firstX, walk.firstY);
  MoveToEx(run.canvas, walk.lastSheet.x, walk.lastSheet.y, nullptr);
  while (more && AtGroup(0, "VERTEX")) {
    more = ReadBlockVertex(run.stream, walk.bulge, run.blockOriginX, run.blockOriginY);
    const double x = state.blockX[0];
    const double y = state.blockY[0];
    if (walk.pendingArc == 1) {
      DrawArcSegment(run.canvas, run.view, blockArcs, PendingArc(walk), style);
      MoveOnFromArc(walk, x, y);
    } else if (DrawSegment(run.canvas, run.view, walk, ModelToSheet(x, y), style, state.blockColor)) {
      MoveOn(walk, x, y);
    }
  }
  if ((flags & closedFlag) == 0) return more;

  if (walk.prevBulge == 0.0) {
    DrawSegment(run.canvas, run.view, walk, ModelToSheet(walk.firstX, walk.firstY), style, state.blockColor);
  } else {
    state.blockX[0] = walk.firstX;
    state.blockY[0] = walk.firstY;
    DrawArcSegment(run.canvas, run.view, blockArcs, PendingArc(walk), style);
  }
  return more;
}

}  // namespace hexlume
