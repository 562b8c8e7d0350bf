#include "entities/arc_rules.h"

#include <cmath>

#include "driver/numbers.h"
#include "entities/block_rules.h"

namespace hexlume {

void ResolveWholeLinetype(const char* value, LineStyle& style) {
  // Any other name keeps the layer's family. The misspelt name is accepted as well.
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

// Half the angle, in degrees, of the cap that an edge cuts off. depth is in sheet units and radius in model
// units, so the angle is right at a scale of 1 only. At other scales it can be NaN.
double HalfAngle(int32_t depth, double radius) {
  return std::acos((radius - depth) / radius) * 180.0 / pi;
}

// direction is the angle from the circle's centre to the middle of the cap, in degrees.
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

  // If several edges cut the circle, the last of them alone counts.
  AngleRange rest = uncut;
  if (x < view.right && view.right < right) rest = AllButCap(0.0, WrapSub(right, view.right), radius);
  if (x < view.left) rest = CapAlone(360.0, WrapSub(right, view.left), radius);
  if (left < view.left && view.left < x) rest = AllButCap(180.0, WrapSub(view.left, left), radius);
  if (x > view.right) rest = CapAlone(180.0, WrapSub(view.right, left), radius);
  if (y > view.top && view.top > top) rest = AllButCap(90.0, WrapSub(view.top, top), radius);
  if (y > view.bottom) {
    rest = CapAlone(90.0, WrapSub(view.bottom, top), radius);
    rest.sweep = -rest.sweep;  // so a circle is drawn outside the view
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
  // Deleting a stock object has no effect. The call is part of the fixed sequence.
  DeleteObject(selected.brush);
  RestorePen(canvas, selected.pen);
}

}  // namespace hexlume
