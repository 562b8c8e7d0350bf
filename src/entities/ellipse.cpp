// ELLIPSE: whole or a part, always parallel to the axes: a slanted major axis is treated as parallel to X.
// Each edge of the view that the ellipse crosses gives a cut, and the last of them alone counts.
#include "entities/ellipse.h"

#include <cmath>
#include <vector>

#include "driver/group_reader.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// In model units times 100, in its place in the model. (axisX, axisY) is the end of the major axis relative
// to the centre.
struct ModelEllipse {
  double centreX, centreY;
  double axisX, axisY;
  double ratio;
  double startAngle, endAngle;  // radians, from the major axis
};

// The box isn't sorted: if the axis points to the right or up, left is the greater X and top the smaller Y.
// So the half sizes have signs.
struct SheetEllipse {
  int32_t left, top, right, bottom;
  POINT centre;
};

// Two points whose directions from the centre bound an arc, counter-clockwise from start to end. All
// 0: no bounds.
struct ArcEnds {
  POINT start, end;
};

bool LiesAlongX(const ModelEllipse& model) {
  return Trunc(model.axisX) != 0;
}

SheetEllipse PlaceOnSheet(const ModelEllipse& model) {
  const bool alongX = LiesAlongX(model);
  const double halfX = alongX ? model.axisX : model.ratio * model.axisY;
  const double halfY = alongX ? model.ratio * model.axisX : model.axisY;
  const POINT leftTop = ModelToSheet(model.centreX + halfX, model.centreY - halfY);
  const POINT rightBottom = ModelToSheet(model.centreX - halfX, model.centreY + halfY);
  return {leftTop.x, leftTop.y, rightBottom.x, rightBottom.y, ModelToSheet(model.centreX, model.centreY)};
}

bool ShowsACorner(const ViewRect& view, const SheetEllipse& ellipse) {
  return LiesInView(view, {ellipse.left, ellipse.top}) || LiesInView(view, {ellipse.right, ellipse.bottom});
}

bool IsWhole(const ModelEllipse& model) {
  return Trunc(model.startAngle * 180.0 / pi) == 0 && Trunc(model.endAngle * 180.0 / pi) == 360;
}

// Half the chord that a vertical edge cuts. depth is the distance of the edge from a side of the box.
int32_t HalfChordAtX(const SheetEllipse& ellipse, int32_t depth) {
  const double halfHeight = 0.5 * WrapSub(ellipse.top, ellipse.bottom);
  const double distance = 0.5 * WrapSub(ellipse.right, ellipse.left) - depth;
  const int32_t halfWidth = WrapSub(ellipse.right, ellipse.left) / 2;
  // The square wraps around for large ellipses and gives a wrong chord. It must stay so.
  const double squaredHalfWidth = WrapMul(halfWidth, halfWidth);
  return Trunc(std::sqrt(halfHeight * halfHeight -
                         distance * distance * (halfHeight * halfHeight) / squaredHalfWidth));
}

// The same for a horizontal edge. It uses the half height as well, which is right for circles only. It
// must stay so.
int32_t HalfChordAtY(const SheetEllipse& ellipse, int32_t depth) {
  const double halfHeight = WrapSub(ellipse.top, ellipse.bottom) / 2;
  const double distance = 0.5 * WrapSub(ellipse.top, ellipse.bottom) - depth;
  const double halfWidth = 0.5 * WrapSub(ellipse.right, ellipse.left);
  return Trunc(std::sqrt(halfHeight * halfHeight -
                         distance * distance * halfHeight * halfHeight / (halfWidth * halfWidth)));
}

// The arc to the left of a vertical edge, from its upper end to its lower one, and the arc to the right.
ArcEnds LeftOf(int32_t x, int32_t depth, const SheetEllipse& ellipse) {
  const int32_t h = HalfChordAtX(ellipse, depth);
  return {{x, WrapAdd(ellipse.centre.y, h)}, {x, WrapSub(ellipse.centre.y, h)}};
}
ArcEnds RightOf(int32_t x, int32_t depth, const SheetEllipse& ellipse) {
  const int32_t h = HalfChordAtX(ellipse, depth);
  return {{x, WrapSub(ellipse.centre.y, h)}, {x, WrapAdd(ellipse.centre.y, h)}};
}

// The arc below a horizontal edge, from its left end to its right one, and the arc above.
ArcEnds Below(int32_t yDown, int32_t depth, const SheetEllipse& ellipse) {
  const int32_t w = HalfChordAtY(ellipse, depth);
  const int32_t y = WrapNegate(yDown);
  return {{WrapSub(ellipse.centre.x, w), y}, {WrapAdd(ellipse.centre.x, w), y}};
}
ArcEnds Above(int32_t yDown, int32_t depth, const SheetEllipse& ellipse) {
  const int32_t w = HalfChordAtY(ellipse, depth);
  const int32_t y = WrapNegate(yDown);
  return {{WrapAdd(ellipse.centre.x, w), y}, {WrapSub(ellipse.centre.x, w), y}};
}

