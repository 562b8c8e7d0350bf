#include <cmath>

#include "bench/speed/drawings.h"
#include "bench/speed/sheet.h"

namespace hexlume::bench {

namespace {

std::string DimensionName(int64_t i) {
  return "*D" + std::to_string(i);
}

void ArrowBlock(DrawingFile& file) {
  file.BeginBlock("_ARROW");
  file.Entity("SOLID");
  file.Point(0, 0, 0);
  file.Point(1, -2, 0.4);
  file.Point(2, -2, -0.4);
  file.Point(3, -2, -0.4);
  file.EndBlock();
}

void Arrow(DrawingFile& file, double x, double y, int64_t angle) {
  file.Insert("_ARROW", x, y);
  file.Whole(50, angle);
}

// The block of a level dimension with a width of 8, as drawing programs write it: two extension lines, the
// dimension line, an arrow at each end, and the text.
void DimensionBlock(DrawingFile& file, int64_t i) {
  const double x = ColumnOf(i), y = RowOf(i);
  file.BeginBlock(DimensionName(i));
  file.Line(x, y, x, y + 4);
  file.Line(x + 8, y, x + 8, y + 4);
  file.Line(x, y + 3, x + 8, y + 3);
  Arrow(file, x, y + 3, 180);
  Arrow(file, x + 8, y + 3, 0);
  file.Entity("MTEXT");
  file.Point(0, x + 4, y + 4);
  file.Number(40, 2.5);
  file.Whole(41, 0);
  file.Whole(71, 5);
  file.Text(1, "%%c8");
  file.EndBlock();
}

void Dimension(DrawingFile& file, int64_t i) {
  const double x = ColumnOf(i), y = RowOf(i);
  file.Entity("DIMENSION", "DIM");
  file.Text(2, DimensionName(i));
  file.Point(0, x + 8, y + 3);
  file.Point(1, x + 4, y + 4);
  file.Whole(70, 32);
  file.Point(3, x, y);
  file.Point(4, x + 8, y);
}

void BeginHatch(DrawingFile& file, const char* pattern, int64_t paths) {
  file.Entity("HATCH");
  for (const int code : {10, 20, 30, 210, 220}) file.Whole(code, 0);
  file.Whole(230, 1);
  file.Text(2, pattern);
  file.Whole(70, 0);
  file.Whole(71, 0);
  file.Whole(91, paths);
}

// A closed path of straight edges.
void BeginPath(DrawingFile& file, int64_t points) {
  file.Whole(92, 3);
  file.Whole(72, 0);
  file.Whole(73, 1);
  file.Whole(93, points);
}

void Rectangle(DrawingFile& file, double x, double y, double width, double height) {
  BeginPath(file, 4);
  file.Point(0, x, y);
  file.Point(0, x + width, y);
  file.Point(0, x + width, y + height);
  file.Point(0, x, y + height);
  file.Whole(97, 0);
}

void Pattern(DrawingFile& file, int64_t families) {
  file.Whole(75, 0);
  file.Whole(76, 1);
  if (families == 0) return;
  file.Whole(52, 0);
  file.Whole(41, 1);
  file.Whole(77, 0);
  file.Whole(78, families);
}

// Unbroken lines with this distance between them. The groups 79 and 49 of dashes follow a family with dashes.
void Family(DrawingFile& file, int64_t degrees, double distance, int64_t dashes = 0) {
  const double angle = static_cast<double>(degrees) * std::acos(-1.0) / 180;
  file.Whole(53, degrees);
  file.Whole(43, 0);
  file.Whole(44, 0);
  file.Number(45, -std::sin(angle) * distance);
  file.Number(46, std::cos(angle) * distance);
  file.Whole(79, dashes);
}

void EndHatch(DrawingFile& file) {
  file.Whole(98, 1);
  file.Point(0, 0, 0);
}

void Circle(DrawingFile& file, int64_t points, double x, double y) {
  const double step = 2 * std::acos(-1.0) / static_cast<double>(points);
  BeginPath(file, points);
  for (int64_t i = 0; i < points; ++i) {
    const double angle = step * static_cast<double>(i);
    file.Point(0, x + 20 * std::cos(angle), y + 20 * std::sin(angle));
  }
  file.Whole(97, 0);
}

}  // namespace

void DrawDimensions(DrawingFile& file, int64_t dimensions) {
  file.Header(sheetWidth, sheetHeight);
  TablesOfLayer(file, "DIM");
  file.BeginSection("BLOCKS");
  ArrowBlock(file);
  for (int64_t i = 0; i < dimensions; ++i) DimensionBlock(file, i);
  file.EndSection();
  file.BeginSection("ENTITIES");
  for (int64_t i = 0; i < dimensions; ++i) Dimension(file, i);
  file.EndSection();
}

// Squares of 20 x 20, alternately with unbroken and with dashed lines.
void DrawPatternHatches(DrawingFile& file, int64_t hatches) {
  BeginEntities(file);
  for (int64_t i = 0; i < hatches; ++i) {
    const bool dashed = i % 2 != 0;
    BeginHatch(file, dashed ? "DASHED45" : "ANSI31", 1);
    Rectangle(file, static_cast<double>(i % 770), static_cast<double>(i / 770 % 47 * 10), 20, 20);
    Pattern(file, dashed ? 2 : 1);
    Family(file, 45, dashed ? 4 : 1);
    if (dashed) {
      Family(file, 45, 2, 4);
      for (const double dash : {3, -1, 0, -1}) file.Number(49, dash);
    }
    EndHatch(file);
  }
  file.EndSection();
}

// Level rows in an upright rectangle, 0.1 mm from one to the next.
void DrawHatchRows(DrawingFile& file, int64_t rows) {
  const double height = 0.1 * static_cast<double>(rows);
  BeginEntities(file, height + 100);
  BeginHatch(file, "ROWS", 1);
  Rectangle(file, 100, 50, 20, height);
  Pattern(file, 1);
  Family(file, 0, 0.1);
  EndHatch(file);
  file.EndSection();
}

// Discs in ten columns, a path of 1,000 points each. A hatch can have 1,000 paths of 30,000 corners.
void DrawHatchPoints(DrawingFile& file, int64_t points) {
  constexpr int64_t pointsOfAPath = 1000;
  const int64_t paths = points / pointsOfAPath;
  BeginEntities(file);
  BeginHatch(file, "SOLID", paths);
  for (int64_t path = 0; path < paths; ++path)
    Circle(file, pointsOfAPath, static_cast<double>(40 + path % 10 * 80),
           static_cast<double>(25 + path / 10 * 50));
  Pattern(file, 0);
  EndHatch(file);
  file.EndSection();
}

}  // namespace hexlume::bench
