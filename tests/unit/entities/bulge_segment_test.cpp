// Where the arcs of polylines are. Every converter that draws them is asked: the arc's centre, radius and
// angles are read from the metafile's text and compared with the circle on which the vertices were put.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <string>

#include "driver/group_reader.h"
#include "entities/lwpolyline.h"
#include "entities/polyline.h"
#include "support/converter_test.h"
#include "support/metafile_canvas.h"
#include "support/text_groups.h"

namespace hexlume::bulge_segment_test {
namespace {

struct Point {
  double x, y;
};

double Distance(const Point& a, const Point& b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

std::string Number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

std::string Coordinates(const Point& model) {
  return "10 " + Number(model.x) + "\n20 " + Number(model.y) + "\n";
}

// One bulged segment as the two entities give it.
std::string VertexGroups(const Point& from, double bulge, const Point& to) {
  return "0 POLYLINE\n0 VERTEX\n" + Coordinates(from) + "42 " + Number(bulge) + "\n0 VERTEX\n" +
         Coordinates(to) + "0 SEQEND\n";
}
std::string LwGroups(const Point& from, double bulge, const Point& to) {
  return "0 LWPOLYLINE\n" + Coordinates(from) + "42 " + Number(bulge) + "\n" + Coordinates(to) + "0 LINE\n";
}

struct Converter {
  const char* name;
  std::string (*groups)(const Point& from, double bulge, const Point& to);
  std::function<void(const ConversionRun&)> draw;
};

const Converter converters[] = {
    {"POLYLINE", VertexGroups, [](const ConversionRun& run) { DrawPolyline({run}); }},
    {"POLYLINE in a block", VertexGroups, [](const ConversionRun& run) { DrawBlockPolyline({run}); }},
    {"LWPOLYLINE", LwGroups, [](const ConversionRun& run) { DrawLwPolyline({run}); }},
    {"LWPOLYLINE in a block", LwGroups, [](const ConversionRun& run) { DrawBlockLwPolyline({run}); }},
    {"LWPOLYLINE in a dimension's inserted block", LwGroups,
     [](const ConversionRun& run) { DrawDimInsertLwPolyline({run}); }},
};

// An arc as the metafile has it, in canvas coordinates.
struct RecordedArc {
  Point move;  // of the pen, before the arc
  Point centre;
  double radius;
  double startAngle, sweep;  // degrees, clockwise where Y points up

  Point At(double share) const {
    const double angle = (startAngle + share * sweep) * std::acos(-1.0) / 180.0;
    return {centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)};
  }
};

class BulgeSegmentTest : public ConverterTest {
 protected:
  BulgeSegmentTest() {
    // A whole coordinate that comes out a little too small or too large is still cut to itself.
    state.shiftX = 0.5;
    state.shiftY = -0.5;
  }

  std::string List(const Converter& converter, const Point& from, double bulge, const Point& to) {
    stream = StreamOf(converter.groups(from, bulge, to));
    ReadGroup(stream);
    return ListCalls([&](Canvas canvas) { converter.draw(RunOn(canvas)); });
  }

