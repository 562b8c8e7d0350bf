// The drawing operations. Each creates its pen, draws, restores the previous pen and deletes its own, so
// that no stroke of the metafile depends on another. Coordinates are sheet hundredths; Y is negative on the
// sheet. If mirror isn't 0, an operation turns its own input by 180 degrees about the sheet's centre.
// Callers never turn anything.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "platform/gdi.h"

namespace hexlume {

// The metafile's device context.
using Canvas = HDC;

// Ten decimals only: with the full precision of a double some points would move by a unit.
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
// startAngle and sweep are degrees as AngleArc counts them: the negated angles of the drawing.
void PenArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, float startAngle, float sweep,
            int32_t centreX, int32_t centreY, COLORREF color, int32_t penStyle, int32_t mirror);
void PenEllipse(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t centreX,
                int32_t centreY, COLORREF color, int32_t mirror);
void PenEllipseArc(Canvas canvas, int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t xStart,
                   int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t centreX, int32_t centreY,
                   COLORREF color, int32_t mirror);
// Both change the caller's points if mirror is set.
void PenBezier(Canvas canvas, POINT* points, int32_t pointCount, int32_t centreX, int32_t centreY,
               int32_t penWidth, COLORREF color, int32_t penStyle, int32_t mirror);
void FillQuad(Canvas canvas, POINT* points, int32_t centreX, int32_t centreY, COLORREF color,
              int32_t penStyle, int32_t mirror);

// Dashed strokes, drawn dash by dash (dash_line.cpp, dash_arc.cpp, dash_ellipse.cpp). pattern has count
// elements in sheet hundredths: positive for a dash, negative for a gap.
void DashLine(Canvas canvas, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t centreX, int32_t centreY,
              int32_t penWidth, COLORREF color, const double* pattern, int32_t count, int32_t mirror);
// startAngle and sweep are negated degrees, as for PenArc.
void DashArc(Canvas canvas, int32_t x, int32_t y, int32_t radius, double startAngle, double sweep,
             int32_t centreX, int32_t centreY, COLORREF color, const double* pattern, int32_t count,
             int32_t mirror);
// (x, y) is the ellipse's centre; rx and ry are its signed semi-axes. Start and end all 0: the whole ellipse.
void DashEllipse(Canvas canvas, int32_t x, int32_t y, int32_t left, int32_t top, int32_t right,
                 int32_t bottom, int32_t xStart, int32_t yStart, int32_t xEnd, int32_t yEnd, int32_t rx,
                 int32_t ry, int32_t centreX, int32_t centreY, COLORREF color, const double* pattern,
                 int32_t count, int32_t mirror);

// Clipping (clip_segment.cpp). The visible part of a segment; all four fields are -1 if nothing is left.
struct ClippedSegment {
  int32_t startX, startY, endX, endY;
};

// Cuts a slanted segment with x1 < x2 to a view whose Y counts downward. Note the order: both X, then both Y.
ClippedSegment ClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1, int32_t x2,
                           int32_t y1, int32_t y2);
// The same for a dimension's inserted blocks: all four fields are 0 if nothing is left.
ClippedSegment DimClipSegment(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t x1,
                              int32_t x2, int32_t y1, int32_t y2);

// Bulge arcs (bulge_arc.cpp), from a scope's first vertex to (x, y), in model units times 100. Radius and
// centre are stored in the scope's fields of the record. startAngle is that of (x, y), negated as AngleArc
// needs it, and sweep is positive; both are degrees. bulge must not be 0.
void BulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);
void BlockBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);
void DimBulgeArcCentre(double bulge, double x, double y, double* startAngle, double* sweep);

}  // namespace hexlume