// The part of the whole ellipse that the view leaves; all 0 if it leaves all. If left is the greater X and
// top the lower side, an edge counts only if the centre is beyond it.
ArcEnds CutEllipseToView(const ViewRect& view, const SheetEllipse& e) {
  const int32_t centreDown = WrapNegate(e.centre.y);
  ArcEnds cut = {};
  if (e.centre.x < view.right && view.right < e.right)
    cut = LeftOf(view.right, WrapSub(e.right, view.right), e);
  if (e.centre.x < view.left) cut = RightOf(view.left, WrapSub(e.right, view.left), e);
  if (e.left < view.left && view.left < e.centre.x) cut = RightOf(view.left, WrapSub(view.left, e.left), e);
  if (view.right < e.centre.x) cut = LeftOf(view.right, WrapSub(view.right, e.left), e);
  if (centreDown > view.top && view.top > WrapNegate(e.top))
    cut = Below(view.top, WrapAdd(view.top, e.top), e);
  if (centreDown > view.bottom) cut = Above(view.bottom, WrapAdd(view.bottom, e.top), e);
  if (centreDown < view.bottom && view.bottom < WrapNegate(e.bottom))
    cut = Above(view.bottom, WrapNegate(WrapAdd(view.bottom, e.bottom)), e);
  if (centreDown < view.top) cut = Below(view.top, WrapNegate(WrapAdd(view.top, e.bottom)), e);
  return cut;
}

bool HasBounds(const ArcEnds& ends) {
  return ends.start.x != 0 || ends.start.y != 0 || ends.end.x != 0 || ends.end.y != 0;
}

// Two points in the directions of the part's start and end. The angles are counted from the left or from
// below, whatever the direction of the axis, and a negative length turns the part by 180 degrees. It
// must stay so.
ArcEnds RadialsOf(const ModelEllipse& model) {
  const bool alongX = LiesAlongX(model);
  const double base = alongX ? pi : halfPi;
  const double length = alongX ? model.axisX + model.centreX : model.axisY + model.centreY;
  const double start = model.startAngle - base;
  const double end = model.endAngle - base;
  return {ModelToSheet(std::cos(start) * length + model.centreX, std::sin(start) * length + model.centreY),
          ModelToSheet(std::cos(end) * length + model.centreX, std::sin(end) * length + model.centreY)};
}

// The angle between two points as seen from the centre, counter-clockwise, 0 <= angle < 2 pi.
double AngleBetween(const POINT& centre, const POINT& from, const POINT& to) {
  const auto directionOf = [&centre](const POINT& point) {
    return std::atan2(static_cast<double>(point.y) - centre.y, static_cast<double>(point.x) - centre.x);
  };
  const double angle = directionOf(to) - directionOf(from);
  return angle < 0.0 ? angle + twoPi : angle;
}

// The pieces of a part whose ends are both kept. A part that contains the whole arc that is cut off is drawn
// in two pieces, one on each side of it.
std::vector<ArcEnds> PiecesAroundCut(const POINT& centre, const ArcEnds& part, const ArcEnds& cut) {
  const double start = AngleBetween(centre, cut.start, part.start);
  const double end = AngleBetween(centre, cut.start, part.end);
  double cutEnd = AngleBetween(centre, cut.start, cut.end);
  if (cutEnd == 0.0) cutEnd = twoPi;
  const bool leadsThrough = start <= cutEnd && end <= start;
  if (!leadsThrough) return {part};

  // GDI draws an arc of length 0 as a whole ellipse.
  std::vector<ArcEnds> pieces;
  if (end > 0.0) pieces.push_back({cut.start, part.end});
  if (start < cutEnd) pieces.push_back({part.start, cut.end});
  return pieces;
}

// Whether a point is on the side of the edge that is cut off: on the left of the line from the cut's start
// to its end.
bool LiesBeyondCut(const ArcEnds& cut, const POINT& point) {
  const double cutX = static_cast<double>(cut.end.x) - cut.start.x;
  const double cutY = static_cast<double>(cut.end.y) - cut.start.y;
  const double x = static_cast<double>(point.x) - cut.start.x;
  const double y = static_cast<double>(point.y) - cut.start.y;
  return cutX * y - cutY * x > 0.0;
}

// The pieces to draw of a part whose ellipse is cut by an edge. An end is kept if its radial point is between
// the view's left and right and not beyond the cut; otherwise the end of the cut replaces it. As radial
// points can be far from the ellipse, more than the part may be drawn, and of a part beyond the cut all that
// the cut leaves. It must stay so.
std::vector<ArcEnds> PiecesInView(const ViewRect& view, const POINT& centre, const ArcEnds& part,
                                  const ArcEnds& cut) {
  if (!HasBounds(cut)) return {part};
  const auto stays = [&](const POINT& point) {
    return view.left <= point.x && point.x <= view.right && !LiesBeyondCut(cut, point);
  };
  const bool startStays = stays(part.start);
  const bool endStays = stays(part.end);
  if (startStays && endStays) return PiecesAroundCut(centre, part, cut);
  return {{startStays ? part.start : cut.start, endStays ? part.end : cut.end}};
}