  RecordedArc Draw(const Converter& converter, const Point& from, double bulge, const Point& to) {
    const std::string listing = List(converter, from, bulge, to);
    RecordedArc arc = {};
    const size_t pen = listing.find("SelectObject(1)\n");
    if (pen == std::string::npos ||
        std::sscanf(listing.c_str() + pen,
                    "SelectObject(1)\nMoveToEx(%lf, %lf)\nAngleArc(%lf, %lf, %lf, %lf, %lf)", &arc.move.x,
                    &arc.move.y, &arc.centre.x, &arc.centre.y, &arc.radius, &arc.startAngle, &arc.sweep) != 7)
      ADD_FAILURE() << "no arc in\n" << listing;
    return arc;
  }
};

Point OnSheet(const Point& model) {
  return {100 * model.x, 100 * model.y - 10000};
}

// Twelve points with whole coordinates on the circle of radius 2500 about (5000, -5000), counterclockwise
// from its right: on the axes and in each quadrant.
constexpr Point centre = {50, 50};
constexpr Point offsets[] = {{25, 0},  {20, 15},   {15, 20},   {0, 25},  {-15, 20}, {-20, 15},
                             {-25, 0}, {-20, -15}, {-15, -20}, {0, -25}, {15, -20}, {20, -15}};

Point OnCircle(const Point& offset) {
  return {centre.x + offset.x, centre.y + offset.y};
}

// The angle from a to b counterclockwise, in radians above 0 up to a whole turn.
double AngleBetween(const Point& a, const Point& b) {
  const double wholeTurn = 2 * std::acos(-1.0);
  const double angle = std::atan2(b.y, b.x) - std::atan2(a.y, a.x);
  return angle <= 0 ? angle + wholeTurn : angle;
}

// The radius can lose a unit where it comes out a little below its whole number, and the float angles some
// thousandths.
constexpr double aUnit = 1.01;

void ExpectOnCircle(const RecordedArc& arc, const Point& sheetCentre, const Point& from, const Point& to) {
  EXPECT_LE(Distance(arc.centre, sheetCentre), 0.0);
  EXPECT_NEAR(arc.radius, 2500, aUnit);
  EXPECT_LE(Distance(arc.At(0), from), aUnit);
  EXPECT_LE(Distance(arc.At(1), to), aUnit);
  // The pen's move is cut towards the centre in both coordinates.
  EXPECT_LE(Distance(arc.move, from), 2 * aUnit);
}

TEST_F(BulgeSegmentTest, arcs_of_both_signs_join_any_two_points_of_a_circle_along_it) {
  for (const Converter& converter : converters)
    for (const Point& a : offsets)
      for (const Point& b : offsets) {
        if (&a == &b) continue;
        SCOPED_TRACE(testing::Message() << converter.name << " from (" << a.x << ", " << a.y << ") to ("
                                        << b.x << ", " << b.y << ")");
        const double angle = AngleBetween(a, b);
        const double rest = AngleBetween(b, a);
        // Counterclockwise, AngleArc's negative sense.
        const RecordedArc left = Draw(converter, OnCircle(a), std::tan(angle / 4), OnCircle(b));
        ExpectOnCircle(left, OnSheet(centre), OnSheet(OnCircle(a)), OnSheet(OnCircle(b)));
        EXPECT_NEAR(left.sweep, -angle * 180 / pi, 1e-3);
        // Clockwise, the rest of the same circle.
        const RecordedArc right = Draw(converter, OnCircle(a), -std::tan(rest / 4), OnCircle(b));
        ExpectOnCircle(right, OnSheet(centre), OnSheet(OnCircle(a)), OnSheet(OnCircle(b)));
        EXPECT_NEAR(right.sweep, rest * 180 / pi, 1e-3);
      }
}

TEST_F(BulgeSegmentTest, on_a_turned_sheet_they_join_the_turned_points) {
  state.rotated = 1;
  const auto turned = [](const Point& sheet) { return Point{20000 - sheet.x, -10000 - sheet.y}; };
  for (const Converter& converter : converters)
    for (const Point& a : offsets)
      for (const Point& b : offsets) {
        if (&a == &b) continue;
        SCOPED_TRACE(testing::Message() << converter.name << " from (" << a.x << ", " << a.y << ") to ("
                                        << b.x << ", " << b.y << ")");
        const Point from = turned(OnSheet(OnCircle(a)));
        const Point to = turned(OnSheet(OnCircle(b)));
        const Point sheetCentre = turned(OnSheet(centre));
        ExpectOnCircle(Draw(converter, OnCircle(a), std::tan(AngleBetween(a, b) / 4), OnCircle(b)),
                       sheetCentre, from, to);
        ExpectOnCircle(Draw(converter, OnCircle(a), -std::tan(AngleBetween(b, a) / 4), OnCircle(b)),
                       sheetCentre, from, to);
      }
}

TEST_F(BulgeSegmentTest, the_bulge_is_the_height_of_the_arc_over_half_its_chord) {
  // Chords into all quadrants, flat, half and wide arcs. The arc's middle is right of the way from the
  // start to the end for a positive bulge. Off the grid centre and radius each lose less than a unit in X and
  // in Y.
  constexpr double cutOff = 3.0;
  const Point from = {97.1234, 52.4321};
  for (const Converter& converter : converters)
    for (const Point& chord : {Point{6.3, 0}, Point{4.1, 4.7}, Point{0, 6.1}, Point{-5.3, 3.3},
                               Point{-6.2, 0}, Point{-3.7, -4.9}, Point{0, -6.7}, Point{5.9, -2.3}})
      for (const double bulge : {0.1, 0.5, 1.0, 1.7, 4.0, -0.1, -0.5, -1.0, -1.7, -4.0}) {
        const Point to = {from.x + chord.x, from.y + chord.y};
        SCOPED_TRACE(testing::Message() << converter.name << " along (" << chord.x << ", " << chord.y
                                        << ") with bulge " << bulge);
        const RecordedArc arc = Draw(converter, from, bulge, to);
        EXPECT_LE(Distance(arc.At(0), OnSheet(from)), cutOff);
        EXPECT_LE(Distance(arc.At(1), OnSheet(to)), cutOff);
        const Point middle = {from.x + chord.x / 2 + bulge * chord.y / 2,
                              from.y + chord.y / 2 - bulge * chord.x / 2};
        EXPECT_LE(Distance(arc.At(0.5), OnSheet(middle)), cutOff);
      }
}

TEST_F(BulgeSegmentTest, equal_points_have_an_arc_without_a_radius_at_the_point) {
  for (const Converter& converter : converters)
    for (const double bulge : {0.5, -0.5, 1.0, -1.0, 3.0, -3.0}) {
      SCOPED_TRACE(testing::Message() << converter.name << " with bulge " << bulge);
      const RecordedArc arc = Draw(converter, {50, 50}, bulge, {50, 50});
      EXPECT_EQ(arc.radius, 0);
      EXPECT_LE(Distance(arc.centre, {5000, -5000}), 0.0);
      EXPECT_LE(Distance(arc.move, {5000, -5000}), 0.0);
      EXPECT_NEAR(arc.sweep, (bulge > 0 ? -4 : 4) * std::atan(std::fabs(bulge)) * 180 / pi, 1e-3);
    }
}

TEST_F(BulgeSegmentTest, the_scale_of_the_sheet_keeps_them_on_their_vertices) {
  // At 1:4 sheet X = 25 x and sheet Y = 25 y - 10000. The circle is that of radius 625 about (1250, -8750).
  state.drawScale = 4.0;
  for (const Converter& converter : converters)
    for (const Point& a : offsets)
      for (const Point& b : offsets) {
        if (&a == &b) continue;
        const RecordedArc arc = Draw(converter, OnCircle(a), std::tan(AngleBetween(a, b) / 4), OnCircle(b));
        EXPECT_LE(Distance(arc.centre, {1250, -8750}), 0.0);
        EXPECT_NEAR(arc.radius, 625, aUnit);
        EXPECT_LE(Distance(arc.At(0), {25 * OnCircle(a).x, 25 * OnCircle(a).y - 10000}), aUnit);
        EXPECT_LE(Distance(arc.At(1), {25 * OnCircle(b).x, 25 * OnCircle(b).y - 10000}), aUnit);
      }
}

TEST_F(BulgeSegmentTest, an_insert_of_uneven_scales_moves_the_vertices_and_keeps_the_arcs_round) {
  state.insertScaleX = 2.0;
  state.insertScaleY = 0.5;
  for (const Converter& converter : converters) {
    const std::string name = converter.name;
    if (name == "POLYLINE" || name == "LWPOLYLINE") continue;
    SCOPED_TRACE(name);
    // (10, 80) and (30, 120) come to (20, 40) and (60, 60): a half circle over the chord of 4000 by
    // 2000, of radius 1000 sqrt 5 about (4000, -5000).
    const RecordedArc arc = Draw(converter, {10, 80}, 1.0, {30, 120});
    EXPECT_LE(Distance(arc.centre, {4000, -5000}), 0.0);
    EXPECT_NEAR(arc.radius, 1000 * std::sqrt(5.0), aUnit);
    EXPECT_LE(Distance(arc.At(0), {2000, -6000}), aUnit);
    EXPECT_LE(Distance(arc.At(1), {6000, -4000}), aUnit);
  }
}

TEST_F(BulgeSegmentTest, a_mirroring_insert_does_not_mirror_the_side_of_the_arc) {
  state.insertScaleX = -1.0;
  for (const Converter& converter : converters) {
    const std::string name = converter.name;
    if (name == "POLYLINE" || name == "LWPOLYLINE") continue;
    SCOPED_TRACE(name);
    // From (50, 40) to (50, 60): the arc joins the mirrored vertices, but its middle is at 6000, right of
    // the way up. Mirrored itself it would be at 4000.
    const RecordedArc arc = Draw(converter, {-50, 40}, 1.0, {-50, 60});
    EXPECT_LE(Distance(arc.At(0), {5000, -6000}), aUnit);
    EXPECT_LE(Distance(arc.At(0.5), {6000, -5000}), aUnit);
    EXPECT_LE(Distance(arc.At(1), {5000, -4000}), aUnit);
  }
}

// Dashed arcs. The walker runs counterclockwise from its start angle, negated. The circle of radius 2500.5
// keeps its whole part.

class DashedBulgeSegmentTest : public BulgeSegmentTest {
 protected:
  DashedBulgeSegmentTest() {
    DefineLtype(4, {300, -200});
    AddLayer("DASHES", {1, 4, 0}, 0);
  }

