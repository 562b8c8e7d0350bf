// Solid strokes, point marks, curves and the filled quadrilateral.

#include <cmath>

#include "canvas/canvas.h"
#include "canvas/primitive_steps.h"
#include "driver/numbers.h"
#include "platform/pen_stroke.h"

namespace hexlume {

void PenLine(Canvas canvas, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
             int32_t penWidth, COLORREF color, int32_t mirror) {
  const LineEnds line = PlaceLine(x1, y1, x2, y2, centreX, centreY, mirror);
  CountPen();
  StrokeLine(canvas, penWidth, color, line.start, line.end);
}

void PenPixel(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, color);
  const HGDIOBJ brush = GetStockObject(NULL_BRUSH);
  const HGDIOBJ previousBrush = SelectObject(canvas, brush);
  SetPixel(canvas, point.x, point.y, color);
  RestorePen(canvas, pen);
  SelectObject(canvas, previousBrush);
  // Deleting a stock object has no effect. The call is part of the fixed sequence.
  DeleteObject(brush);
}

void MarkPlus(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, double size, int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  MoveToEx(canvas, Trunc(point.x - size), point.y, nullptr);
  LineTo(canvas, Trunc(point.x + size), point.y);
  MoveToEx(canvas, point.x, Trunc(point.y - size), nullptr);
  LineTo(canvas, point.x, Trunc(point.y + size));
  RestorePen(canvas, pen);
}

void MarkCross(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
               int32_t penStyle, double size, int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  // Unlike the size of the other marks, the half diagonal is truncated before it is added.
  const int32_t halfDiagonal = Trunc((1.0 / std::sqrt(2.0)) * size);
  const int32_t left = WrapSub(point.x, halfDiagonal);
  const int32_t right = WrapAdd(point.x, halfDiagonal);
  const int32_t low = WrapSub(point.y, halfDiagonal);
  const int32_t high = WrapAdd(point.y, halfDiagonal);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  MoveToEx(canvas, left, low, nullptr);
  LineTo(canvas, right, high);
  MoveToEx(canvas, right, low, nullptr);
  LineTo(canvas, left, high);
  RestorePen(canvas, pen);
}

void MarkTick(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, double size, int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  // Only the point is turned: the tick points up on a turned sheet too.
  MoveToEx(canvas, point.x, point.y, nullptr);
  LineTo(canvas, point.x, Trunc(point.y + size));
  RestorePen(canvas, pen);
}

void MarkCircle(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
                int32_t penStyle, double size, int32_t arcClockwise, int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  const int32_t right = Trunc(point.x + size);
  if (arcClockwise == 1) {
    // An arc whose end is its start is the whole circle.
    Arc(canvas, Trunc(point.x - size), Trunc(point.y - size), right, Trunc(point.y + size), right, point.y,
        right, point.y);
  } else {
    MoveToEx(canvas, right, point.y, nullptr);
    AngleArc(canvas, point.x, point.y, static_cast<DWORD>(Trunc(size)), 0.0f, 360.0f);
  }
  RestorePen(canvas, pen);
}

void MarkSquare(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
                int32_t penStyle, double size, int32_t mirror) {
  const POINT point = PlacePoint(x, y, centreX, centreY, mirror);
  const int32_t left = Trunc(point.x - size);
  const int32_t right = Trunc(point.x + size);
  const int32_t low = Trunc(point.y - size);
  const int32_t high = Trunc(point.y + size);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  MoveToEx(canvas, left, low, nullptr);
  LineTo(canvas, left, high);
  LineTo(canvas, right, high);
  LineTo(canvas, right, low);
  LineTo(canvas, left, low);
  RestorePen(canvas, pen);
}

void PenArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, float startAngle, float sweep,
            int32_t centreX, int32_t centreY, COLORREF color, int32_t penStyle, int32_t mirror) {
  const POINT centre = PlacePoint(x, y, centreX, centreY, mirror);
  if (mirror) startAngle = static_cast<float>(startAngle + 180.0);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  // AngleArc draws a line from the current position to its start, which it counts clockwise on this canvas.
  // Moving there first keeps that line within a unit.
  const double angle = -startAngle * pi / 180.0;
  MoveToEx(canvas, WrapAdd(centre.x, Trunc(std::cos(angle) * radius)),
           WrapAdd(centre.y, Trunc(std::sin(angle) * radius)), nullptr);
  AngleArc(canvas, centre.x, centre.y, static_cast<DWORD>(radius), startAngle, sweep);
  RestorePen(canvas, pen);
}

void PenEllipse(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t centreX,
                int32_t centreY, COLORREF color, int32_t mirror) {
  // The corners are turned but not sorted: GDI accepts them in either order.
  const POINT leftTop = PlacePoint(left, top, centreX, centreY, mirror);
  const POINT rightBottom = PlacePoint(right, bottom, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, color);
  const HGDIOBJ brush = GetStockObject(NULL_BRUSH);
  const HGDIOBJ previousBrush = SelectObject(canvas, brush);
  Ellipse(canvas, leftTop.x, leftTop.y, rightBottom.x, rightBottom.y);
  RestorePen(canvas, pen);
  SelectObject(canvas, previousBrush);
  // Deleting a stock object has no effect. The call is part of the fixed sequence.
  DeleteObject(brush);
}

void PenEllipseArc(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t xStart,
                   int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t centreX, int32_t centreY,
                   COLORREF color, int32_t mirror) {
  const POINT leftTop = PlacePoint(left, top, centreX, centreY, mirror);
  const POINT rightBottom = PlacePoint(right, bottom, centreX, centreY, mirror);
  const POINT start = PlacePoint(xStart, yStart, centreX, centreY, mirror);
  const POINT end = PlacePoint(xEnd, yEnd, centreX, centreY, mirror);
  const SelectedPen pen = SelectNewPen(canvas, PS_SOLID, 0, color);
  Arc(canvas, leftTop.x, leftTop.y, rightBottom.x, rightBottom.y, start.x, start.y, end.x, end.y);
  RestorePen(canvas, pen);
}

static void TurnPoints(POINT* points, int32_t pointCount, int32_t centreX, int32_t centreY) {
  for (int32_t i = 0; i < pointCount; ++i) {
    points[i] = TurnPoint(points[i].x, points[i].y, centreX, centreY);
  }
}

void PenBezier(Canvas canvas, POINT* points, int32_t pointCount, int32_t centreX, int32_t centreY,
               int32_t penWidth, COLORREF color, int32_t penStyle, int32_t mirror) {
  if (mirror) TurnPoints(points, pointCount, centreX, centreY);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, penWidth, color);
  PolyBezier(canvas, points, static_cast<DWORD>(pointCount));
  RestorePen(canvas, pen);
}

void FillQuad(Canvas canvas, POINT* points, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, int32_t mirror) {
  if (mirror) TurnPoints(points, 4, centreX, centreY);
  const SelectedPen pen = SelectNewPen(canvas, penStyle, 0, color);
  const HBRUSH brush = CreateSolidBrush(color);
  const HGDIOBJ previousBrush = SelectObject(canvas, brush);
  // The fill mode isn't restored.
  SetPolyFillMode(canvas, ALTERNATE);
  Polygon(canvas, points, 4);
  SelectObject(canvas, previousBrush);
  DeleteObject(brush);
  RestorePen(canvas, pen);
}

}  // namespace hexlume
