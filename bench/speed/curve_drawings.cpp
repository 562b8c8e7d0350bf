#include <cmath>

#include "bench/speed/drawings.h"
#include "bench/speed/sheet.h"

namespace hexlume::bench {

namespace {

// The i-th vertex. Neighbours have different heights, so that the strokes are slanted.
void Vertex(DrawingFile& file, int64_t i) {
  file.Point(0, 5 + ColumnOf(i), 5 + RowOf(i) + static_cast<double>(i % 2) * 1.25);
}

void LwPolyline(DrawingFile& file, int64_t vertices, int64_t place) {
  file.Entity("LWPOLYLINE");
  file.Text(100, "AcDbEntity");
  file.Text(100, "AcDbPolyline");
  file.Whole(90, vertices);
  file.Whole(70, 0);
  for (int64_t i = 0; i < vertices; ++i) Vertex(file, place + i);
}

// A cubic spline. Its inner knots are all different.
void Spline(DrawingFile& file, int64_t points, int64_t place) {
  file.Entity("SPLINE");
  file.Whole(70, 8);
  file.Whole(71, 3);
  file.Whole(73, points);
  for (int i = 0; i < 3; ++i) file.Whole(40, 0);
  for (int64_t i = 0; i <= points - 3; ++i) file.Whole(40, i);
  for (int i = 0; i < 3; ++i) file.Whole(40, points - 3);
  for (int64_t i = 0; i < points; ++i) Vertex(file, place + i);
}

// The line type DASHED with dashes and gaps of one unit of the sheet, 0.01 mm.
void DashedTable(DrawingFile& file) {
  file.BeginSection("TABLES");
  file.Text(0, "TABLE");
  file.Text(2, "LTYPE");
  file.Text(0, "LTYPE");
  file.Text(2, "DASHED");
  file.Whole(73, 2);
  file.Number(49, 0.01);
  file.Number(49, -0.01);
  file.Text(0, "ENDTAB");
  LayerTable(file);
  file.Text(0, "ENDTAB");
  file.EndSection();
}

}  // namespace

void DrawLwPolylines(DrawingFile& file, int64_t polylines) {
  constexpr int64_t verticesOfEach = 23;
  file.Header(sheetWidth, sheetHeight, "AC1015");
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < polylines; ++i) LwPolyline(file, verticesOfEach, i * verticesOfEach);
  file.EndSection();
}

void DrawPolylineVertices(DrawingFile& file, int64_t vertices) {
  BeginEntities(file);
  file.Entity("POLYLINE");
  file.Whole(66, 1);
  file.Whole(70, 0);
  for (int64_t i = 0; i < vertices; ++i) {
    file.Entity("VERTEX");
    Vertex(file, i);
  }
  file.Entity("SEQEND");
  file.EndSection();
}

void DrawLwPolylineVertices(DrawingFile& file, int64_t vertices) {
  BeginEntities(file);
  LwPolyline(file, vertices, 0);
  file.EndSection();
}

void DrawSplines(DrawingFile& file, int64_t splines) {
  constexpr int64_t pointsOfEach = 5;
  BeginEntities(file);
  for (int64_t i = 0; i < splines; ++i) Spline(file, pointsOfEach, i);
  file.EndSection();
}

void DrawSplinePoints(DrawingFile& file, int64_t points) {
  BeginEntities(file);
  Spline(file, points, 0);
  file.EndSection();
}

// Upward, as only a sheet's height can be large enough for so many dashes.
void DrawDashes(DrawingFile& file, int64_t dashes) {
  const double length = 0.02 * static_cast<double>(dashes);
  file.Header(sheetWidth, length + 100);
  DashedTable(file);
  file.BeginSection("ENTITIES");
  file.Line(400, 50, 400, 50 + length);
  file.Text(6, "DASHED");
  file.EndSection();
}

// Arcs with a radius of 100 mm and 25,000 dashes each, in a block within a block.
void DrawNestedDashes(DrawingFile& file, int64_t dashes) {
  constexpr int64_t dashesOfAnArc = 25000;
  const double degrees = dashesOfAnArc * 0.02 / 100 * 180 / std::acos(-1.0);
  file.Header(sheetWidth, sheetHeight);
  DashedTable(file);
  file.BeginSection("BLOCKS");
  file.BeginBlock("INNER");
  file.Entity("ARC");
  file.Text(6, "DASHED");
  file.Point(0, 0, 0);
  file.Number(40, 100);
  file.Number(50, 0);
  file.Number(51, degrees);
  file.EndBlock();
  file.BeginBlock("OUTER");
  file.Insert("INNER", 0, 0);
  file.EndBlock();
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < dashes / dashesOfAnArc; ++i)
    file.Insert("OUTER", 200 + static_cast<double>(i % 400), 250);
  file.EndSection();
}

}  // namespace hexlume::bench