  static Point At(double degrees) {
    const double angle = degrees * std::acos(-1.0) / 180.0;
    return {centre.x + 25.005 * std::cos(angle), centre.y + 25.005 * std::sin(angle)};
  }

  std::string DrawDashed(double fromDegrees, double bulge, double toDegrees) {
    stream = StreamOf("0 LWPOLYLINE\n8 DASHES\n" + Coordinates(At(fromDegrees)) + "42 " + Number(bulge) +
                      "\n" + Coordinates(At(toDegrees)));
    ReadGroup(stream);
    const std::string listing = ListCalls([&](Canvas canvas) { DrawLwPolyline({RunOn(canvas)}); });
    return listing.substr(listing.find('\n') + 1);  // without the move to the first vertex
  }

  static std::string Walk(double startAngle, double sweep) {
    const double dashes[] = {300, -200};
    return ListCalls([&](Canvas canvas) {
      DashArc(canvas, 5000, -5000, 2500, startAngle, sweep, 10000, 5000, black, dashes, 2, 0);
    });
  }
};

// The tangents of 20 and of 22.5 degrees, a quarter of the arcs' 80 and 90.
constexpr double bulge80 = 0.36397023426620234;
constexpr double bulge90 = 0.41421356237309503;

TEST_F(DashedBulgeSegmentTest, a_positive_one_is_walked_from_its_start_to_its_end) {
  EXPECT_EQ(Walk(40.0, -80.0), DrawDashed(-40.0, bulge80, 40.0));
  EXPECT_EQ(Walk(230.0, -90.0), DrawDashed(130.0, bulge90, 220.0));
}

TEST_F(DashedBulgeSegmentTest, a_negative_one_lies_mirrored_and_does_not_join_its_vertices) {
  // Clockwise from 50 to -40 degrees. The start angle of 310, negated with a turn more, lets the walk start
  // at -50 degrees, and it ends at 40.
  EXPECT_EQ(Walk(-670.0, -90.0), DrawDashed(50.0, -bulge90, -40.0));
  // From 220 to 130 degrees: the walk goes from 140 to 230.
  EXPECT_EQ(Walk(-500.0, -90.0), DrawDashed(220.0, -bulge90, 130.0));
}

}  // namespace
}  // namespace hexlume::bulge_segment_test
