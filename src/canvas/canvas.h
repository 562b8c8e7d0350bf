// The drawing operations: each makes its pen, draws, puts the old pen back and deletes its own, so that every
// stroke of the metafile stands for itself. Coordinates are sheet hundredths with Y negative on the sheet.
// Where mirror isn't 0, an operation turns its own input by 180 degrees about the sheet's centre; callers
// never turn anything.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "platform/gdi.h"

namespace hexlume {

// The metafile's device context.
using Canvas = HDC;

// Ten decimals and no more: with the full precision of a double some points would fall on the next unit.
constexpr double pi = 3.1415926535;
constexpr double halfPi = 1.57079632675;
constexpr double threeHalvesPi = 4.71238898025;
constexpr double twoPi = 6.283185307;

// Solid strokes and fills (solid_primitives.cpp).
void PenLine(Canvas canvas, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
             int32_t penWidth, COLORREF color, int32_t mirror);
void PenPixel(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t mirror);
void MarkPlus(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, double size, int32_t mirror);
void MarkCross(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
               int32_t penStyle, double size, int32_t mirror);
void MarkTick(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, double size, int32_t mirror);
void MarkCircle(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
                int32_t penStyle, double size, int32_t arcClockwise, int32_t mirror);
void MarkSquare(Canvas canvas, int32_t x, int32_t y, int32_t centreX, int32_t centreY, COLORREF color,
                int32_t penStyle, double size, int32_t mirror);
// startAngle and sweep in degrees, in AngleArc's sense: negated angles of the drawing.
void PenArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, float startAngle, float sweep,
            int32_t centreX, int32_t centreY, COLORREF color, int32_t penStyle, int32_t mirror);
void PenEllipse(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t centreX,
                int32_t centreY, COLORREF color, int32_t mirror);
void PenEllipseArc(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t xStart,
                   int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t centreX, int32_t centreY,
                   COLORREF color, int32_t mirror);
// Both turn the caller's own points where mirror is set.
void PenBezier(Canvas canvas, POINT* points, int32_t pointCount, int32_t centreX, int32_t centreY,
               int32_t penWidth, COLORREF color, int32_t penStyle, int32_t mirror);
void FillQuad(Canvas canvas, POINT* points, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, int32_t mirror);

// Dashed strokes, walked dash by dash (dash_line.cpp, dash_arc.cpp, dash_ellipse.cpp). count elements of
// pattern: positive a dash, negative a gap, in sheet hundredths.
void DashLine(Canvas canvas, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
              int32_t penWidth, COLORREF color, const double* pattern, int32_t count, int32_t mirror);
// startAngle and sweep in degrees, negated like PenArc's.
void DashArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, double startAngle, double sweep,
             int32_t centreX, int32_t centreY, COLORREF color, const double* pattern, int32_t count,
             int32_t mirror);
// (x, y) is the ellipse's centre, rx and ry are its semi-axes, signed. Both points 0, 0: the whole ellipse.
void DashEllipse(Canvas canvas, int32_t x, int32_t y, int32_t left, int32_t top, int32_t right,
                 int32_t bottom, int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t rx,
                 int32_t ry, int32_t centreX, int32_t centreY, COLORREF color, const double* pattern,
                 int32_t count, int32_t mirror);

// Clipping (clip_segment.cpp). What is left of a segment; all four fields -1 where nothing is.
struct ClippedSegment {
  int32_t startX, startY, endX, endY;
};

// Cuts a slanted segment with x1 < x2 to a view whose Y counts downward. Mind the order: both X, then both Y.
ClippedSegment ClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1, int32_t x2,
                           int32_t y1, int32_t y2);
// The same for a dimension's inserted blocks, where all four fields are 0 if nothing is left.
ClippedSegment DimClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1,
                              int32_t x2, int32_t y1, int32_t y2);

// Bulge arcs (bulge_arc.cpp): from a scope's first vertex to (x, y), model units times 100. Radius and centre
// go to the scope's fields of the record; startAngle (that of (x, y), negated as AngleArc needs it) and sweep
// (always positive) are degrees. bulge isn't 0.
void BulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);
void BlockBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);
void DimBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);

}  // namespace hexlume
