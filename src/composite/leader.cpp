// LEADER: a line through its vertices with one pen, whose style is the dash family, so that GDI makes the
// dashes. Vertices are drawn when they are read; one outside the view ends the line. The arrowhead is drawn
// last, at the first vertex.
#include "composite/leader.h"

#include <cmath>
#include <cstring>

#include "canvas/primitive_steps.h"
#include "composite/block_dispatch.h"
#include "composite/bookmark.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// The groups read so far. Lengths are in model units times 100.
struct Leader {
  char arrowBlockName[textSize] = "";
  char arrowHandle[textSize] = "";  // used if there is no name
  int32_t leaderStyle = 0;          // dash family, also used as the pen's style
  int32_t leaderWidth = 0;
  int32_t leaderColor = 0;
  double hookLength = 0.0;
  int32_t vertexCount = 0;  // 0, 1, or 2 for more than one
  double firstX = 0.0, firstY = 0.0;
  double secondX = 0.0, secondY = 0.0;
  double previousX = 0.0;   // X of the vertex read last
  double lastDeltaX = 0.0;  // difference to the X of the vertex before it
};

// Group 3. An unknown style keeps the arrow, and the scales that the INSERT or LEADER before has set.
void TakeArrowStyle(const char* name, Leader& leader) {
  const DimStyleEntry* const style = state.dimStyles.FindFirst(name);
  if (!style) return;
  BoundedCopy(leader.arrowBlockName, style->arrowBlock);
  if (style->arrowBlock[0] == '\0') BoundedCopy(leader.arrowHandle, style->arrowHandle);
  state.insertScaleX = state.insertScaleY = style->arrowSize * style->dimScale / state.scaleDenominator;
}

// Group 8. Returns false if the user has excluded the layer.
bool TakeLayer(const char* name, Leader& leader) {
  if (IsLayerExcluded(name)) return false;
  if (const LayerEntry* layer = FindLayer(name)) {
    leader.leaderColor = layer->color;
    leader.leaderStyle = layer->family;
    leader.leaderWidth = layer->width;
  }
  BoundedCopy(state.insertLayer, name);
  return true;
}

// Group 1000. If the style gives no arrow, the first string other than "DSTYLE" is the arrow's name.
void TakeArrowName(const char* text, Leader& leader) {
  if (leader.arrowBlockName[0] != '\0' || leader.arrowHandle[0] != '\0') return;
  if (std::strcmp(text, "DSTYLE") != 0) BoundedCopy(leader.arrowBlockName, text);
}

// Group 10 of each vertex after the first.
void TakeX(Leader& leader) {
  state.entX[1] = Hundredths(state.groupValue);
  leader.lastDeltaX = state.entX[1] - leader.previousX;
  leader.previousX = state.entX[1];
}

// Reads up to the first vertex and counts it. vertexCount is still 0 if the layer is excluded, or if the
// entity or the file ends first.
int32_t ReadToFirstVertex(TextStream& stream, Leader& leader) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 3: TakeArrowStyle(value, leader); break;
      case 8:
        if (!TakeLayer(value, leader)) return more;
        break;
      case 10: state.entX[0] = leader.firstX = leader.previousX = Hundredths(value); break;
      case 20:
        state.entY[0] = leader.firstY = Hundredths(value);
        leader.vertexCount = 1;
        // If the leader ends here, its caller takes the number just read for the name of an entity.
        state.groupCode = 0;
        return more;
      case 41: leader.hookLength = Hundredths(value); break;
      case 62:
      case 77: leader.leaderColor = ResolveColor(Atoi(value)); break;
    }
  }
  return more;
}

int32_t ReadToSecondVertex(TextStream& stream, Leader& leader) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 10:
        TakeX(leader);
        leader.secondX = state.entX[1];
        break;
      case 20:
        state.entY[1] = leader.secondY = Hundredths(state.groupValue);
        leader.vertexCount = 2;
        state.groupCode = 0;  // as after the first
        return more;
    }
  }
  return more;
}

// The end of the leg from the first vertex, which is in the view, to the second. If nothing is left of a leg,
// it ends at (-1, -1), the record of a rejected segment.
POINT EndOfFirstLeg(const ViewRect& view, const POINT& first) {
  POINT second = ModelToSheet(state.entX[1], state.entY[1]);
  if (second.x == first.x) {  // a vertical leg has no slope
    ClampToView(view, second);
    return second;
  }
  // Compares a place on the sheet with one in the model. If that puts the right end first, ClipSegment tests
  // each end against the wrong edges and the leg may extend beyond the view. It must stay so.
  if (second.x < state.entX[1]) {
    const ClippedSegment cut =
        ClipSegment(view.left, view.top, view.right, view.bottom, second.x, first.x, second.y, first.y);
    return {cut.startX, cut.startY};
  }
  const ClippedSegment cut =
      ClipSegment(view.left, view.top, view.right, view.bottom, first.x, second.x, first.y, second.y);
  return {cut.endX, cut.endY};
}