// Without bounds the whole ellipse is dashed.
void DrawDashes(Canvas canvas, const SheetEllipse& e, const ArcEnds& ends, const Dashes& dashes,
                int32_t color) {
  DashEllipse(canvas, e.centre.x, e.centre.y, e.left, e.top, WrapAdd(e.right, 1), WrapSub(e.bottom, 1),
              ends.start.x, ends.start.y, ends.end.x, ends.end.y, WrapSub(e.right, e.left) / 2,
              WrapSub(e.bottom, e.top) / 2, state.centreX, state.centreY, ColorAt(color), dashes.elements,
              dashes.count, state.rotated);
}

void DrawPiece(Canvas canvas, const SheetEllipse& e, const ArcEnds& ends, const Dashes& dashes,
               int32_t color) {
  if (dashes.count == 0)
    PenEllipseArc(canvas, e.left, e.top, WrapAdd(e.right, 1), WrapSub(e.bottom, 1), ends.start.x,
                  ends.start.y, ends.end.x, ends.end.y, state.centreX, state.centreY, ColorAt(color),
                  state.rotated);
  else
    DrawDashes(canvas, e, ends, dashes, color);
}

void DrawWhole(Canvas canvas, const SheetEllipse& e, const ArcEnds& cut, const Dashes& dashes,
               int32_t color) {
  if (HasBounds(cut))
    DrawPiece(canvas, e, cut, dashes, color);
  else if (dashes.count == 0)
    PenEllipse(canvas, e.left, e.top, WrapAdd(e.right, 1), WrapSub(e.bottom, 1), state.centreX, state.centreY,
               ColorAt(color), state.rotated);
  else
    DrawDashes(canvas, e, {}, dashes, color);
}

}  // namespace

int32_t DrawEllipse(const EntityRun& run) {
  LineStyle style;
  double startAngle = 0.0;
  double endAngle = 0.0;
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
      case 40: state.entRadius = GroupNumber(); break;
      case 41: startAngle = GroupNumber(); break;
      case 42: endAngle = GroupNumber(); break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  const ModelEllipse model = {state.entX[0],   state.entY[0], state.entX[1], state.entY[1],
                              state.entRadius, startAngle,    endAngle};
  const SheetEllipse ellipse = PlaceOnSheet(model);
  if (!ShowsACorner(run.view, ellipse)) return more;
  const ArcEnds cut = CutEllipseToView(run.view, ellipse);
  const Dashes dashes = DashesOf(style);
  if (IsWhole(model)) {
    DrawWhole(run.canvas, ellipse, cut, dashes, state.entColor);
    return more;
  }
  for (const ArcEnds& piece : PiecesInView(run.view, ellipse.centre, RadialsOf(model), cut))
    DrawPiece(run.canvas, ellipse, piece, dashes, state.entColor);
  return more;
}

int32_t DrawBlockEllipse(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  double startAngle = 0.0;
  double endAngle = 0.0;
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
      case 11: state.blockX[1] = GroupHundredths() * state.insertScaleX; break;
      case 20: state.blockY[0] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 21: state.blockY[1] = GroupHundredths() * state.insertScaleY; break;
      case 40: state.blockRadius = GroupNumber(); break;
      case 41: startAngle = GroupNumber(); break;
      case 42: endAngle = GroupNumber(); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  // Axis and angles aren't turned, unlike the centre.
  TurnAboutOrigin(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY);
  const ModelEllipse model = {state.blockX[0],   state.blockY[0], state.blockX[1], state.blockY[1],
                              state.blockRadius, startAngle,      endAngle};
  const SheetEllipse ellipse = PlaceOnSheet(model);
  if (!ShowsACorner(run.view, ellipse)) return more;
  const ArcEnds cut = CutEllipseToView(run.view, ellipse);
  const Dashes dashes = DashesOf(style);
  if (IsWhole(model)) {
    DrawWhole(run.canvas, ellipse, cut, dashes, state.blockColor);
    return more;
  }
  for (const ArcEnds& piece : PiecesInView(run.view, ellipse.centre, RadialsOf(model), cut)) {
    // If the arc direction had to be set, a part of any line type is drawn with the canvas's current pen, and
    // isn't turned with the sheet.
    if (state.arcClockwise == 1)
      Arc(run.canvas, ellipse.left, ellipse.top, WrapAdd(ellipse.right, 1), WrapSub(ellipse.bottom, 1),
          piece.start.x, piece.start.y, piece.end.x, piece.end.y);
    else
      DrawPiece(run.canvas, ellipse, piece, dashes, state.blockColor);
  }
  return more;
}

}  // namespace hexlume
