#include "entities/arc_rules.h"

#include <cmath>

#include "driver/numbers.h"
#include "entities/block_rules.h"

namespace hexlume {

void ResolveWholeLinetype(const char* value, LineStyle& style) {
  // Any other name keeps the layer's family here. The misspelt name counts too.
  if (EqualsIgnoringCase(value, "CONTINUOUS") || EqualsIgnoringCase(value, "CONTINUOS")) style.family = 0;
  for (const KnownLtype& known : knownLtypes) {
    if (!EqualsIgnoringCase(value, known.keyword) || !IsLtypeDefined(known.pattern)) continue;
    style.family = known.family;
    style.pattern = known.pattern;
  }
}

void ResolveColorUnlessZero(const char* value, int32_t& color) {
  const int32_t number = Atoi(value);
  if (number != 0) color = ResolveColor(number);
}

SheetCircle PlaceCircle(double x, double y, double radius) {
  return {ModelToSheet(x, y), ModelToSheet(x - radius, y + radius), ModelToSheet(x + radius, y - radius),
          Trunc(radius / state.drawScale)};
}

namespace {

// Half the angle of the cap that an edge cuts off, in degrees. The depth of the cap is the sheet's and the
// radius the model's: only at a scale of 1 is the angle right, and elsewhere it may be no number at all.
double HalfAngle(int32_t depth, double radius) {
  return std::acos((radius - depth) / radius) * 180.0 / pi;
}

// The direction is that from the circle's centre to the middle of the cap.
AngleRange AllButCap(double direction, int32_t depth, double radius) {
  const double angle = HalfAngle(depth, radius);
  return {direction + angle, 360.0 - 2.0 * angle};
}
AngleRange CapAlone(double direction, int32_t depth, double radius) {
  const double angle = HalfAngle(depth, radius);
  return {direction - angle, 2.0 * angle};
}

}  // namespace

AngleRange CutCircleToView(const ViewRect& view, const SheetCircle& circle, double radius,
                           const AngleRange& uncut) {
  const int32_t left = circle.leftTop.x;
  const int32_t right = circle.rightBottom.x;
  const int32_t top = WrapNegate(circle.leftTop.y);
  const int32_t bottom = WrapNegate(circle.rightBottom.y);
  const int32_t x = circle.centre.x;
  const int32_t y = WrapNegate(circle.centre.y);

  // A circle that several edges cut is cut by the last of them alone.
  AngleRange rest = uncut;
  if (x < view.right && view.right < right) rest = AllButCap(0.0, WrapSub(right, view.right), radius);
  if (x < view.left) rest = CapAlone(360.0, WrapSub(right, view.left), radius);
  if (left < view.left && view.left < x) rest = AllButCap(180.0, WrapSub(view.left, left), radius);
  if (x > view.right) rest = CapAlone(180.0, WrapSub(view.right, left), radius);
  if (y > view.top && view.top > top) rest = AllButCap(90.0, WrapSub(view.top, top), radius);
  if (y > view.bottom) {
    rest = CapAlone(90.0, WrapSub(view.bottom, top), radius);
    rest.sweep = -rest.sweep;  // runs backwards here: of a circle it draws what lies outside the view
  }
  if (y < view.bottom && view.bottom < bottom) rest = AllButCap(270.0, WrapSub(bottom, view.bottom), radius);
  if (y < view.top) rest = CapAlone(270.0, WrapSub(bottom, view.top), radius);
  return std::isnan(rest.sweep) ? uncut : rest;
}

void DrawAngleRange(Canvas canvas, const SheetCircle& circle, const AngleRange& range, const LineStyle& style,
                    int32_t color) {
  const Dashes dashes = DashesOf(style);
  if (dashes.count == 0)
    PenArc(canvas, circle.centre.x, circle.centre.y, circle.radius, static_cast<float>(-range.start),
           static_cast<float>(-range.sweep), state.centreX, state.centreY, ColorAt(color), PS_SOLID,
           state.rotated);
  else
    DashArc(canvas, circle.centre.x, circle.centre.y, circle.radius, -range.start, -range.sweep,
            state.centreX, state.centreY, ColorAt(color), dashes.elements, dashes.count, state.rotated);
}

PenAndBrush SelectPenAndBrush(Canvas canvas, int32_t family, int32_t width, int32_t color) {
  const SelectedPen pen = SelectNewPen(canvas, family, width, ColorAt(color));
  const HGDIOBJ brush = GetStockObject(NULL_BRUSH);
  return {pen, brush, SelectObject(canvas, brush)};
}

void RestorePenAndBrush(Canvas canvas, const PenAndBrush& selected) {
  SelectObject(canvas, selected.previousBrush);
  // To delete a stock object does nothing; it's a fixed step of the sequence.
  DeleteObject(selected.brush);
  RestorePen(canvas, selected.pen);
}

}  // namespace hexlume
