// When the measuring pass believes the header's box, and when it measures the entities after all.
#include <gtest/gtest.h>

#include <string>

#include "driver/conv_state.h"
#include "driver/pre_scan.h"
#include "support/text_drawing.h"

namespace hexlume::pre_scan_small_box_test {
namespace {

const std::string noLayers = "0 SECTION\n2 TABLES\n0 TABLE\n2 LAYER\n0 ENDTAB\n0 ENDSEC\n";
const std::string entities = "0 SECTION\n2 ENTITIES\n0 LINE\n10 30\n20 40\n11 130\n21 90\n0 ENDSEC\n0 EOF\n";

std::string Header(const std::string& groups) {
  return "0 SECTION\n2 HEADER\n" + groups + "0 ENDSEC\n";
}
std::string Corner(const std::string& name, const std::string& x, const std::string& y) {
  return "9 " + name + "\n10 " + x + "\n20 " + y + "\n";
}
// Boxes whose lower left corner is 0, 0.
std::string Limits(const std::string& width, const std::string& height) {
  return Corner("$LIMMIN", "0", "0") + Corner("$LIMMAX", width, height);
}
std::string Extents(const std::string& width, const std::string& height) {
  return Corner("$EXTMIN", "0", "0") + Corner("$EXTMAX", width, height);
}

class SmallBox : public ::testing::Test {
 protected:
  SmallBox() { ResetConvState(); }
  ~SmallBox() override { FreeTables(); }

  int32_t Scan(const std::string& groups) {
    vars = HeaderVars();
    return ScanDrawing(TemporaryDrawing(groups).Path(), vars);
  }

  // Whether the entities were measured, with layers before them.
  bool Measured(const std::string& header) {
    EXPECT_EQ(1, Scan(Header(header) + noLayers + entities));
    return vars.extMinSet && vars.extMaxSet && vars.extMinX == 0.0 && vars.extMinY == 0.0 &&
           vars.extMaxX == 130.0 && vars.extMaxY == 90.0;
  }

