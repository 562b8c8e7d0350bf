// LEADER: a line over its vertices in one pen, whose style is the dash family as it stands, so that GDI
// dashes it. The groups are drawn while they are read; a vertex outside the view ends the line. The arrowhead
// is played back last, at the first vertex.
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

// What the groups have told so far. Lengths are model units times 100.
struct Leader {
  char arrowBlockName[textSize] = "";
  char arrowHandle[textSize] = "";  // counts where there is no name
  int32_t leaderStyle = 0;          // dash family, and pen style
  int32_t leaderWidth = 0;
  int32_t leaderColor = 0;
  double hookLength = 0.0;
  int32_t vertexCount = 0;  // none, one, or more than one
  double firstX = 0.0, firstY = 0.0;
  double secondX = 0.0, secondY = 0.0;
  double previousX = 0.0;   // of the vertex read last
  double lastDeltaX = 0.0;  // from the vertex before to that one
};

// Group 3. A style that the table doesn't have leaves arrow and scales as they were, the scales with what the
// INSERT or LEADER before has set.
void TakeDimStyle(const char* name, Leader& leader) {
  for (const DimStyleEntry& style : state.dimStyles) {
    if (std::strcmp(style.name, name) != 0) continue;
    BoundedCopy(leader.arrowBlockName, style.arrowBlock);
    if (style.arrowBlock[0] == '\0') BoundedCopy(leader.arrowHandle, style.arrowHandle);
    state.insertScaleX = state.insertScaleY = style.arrowSize * style.dimScale / state.scaleDenominator;
    return;
  }
}

// Group 8. False if the user left the layer out.
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

// Group 1000. A leader without an arrow of its style is given it by the first string behind "DSTYLE".
void TakeArrowName(const char* text, Leader& leader) {
  if (leader.arrowBlockName[0] != '\0' || leader.arrowHandle[0] != '\0') return;
  if (std::strcmp(text, "DSTYLE") != 0) BoundedCopy(leader.arrowBlockName, text);
}

// Group 10 of each vertex behind the first.
void TakeX(Leader& leader) {
  state.entX[1] = Atof(state.groupValue) * 100.0;
  leader.lastDeltaX = state.entX[1] - leader.previousX;
  leader.previousX = state.entX[1];
}

// Reads up to the first vertex, which then counts. It doesn't if the user left the layer out, or if the
// entity or the file ends before.
int32_t ReadToFirstVertex(TextStream& stream, Leader& leader) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 3: TakeDimStyle(value, leader); break;
      case 8:
        if (!TakeLayer(value, leader)) return more;
        break;
      case 10: state.entX[0] = leader.firstX = leader.previousX = Atof(value) * 100.0; break;
      case 20:
        state.entY[0] = leader.firstY = Atof(value) * 100.0;
        leader.vertexCount = 1;
        // To the caller of a leader that ends here, the number just read is the name of an entity.
        state.groupCode = 0;
        return more;
      case 41: leader.hookLength = Atof(value) * 100.0; break;
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
        state.entY[1] = leader.secondY = Atof(state.groupValue) * 100.0;
        leader.vertexCount = 2;
        state.groupCode = 0;  // as behind the first
        return more;
    }
  }
  return more;
}

// Where the leg from the first vertex, which lies in the view, to the second ends. A leg of which nothing is
// left ends in the record that says so, at (-1, -1).
POINT EndOfFirstLeg(const ViewRect& view, const POINT& first) {
  POINT second = ModelToSheet(state.entX[1], state.entY[1]);
  if (second.x == first.x) {  // an upright leg has no slope to be cut by
    ClampToView(view, second);
    return second;
  }
  // A place on the sheet is compared with one in the model. Where that hands over the right end first, the
  // cut looks for each end at the wrong edges, and a leg may reach beyond the view. It must stay so.
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

// Draws to each further vertex as it is read, up to the first one outside the view. Of the rest of the groups
// the arrow's name is taken.
int32_t DrawFurtherLegs(TextStream& stream, Canvas canvas, const ViewRect& view, Leader& leader) {
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    switch (state.groupCode) {
      case 10: TakeX(leader); break;
      case 20: {
        state.entY[1] = Atof(state.groupValue) * 100.0;
        POINT end = ModelToSheet(state.entX[1], state.entY[1]);
        const bool last = !LiesInView(view, end);
        ClampToView(view, end);
        DrawTo(canvas, end);
        if (last) {
          state.groupCode = 0;  // as behind the first vertex
          return more;
        }
        break;
      }
      case 1000: TakeArrowName(state.groupValue, leader); break;
    }
  }
  return more;
}

// The level piece behind the last vertex, on the side that the last leg goes to. An upright one turns it to
// the left.
void DrawHook(Canvas canvas, const ViewRect& view, const Leader& leader) {
  const bool toRight = leader.lastDeltaX > 0.0;
  const double hookX = toRight ? state.entX[1] + leader.hookLength : state.entX[1] - leader.hookLength;
  POINT end = ModelToSheet(hookX, state.entY[1]);
  if (!LiesWithinY(view, end)) return;
  if (toRight && end.x > view.right) end.x = view.right;
  if (!toRight && end.x < view.left) end.x = view.left;
  DrawTo(canvas, end);
}

// Reads the vertices behind the first and draws the line. A second vertex at or beyond the view's edge leaves
// the groups behind it to the caller, the arrow's name among them.
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

// The direction from the second vertex to the first, in radians. A leader of one vertex has its second at the
// model's origin.
double ArrowAngle(const Leader& leader) {
  const double dx = leader.secondX - leader.firstX;
  const double dy = leader.secondY - leader.firstY;
  if (dx < 0.0) return std::atan(dy / dx);
  if (dx == 0.0) return (dy > 0.0 ? halfPi : -halfPi) + pi;
  return std::atan(dy / dx) + pi;
}

// Null where there is no arrow. The reference is compared with that of the block's owner.
const BlockEntry* FindArrow(const Leader& leader) {
  if (leader.arrowBlockName[0] != '\0') return state.blocks.FindFirst(leader.arrowBlockName);
  if (leader.arrowHandle[0] == '\0') return nullptr;  // a block may tell no reference either
  for (const BlockEntry& block : state.blocks)
    if (std::strcmp(block.ownerHandle, leader.arrowHandle) == 0) return &block;
  return nullptr;
}

}  // namespace

int32_t DrawLeader(const EntityRun& run) {
  Leader leader;
  int32_t more = ReadToFirstVertex(run.stream, leader);
  // Without a vertex neither line nor arrow has a place, and the entity behind must not be taken for the
  // leader's own groups. Its style's scales and its layer stand all the same.
  if (leader.vertexCount == 0) return more;
  const POINT first = ModelToSheet(state.entX[0], state.entY[0]);
  if (!LiesInView(run.view, first)) return more;
  if (LinetypeFilter(leader.leaderStyle)) return more;
  MonochromeRule(leader.leaderColor);
  more = DrawLegs(run.stream, run.canvas, run.view, first, leader);

  // Scales and angle stay for what is drawn next.
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