bool LiesWithinX(const ViewRect& view, const POINT& point) {
  return view.left < point.x && point.x < view.right;
}

bool LiesWithinY(const ViewRect& view, const POINT& point) {
  return view.top < WrapNegate(point.y) && WrapNegate(point.y) < view.bottom;
}

void MovePenTo(Canvas canvas, const POINT& point) {
  const POINT place = PlacePoint(point.x, point.y, state.centreX, state.centreY, state.rotated);
  MoveToEx(canvas, place.x, place.y, nullptr);
}

void DrawTo(Canvas canvas, const POINT& point) {
  const POINT place = PlacePoint(point.x, point.y, state.centreX, state.centreY, state.rotated);
  LineTo(canvas, place.x, place.y);
}

// Draws a line to each further vertex as it is read, up to the first one outside the view. The arrow's name
// is taken from the groups read.
int32_t DrawFurtherLegs(TextStream& stream, Canvas canvas, const ViewRect& view, Leader& leader) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 10: TakeX(leader); break;
      case 20: {
        state.entY[1] = Hundredths(state.groupValue);
        POINT end = ModelToSheet(state.entX[1], state.entY[1]);
        const bool last = !LiesInView(view, end);
        ClampToView(view, end);
        DrawTo(canvas, end);
        if (last) {
          state.groupCode = 0;  // as after the first vertex
          return more;
        }
        break;
      }
      case 1000: TakeArrowName(state.groupValue, leader); break;
    }
  }
  return more;
}

// The horizontal line after the last vertex, in the X direction of the last leg. After a vertical leg it goes
// to the left.
void DrawHook(Canvas canvas, const ViewRect& view, const Leader& leader) {
  const bool toRight = leader.lastDeltaX > 0.0;
  const double hookX = toRight ? state.entX[1] + leader.hookLength : state.entX[1] - leader.hookLength;
  POINT end = ModelToSheet(hookX, state.entY[1]);
  if (!LiesWithinY(view, end)) return;
  if (toRight && end.x > view.right) end.x = view.right;
  if (!toRight && end.x < view.left) end.x = view.left;
  DrawTo(canvas, end);
}

// Reads the vertices after the first and draws the line. If the first leg ends on or beyond an edge of the
// view, the remaining groups are left to the caller and the arrow's name among them isn't read.
int32_t DrawLegs(TextStream& stream, Canvas canvas, const ViewRect& view, const POINT& first,
                 Leader& leader) {
  const SelectedPen pen =
      SelectNewPen(canvas, leader.leaderStyle, leader.leaderWidth, ColorAt(leader.leaderColor));
  MovePenTo(canvas, first);
  int32_t more = ReadToSecondVertex(stream, leader);
  if (leader.vertexCount > 1) {
    const POINT end = EndOfFirstLeg(view, first);
    DrawTo(canvas, end);
    if (LiesWithinX(view, end) && LiesWithinY(view, end)) {
      more = DrawFurtherLegs(stream, canvas, view, leader);
      DrawHook(canvas, view, leader);
    }
  }
  RestorePen(canvas, pen);
  return more;
}

// The direction from the second vertex to the first, in radians. If there is one vertex, (0, 0) of the model
// is the second.
double ArrowAngle(const Leader& leader) {
  const double dx = leader.secondX - leader.firstX;
  const double dy = leader.secondY - leader.firstY;
  if (dx < 0.0) return std::atan(dy / dx);
  if (dx == 0.0) return (dy > 0.0 ? halfPi : -halfPi) + pi;
  return std::atan(dy / dx) + pi;
}

// Returns null if there is no arrow. The handle is compared with that of the block's owner.
const BlockEntry* FindArrow(const Leader& leader) {
  if (leader.arrowBlockName[0] != '\0') return state.blocks.FindFirst(leader.arrowBlockName);
  return state.blocks.FindOwned(leader.arrowHandle);
}

}  // namespace

int32_t DrawLeader(const EntityRun& run) {
  Leader leader;
  int32_t more = ReadToFirstVertex(run.stream, leader);
  // Without a vertex neither line nor arrow has a place, and the groups of the next entity must not be read
  // as the leader's. The scales of its style and its layer are set all the same.
  if (leader.vertexCount == 0) return more;
  const POINT first = ModelToSheet(state.entX[0], state.entY[0]);
  if (!LiesInView(run.view, first)) return more;
  if (LinetypeFilter(leader.leaderStyle)) return more;
  MonochromeRule(leader.leaderColor);
  more = DrawLegs(run.stream, run.canvas, run.view, first, leader);

  // Scales and angle aren't restored.
  state.insertAngle = ArrowAngle(leader);
  if (const BlockEntry* arrow = FindArrow(leader)) {
    Bookmark next;
    SetBookmark(next, run.stream);
    DrawBlockEntities({run, leader.firstX, leader.firstY, leader.leaderColor}, arrow->bodyOffset);
    ReturnTo(next, run.stream);
  }
  return more;
}

}  // namespace hexlume