  HeaderVars vars = {};
};

TEST_F(SmallBox, extents_under_2_in_either_direction_are_measured_again) {
  EXPECT_TRUE(Measured(Extents("1", "1")));
  EXPECT_TRUE(Measured(Extents("1.999", "50")));
  EXPECT_TRUE(Measured(Extents("50", "1.999")));
}

TEST_F(SmallBox, extents_of_2_stand) {
  EXPECT_FALSE(Measured(Extents("2", "2")));
  EXPECT_EQ(2.0, vars.extMaxX);
}

TEST_F(SmallBox, limits_under_2_without_extents_are_measured) {
  EXPECT_TRUE(Measured(Limits("1.999", "50")));
  EXPECT_TRUE(Measured(Limits("50", "1.999")));
  EXPECT_EQ(50.0, vars.limMaxX);  // the limits themselves stay
  EXPECT_FALSE(Measured(Limits("2", "2")));
}

TEST_F(SmallBox, small_extents_within_limits_that_are_large_enough_stand) {
  EXPECT_FALSE(Measured(Limits("420", "297") + Extents("1", "1")));
  EXPECT_EQ(1.0, vars.extMaxX);
}

TEST_F(SmallBox, small_extents_within_small_limits_are_measured_again) {
  EXPECT_TRUE(Measured(Limits("1.5", "1.5") + Extents("1", "1")));
  EXPECT_TRUE(Measured(Limits("1", "1") + Extents("1", "1")));
}

TEST_F(SmallBox, extents_beyond_small_limits_stand_if_they_are_large_enough) {
  EXPECT_FALSE(Measured(Limits("1", "1") + Extents("100", "50")));
}

TEST_F(SmallBox, extents_beyond_the_limits_in_one_direction_count_in_both) {
  EXPECT_TRUE(Measured(Limits("400", "400") + Extents("500", "1")));
  EXPECT_TRUE(Measured(Limits("400", "400") + Extents("1", "500")));
  EXPECT_FALSE(Measured(Limits("400", "400") + Extents("400", "1")));  // as wide as the limits: they fit
}

TEST_F(SmallBox, untouched_extents_of_a_header_are_measured) {
  // -1E+20 - 1E+20 is negative and so under 2.
  const std::string untouched = Corner("$EXTMIN", "1E+20", "1E+20") + Corner("$EXTMAX", "-1E+20", "-1E+20");
  EXPECT_TRUE(Measured(untouched));
  EXPECT_TRUE(Measured(Limits("0", "0") + untouched));
  EXPECT_TRUE(Measured(Limits("420", "297") + untouched));
  EXPECT_TRUE(Measured(untouched + Limits("420", "297")));
  EXPECT_TRUE(Measured(Limits("420", "297") + Corner("$EXTMIN", "1E+10", "1E+10") +
                       Corner("$EXTMAX", "-1E+10", "-1E+10")));
  EXPECT_EQ(420.0, vars.limMaxX);  // the limits themselves stay
}

TEST_F(SmallBox, extents_whose_maximum_is_below_their_minimum_in_one_direction_are_measured_too) {
  const std::string limits = Limits("420", "297");
  EXPECT_TRUE(Measured(limits + Corner("$EXTMIN", "10", "0") + Corner("$EXTMAX", "9.99", "50")));
  EXPECT_TRUE(Measured(limits + Corner("$EXTMIN", "0", "10") + Corner("$EXTMAX", "50", "9.99")));
  // Of no size at all they are not below: they fit the limits, which are large enough.
  EXPECT_FALSE(Measured(limits + Corner("$EXTMIN", "10", "10") + Corner("$EXTMAX", "10", "10")));
}

TEST_F(SmallBox, a_single_corner_makes_no_untouched_extents) {
  EXPECT_FALSE(Measured(Limits("420", "297") + Corner("$EXTMIN", "1E+20", "1E+20")));
  EXPECT_FALSE(Measured(Limits("420", "297") + Corner("$EXTMAX", "-1E+20", "-1E+20")));
}

TEST_F(SmallBox, untouched_extents_stand_where_the_scan_stands_on_the_entities_already) {
  EXPECT_EQ(1, Scan(Header(Limits("420", "297") + Corner("$EXTMIN", "1E+20", "1E+20") +
                           Corner("$EXTMAX", "-1E+20", "-1E+20")) +
                    entities));
  EXPECT_EQ(1e20, vars.extMinX);
  EXPECT_EQ(-1e20, vars.extMaxX);
}

TEST_F(SmallBox, the_box_is_measured_in_sheet_units) {
  EXPECT_TRUE(Measured("9 $DIMSCALE\n40 100\n" + Extents("130", "199")));  // 1.3 by 1.99
  EXPECT_FALSE(Measured("9 $DIMSCALE\n40 100\n" + Extents("200", "200")));
  EXPECT_FALSE(Measured("9 $DIMSCALE\n40 0.1\n" + Extents("1", "1")));    // 10 by 10
  EXPECT_TRUE(Measured("9 $LTSCALE\n40 1000\n" + Limits("150", "500")));  // scale 100: 1.5 by 5
}

TEST_F(SmallBox, a_negative_scale_turns_every_box_small) {
  EXPECT_TRUE(Measured("9 $DIMSCALE\n40 -1\n" + Limits("420", "297")));
}

TEST_F(SmallBox, a_scan_that_stands_on_the_entities_already_lets_the_header_stand) {
  EXPECT_EQ(1, Scan(Header(Extents("1", "1.5")) + entities));
  EXPECT_EQ(1.0, vars.extMaxX);
  EXPECT_EQ(1.5, vars.extMaxY);
  EXPECT_EQ(0, state.layerCount);
}

TEST_F(SmallBox, sections_between_the_layers_and_the_entities_are_passed_over) {
  EXPECT_EQ(1, Scan(Header(Extents("1", "1")) + noLayers +
                    "0 SECTION\n2 BLOCKS\n0 BLOCK\n2 B\n10 900\n20 900\n0 ENDBLK\n0 ENDSEC\n" + entities));
  EXPECT_EQ(130.0, vars.extMaxX);
  EXPECT_EQ(90.0, vars.extMaxY);
}

TEST_F(SmallBox, without_entities_the_header_stands) {
  EXPECT_EQ(1, Scan(Header(Extents("1", "1.5")) + noLayers + "0 EOF\n"));
  EXPECT_EQ(1.0, vars.extMaxX);
  EXPECT_EQ(1, Scan(Header(Extents("1", "1.5"))));
  EXPECT_EQ(1.5, vars.extMaxY);
}

TEST_F(SmallBox, a_small_box_that_was_measured_stands) {
  EXPECT_EQ(1, Scan("0 SECTION\n2 ENTITIES\n0 LINE\n10 0.5\n20 1.5\n0 ENDSEC\n0 EOF\n"));
  EXPECT_EQ(0.5, vars.extMaxX);
  EXPECT_EQ(1.5, vars.extMaxY);
}

TEST_F(SmallBox, measuring_again_adds_no_layer) {
  EXPECT_TRUE(Measured(Extents("1", "1")));
  EXPECT_EQ(0, state.layerCount);
  EXPECT_TRUE(state.layerNames.empty());
}

TEST_F(SmallBox, extents_as_large_as_the_limits_fit) {
  vars.limMaxX = 420;
  vars.limMaxY = 297;
  vars.extMinX = 1000;
  vars.extMinY = 2000;
  vars.extMaxX = 1420;
  vars.extMaxY = 2297;
  EXPECT_TRUE(ExtentsFitLimits(vars));
  vars.extMaxX = 1421;
  EXPECT_FALSE(ExtentsFitLimits(vars));
  vars.extMaxX = 1420;
  vars.extMaxY = 2298;
  EXPECT_FALSE(ExtentsFitLimits(vars));
}

}  // namespace
}  // namespace hexlume::pre_scan_small_box_test
