#include "driver/pre_scan.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <string>

#include "driver/conv_state.h"
#include "support/text_drawing.h"

namespace hexlume::pre_scan_test {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

class PreScan : public ::testing::Test {
 protected:
  PreScan() { ResetConvState(); }
  ~PreScan() override { FreeTables(); }

  int32_t Scan(const std::string& groups) {
    vars = HeaderVars();
    return ScanDrawing(TemporaryDrawing(groups).Path(), vars);
  }

  void ExpectExtents(double minX, double minY, double maxX, double maxY) const {
    EXPECT_EQ(minX, vars.extMinX);
    EXPECT_EQ(minY, vars.extMinY);
    EXPECT_EQ(maxX, vars.extMaxX);
    EXPECT_EQ(maxY, vars.extMaxY);
  }
  void ExpectMeasured(double minX, double minY, double maxX, double maxY) const {
    EXPECT_EQ(1, vars.extMinSet);
    EXPECT_EQ(1, vars.extMaxSet);
    ExpectExtents(minX, minY, maxX, maxY);
  }

  HeaderVars vars = {};
};

std::string Section(const std::string& name, const std::string& groups) {
  return "0 SECTION\n2 " + name + "\n" + groups + "0 ENDSEC\n";
}
std::string Header(const std::string& groups) {
  return Section("HEADER", groups);
}
std::string Entities(const std::string& groups) {
  return Section("ENTITIES", groups);
}
const std::string noLayers = Section("TABLES", "0 TABLE\n2 LAYER\n70 0\n0 ENDTAB\n");
const std::string eof = "0 EOF\n";

std::string Corners(const std::string& min, const std::string& max, double minX, double minY, double maxX,
                    double maxY) {
  return "9 " + min + "\n10 " + std::to_string(minX) + "\n20 " + std::to_string(minY) + "\n9 " + max +
         "\n10 " + std::to_string(maxX) + "\n20 " + std::to_string(maxY) + "\n";
}
std::string Limits(double minX, double minY, double maxX, double maxY) {
  return Corners("$LIMMIN", "$LIMMAX", minX, minY, maxX, maxY);
}
std::string Extents(double minX, double minY, double maxX, double maxY) {
  return Corners("$EXTMIN", "$EXTMAX", minX, minY, maxX, maxY);
}

const std::string line = "0 LINE\n10 30\n20 40\n11 130\n21 90\n";

// HEADER

TEST_F(PreScan, each_header_variable_is_stored_with_its_flag) {
  EXPECT_EQ(1, Scan(Header("9 $DIMSCALE\n40 2.5\n"
                           "9 $LIMMAX\n10 420.5\n20 297.25\n"
                           "9 $LIMMIN\n10 -1.5\n20 -2.5\n"
                           "9 $EXTMAX\n10 400\n20 200\n30 7\n"
                           "9 $EXTMIN\n10 10\n20 20\n30 8\n"
                           "9 $LTSCALE\n40 0.75\n"
                           "9 $PDMODE\n70 34\n"
                           "9 $PDSIZE\n40 3\n")));
  EXPECT_EQ(1, vars.dimScaleSet);
  EXPECT_EQ(2.5, vars.dimScale);
  EXPECT_EQ(1, vars.limMaxSet);
  EXPECT_EQ(420.5, vars.limMaxX);
  EXPECT_EQ(297.25, vars.limMaxY);
  EXPECT_EQ(1, vars.limMinSet);
  EXPECT_EQ(-1.5, vars.limMinX);
  EXPECT_EQ(-2.5, vars.limMinY);
  ExpectMeasured(10, 20, 400, 200);
  EXPECT_EQ(1, vars.ltScaleSet);
  EXPECT_EQ(0.75, vars.ltScale);
  EXPECT_EQ(34, vars.pdMode);
  EXPECT_EQ(3.0, vars.pdSize);
}

TEST_F(PreScan, a_variable_that_is_not_there_leaves_its_flag_and_value_0) {
  EXPECT_EQ(1, Scan(Header("9 $MENU\n1 .\n")));
  EXPECT_EQ(0, vars.dimScaleSet + vars.ltScaleSet + vars.limMaxSet + vars.limMinSet + vars.extMaxSet +
                   vars.extMinSet);
  EXPECT_EQ(0.0, vars.dimScale);
  EXPECT_EQ(0, vars.pdMode);
  EXPECT_EQ(0.0, vars.pdSize);
  ExpectExtents(0, 0, 0, 0);
}

TEST_F(PreScan, a_variable_takes_its_own_group_codes_alone) {
  Scan(
      Header("9 $DIMSCALE\n10 3\n70 3\n9 $LIMMAX\n40 3\n11 3\n21 3\n30 3\n9 $LTSCALE\n70 3\n41 3\n"
             "9 $PDMODE\n40 3\n9 $PDSIZE\n70 3\n"));
  EXPECT_EQ(1, vars.dimScaleSet);
  EXPECT_EQ(0.0, vars.dimScale);
  EXPECT_EQ(1, vars.limMaxSet);
  EXPECT_EQ(0.0, vars.limMaxX);
  EXPECT_EQ(0.0, vars.limMaxY);
  EXPECT_EQ(1, vars.ltScaleSet);
  EXPECT_EQ(1.0, vars.ltScale);  // 0 counts as 1
  EXPECT_EQ(0, vars.pdMode);
  EXPECT_EQ(0.0, vars.pdSize);
}

TEST_F(PreScan, a_point_size_loses_its_fraction) {
  Scan(Header("9 $PDSIZE\n40 2.5\n"));
  EXPECT_EQ(2.0, vars.pdSize);
  Scan(Header("9 $PDSIZE\n40 0.5\n"));
  EXPECT_EQ(0.0, vars.pdSize);
  Scan(Header("9 $PDSIZE\n40 -5.9\n"));
  EXPECT_EQ(-5.0, vars.pdSize);
}

TEST_F(PreScan, names_of_variables_are_compared_exactly) {
  Scan(Header("9 $limmax\n10 5\n9 $LIMMAX \n10 5\n9 LIMMAX\n10 5\n9 $LIMMAXX\n10 5\n8 $LIMMAX\n10 5\n"));
  EXPECT_EQ(0, vars.limMaxSet);
  EXPECT_EQ(0.0, vars.limMaxX);
}

TEST_F(PreScan, groups_of_a_variable_that_nobody_asks_for_are_skipped) {
  Scan(Header("9 $LIMMIN\n10 1\n20 2\n9 $INSBASE\n10 3\n20 4\n30 5\n40 6\n9 $PDMODE\n70 2\n"));
  EXPECT_EQ(1.0, vars.limMinX);
  EXPECT_EQ(2.0, vars.limMinY);
  EXPECT_EQ(2, vars.pdMode);
}

TEST_F(PreScan, a_variable_right_behind_a_name_without_value_is_read) {
  Scan(Header("9 $UNKNOWN\n9 $PDMODE\n70 2\n9 $LTSCALE\n9 $PDSIZE\n40 4\n"));
  EXPECT_EQ(2, vars.pdMode);
  EXPECT_EQ(1, vars.ltScaleSet);
  EXPECT_EQ(4.0, vars.pdSize);
}

TEST_F(PreScan, a_code_0_ends_the_variable_but_not_the_header) {
  Scan(Header("9 $LIMMAX\n10 5\n0 STRANGE\n20 6\n9 $PDMODE\n70 2\n"));
  EXPECT_EQ(5.0, vars.limMaxX);
  EXPECT_EQ(0.0, vars.limMaxY);
  EXPECT_EQ(2, vars.pdMode);
}

TEST_F(PreScan, variables_behind_the_end_of_the_header_do_not_count) {
  Scan(Header("9 $PDMODE\n70 2\n") + "9 $PDMODE\n70 3\n");
  EXPECT_EQ(2, vars.pdMode);
}

// SCALE

TEST_F(PreScan, the_scale_is_that_of_the_dimensions) {
  Scan(Header("9 $DIMSCALE\n40 50\n"));
  EXPECT_EQ(50.0, vars.drawingScale);
}

TEST_F(PreScan, the_scale_is_a_tenth_of_that_of_the_line_types_otherwise) {
  Scan(Header("9 $LTSCALE\n40 25\n"));
  EXPECT_EQ(2.5, vars.drawingScale);
  EXPECT_EQ(25.0, vars.ltScale);
}

TEST_F(PreScan, the_scale_of_the_dimensions_wins_whatever_the_order) {
  Scan(Header("9 $DIMSCALE\n40 50\n9 $LTSCALE\n40 25\n"));
  EXPECT_EQ(50.0, vars.drawingScale);
  Scan(Header("9 $LTSCALE\n40 25\n9 $DIMSCALE\n40 50\n"));
  EXPECT_EQ(50.0, vars.drawingScale);
  EXPECT_EQ(25.0, vars.ltScale);
}

TEST_F(PreScan, without_either_the_scale_is_1) {
  Scan(Header(""));
  EXPECT_EQ(1.0, vars.drawingScale);
  EXPECT_EQ(1.0, vars.ltScale);
}

TEST_F(PreScan, a_dimension_scale_of_0_counts_as_1) {
  Scan(Header("9 $DIMSCALE\n40 0.0\n9 $LTSCALE\n40 25\n"));
  EXPECT_EQ(1.0, vars.drawingScale);
}

TEST_F(PreScan, a_line_type_scale_of_0_counts_as_1) {
  Scan(Header("9 $LTSCALE\n40 0\n"));
  EXPECT_EQ(1.0, vars.ltScale);
  EXPECT_EQ(1.0, vars.drawingScale);  // 0 / 10, before ltScale became 1
}

TEST_F(PreScan, negative_scales_stay) {
  Scan(Header("9 $DIMSCALE\n40 -50\n"));
  EXPECT_EQ(-50.0, vars.drawingScale);
  Scan(Header("9 $LTSCALE\n40 -20\n"));
  EXPECT_EQ(-20.0, vars.ltScale);
  EXPECT_EQ(-2.0, vars.drawingScale);
}

TEST_F(PreScan, a_file_that_ends_in_the_header_settles_the_scale_too) {
  EXPECT_EQ(1, Scan("0 SECTION\n2 HEADER\n9 $DIMSCALE\n40 50\n"));
  EXPECT_EQ(50.0, vars.drawingScale);
  EXPECT_EQ(1.0, vars.ltScale);
}

TEST_F(PreScan, without_a_header_the_line_type_scale_stays_0) {
  EXPECT_EQ(1, Scan(Entities(line) + eof));
  EXPECT_EQ(0.0, vars.ltScale);
  EXPECT_EQ(1.0, vars.drawingScale);
}

// THE WALK

TEST_F(PreScan, a_file_that_can_not_be_read_gives_0) {
  EXPECT_EQ(0, ScanDrawing(MissingPath().c_str(), vars));
  EXPECT_EQ(0, ScanDrawing(TemporaryFolder().c_str(), vars));
  EXPECT_EQ(0, ScanDrawing("", vars));
}

TEST_F(PreScan, an_empty_file_has_no_box_and_no_layer) {
  EXPECT_EQ(1, Scan(""));
  EXPECT_EQ(0, vars.extMinSet + vars.extMaxSet + vars.limMinSet + vars.limMaxSet);
  EXPECT_EQ(0, state.layerCount);
}

TEST_F(PreScan, what_the_last_run_read_does_not_count) {
  ASSERT_EQ(1, Scan("2 ENTITIES\n"));  // leaves this group in the record
  ResetConvState();
  EXPECT_EQ(1, Scan(""));
  EXPECT_EQ(0, vars.extMinSet);
}

TEST_F(PreScan, a_header_alone_gives_its_box_and_no_layer) {
  EXPECT_EQ(1, Scan(Header(Limits(0, 0, 420, 297)) + eof));
  EXPECT_EQ(420.0, vars.limMaxX);
  EXPECT_EQ(0, vars.extMinSet + vars.extMaxSet);
  EXPECT_EQ(0, state.layerCount);
  EXPECT_EQ(0, state.layerNamesOwned);
}

TEST_F(PreScan, a_header_without_a_box_and_nothing_behind_it_gives_no_box) {
  EXPECT_EQ(1, Scan(Header("9 $PDMODE\n70 2\n") + eof));
  EXPECT_EQ(0, vars.extMinSet + vars.extMaxSet + vars.limMinSet + vars.limMaxSet);
  EXPECT_EQ(0, state.layerCount);
}

TEST_F(PreScan, sections_of_other_names_are_passed_over) {
  EXPECT_EQ(1, Scan(Section("CLASSES", "9 $PDMODE\n70 2\n") +
                    Section("BLOCKS", "0 BLOCK\n2 B\n10 500\n0 ENDBLK\n") + Entities(line) + eof));
  EXPECT_EQ(0, vars.pdMode);
  ExpectMeasured(0, 0, 130, 90);
}

TEST_F(PreScan, a_header_behind_entities_is_not_read) {
  EXPECT_EQ(1, Scan(Entities(line) + Header(Limits(0, 0, 420, 297))));
  EXPECT_EQ(0, vars.limMaxSet);
  ExpectMeasured(0, 0, 130, 90);
}

TEST_F(PreScan, the_name_of_a_section_stands_behind_code_2_alone) {
  EXPECT_EQ(1, Scan("0 HEADER\n9 $PDMODE\n70 2\n0 ENTITIES\n10 5\n8 ENTITIES\n10 5\n"));
  EXPECT_EQ(0, vars.pdMode);
  EXPECT_EQ(0, vars.extMinSet);
}

TEST_F(PreScan, a_box_of_the_header_stands_without_a_look_at_the_entities) {
  EXPECT_EQ(1, Scan(Header(Extents(10, 10, 110, 60)) + noLayers + Entities(line) + eof));
  ExpectExtents(10, 10, 110, 60);
}

TEST_F(PreScan, the_file_is_closed_on_every_path) {
  for (const std::string& groups :
       {std::string(), Header(Limits(0, 0, 420, 297)), Entities(line), Section("TABLES", ""),
        Header(Extents(0, 0, 1, 1)) + noLayers, Header(Extents(0, 0, 1, 1)) + noLayers + Entities(line)}) {
    TemporaryDrawing drawing(groups);
    ScanDrawing(drawing.Path(), vars);
    EXPECT_EQ(0, std::remove(drawing.Path())) << groups;  // refused for an open file, on Windows
  }
}

// MEASURING

TEST_F(PreScan, a_file_with_entities_alone_gets_a_measured_box_and_the_layer_0) {
  EXPECT_EQ(1, Scan(Entities(line) + eof));
  ExpectMeasured(0, 0, 130, 90);
  ASSERT_EQ(1u, state.layerNames.size());
  EXPECT_STREQ("0", state.layerNames[0].name);
  EXPECT_EQ(1, state.layerNames[0].shown);
  EXPECT_EQ(1, state.layerCount);
  EXPECT_EQ(1, state.layerNamesOwned);
}

TEST_F(PreScan, a_drawing_far_from_the_origin_has_a_box_from_the_origin_on) {
  Scan(Entities("0 POINT\n10 5000\n20 7000\n0 POINT\n10 5100\n20 7100\n"));
  ExpectMeasured(0, 0, 5100, 7100);
  Scan(Entities("0 POINT\n10 -5000\n20 -7000\n"));
  ExpectMeasured(-5000, -7000, 0, 0);
}

TEST_F(PreScan, the_codes_10_to_13_and_20_to_23_are_measured) {
  Scan(Entities("0 SOLID\n10 10\n20 -1\n11 11\n21 -2\n12 12\n22 -3\n13 13\n23 -4\n"));
  ExpectMeasured(0, -4, 13, 0);
  for (const int code : {10, 11, 12, 13}) {
    Scan(Entities("0 X\n" + std::to_string(code) + " 5\n" + std::to_string(code + 10) + " 6\n"));
    ExpectMeasured(0, 0, 5, 6);
  }
}

TEST_F(PreScan, other_codes_are_not_measured) {
  Scan(Entities(
      "0 X\n9 900\n14 900\n15 900\n18 900\n19 900\n24 900\n25 900\n29 900\n30 900\n31 900\n40 900\n50 900\n"
      "110 900\n210 900\n1010 900\n1 900\n10 3\n20 4\n"));
  ExpectMeasured(0, 0, 3, 4);
}

TEST_F(PreScan, every_kind_of_entity_is_measured_by_its_points) {
  Scan(Entities(
      "0 CIRCLE\n10 50\n20 60\n40 1000\n0 TEXT\n10 5\n20 5\n11 70\n21 80\n0 NOSUCHTHING\n10 -9\n20 -8\n"));
  ExpectMeasured(-9, -8, 70, 80);
}

TEST_F(PreScan, measuring_ends_with_the_section) {
  Scan(Entities(line) + Section("OBJECTS", "0 X\n10 900\n20 900\n"));
  ExpectMeasured(0, 0, 130, 90);
}

TEST_F(PreScan, measuring_ends_with_the_file) {
  Scan("0 SECTION\n2 ENTITIES\n" + line);
  ExpectMeasured(0, 0, 130, 90);
}

TEST_F(PreScan, entities_that_end_at_once_measure_0) {
  EXPECT_EQ(1, Scan("0 SECTION\n2 ENTITIES\n"));
  ExpectMeasured(0, 0, 0, 0);
  EXPECT_EQ(1, state.layerCount);
}

TEST_F(PreScan, coordinates_out_of_all_bounds_are_measured_as_read) {
  Scan(Entities("0 X\n10 1E+300\n20 -1E+999\n11 NAN\n21 INF\n"));
  ExpectMeasured(0, -infinity, 1e300, 0);
}

TEST_F(PreScan, half_a_box_in_the_header_counts_as_none) {
  for (const char* half : {"$LIMMIN", "$LIMMAX", "$EXTMIN", "$EXTMAX"}) {
    Scan(Header(std::string("9 ") + half + "\n10 -100\n20 -100\n") + Entities(line));
    ExpectMeasured(0, 0, 130, 90);
  }
  Scan(Header("9 $LIMMIN\n10 0\n20 0\n9 $EXTMAX\n10 900\n20 900\n") + Entities(line));
  ExpectMeasured(0, 0, 130, 90);
}

TEST_F(PreScan, a_drawing_with_layers_but_no_box_keeps_its_layers) {
  Scan(Section("TABLES", "0 TABLE\n2 LAYER\n0 LAYER\n2 WALL\n62 7\n0 ENDTAB\n") + Entities(line));
  ExpectMeasured(0, 0, 130, 90);
  ASSERT_EQ(1u, state.layerNames.size());
  EXPECT_STREQ("WALL", state.layerNames[0].name);
}

TEST_F(PreScan, a_drawing_with_no_box_and_an_empty_table_gets_the_layer_0) {
  Scan(noLayers + Entities(line));
  ExpectMeasured(0, 0, 130, 90);
  ASSERT_EQ(1u, state.layerNames.size());
  EXPECT_STREQ("0", state.layerNames[0].name);
}

}  // namespace
}  // namespace hexlume::pre_scan_test
