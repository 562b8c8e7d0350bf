#include "driver/conv_state.h"

#include <gtest/gtest.h>

namespace hexlume::conv_state_test {
namespace {

class Record : public ::testing::Test {
 protected:
  ~Record() override {
    state.monochrome = 0;
    state.fontMode = 0;
    ResetConvState();
  }
};

TEST_F(Record, a_reset_clears_the_geometry_that_does_not_outlive_a_call) {
  state.originX = state.originY = state.drawScale = state.sheetHeightF = 7.0;
  state.rotated = 1;
  ResetConvState();
  EXPECT_EQ(0.0, state.originX);
  EXPECT_EQ(0.0, state.originY);
  EXPECT_EQ(0.0, state.drawScale);
  EXPECT_EQ(0.0, state.sheetHeightF);
  EXPECT_EQ(0, state.rotated);
}

TEST_F(Record, a_reset_keeps_what_stays_between_calls) {
  state.monochrome = 5;
  state.fontMode = 1;
  state.entX[0] = 12.5;
  state.shiftX = 3.0;
  ResetConvState();
  EXPECT_EQ(5, state.monochrome);
  EXPECT_EQ(1, state.fontMode);
  EXPECT_EQ(12.5, state.entX[0]);
  EXPECT_EQ(3.0, state.shiftX);
}

TEST_F(Record, a_reset_empties_the_tables) {
  state.layerNames.emplace_back();
  state.layers.Add({});
  state.ltypes.resize(13);
  state.excludedLayers.Add({});
  state.dimStyles.Add({});
  state.blocks.Add({});
  state.blockLevel = 1;
  state.nestedBytes = 1;
  state.excludedLtypes = {1};
  state.layerCount = state.excludedLayerCount = state.excludedLtypeCount = 1;
  state.layerNamesOwned = state.layersOwned = 1;
  ResetConvState();
  EXPECT_TRUE(state.layerNames.empty());
  EXPECT_TRUE(state.layers.empty());
  EXPECT_TRUE(state.ltypes.empty());
  EXPECT_TRUE(state.excludedLayers.empty());
  EXPECT_TRUE(state.dimStyles.empty());
  EXPECT_TRUE(state.blocks.empty());
  EXPECT_EQ(0, state.blockLevel);
  EXPECT_EQ(0, state.nestedBytes);
  EXPECT_TRUE(state.excludedLtypes.empty());
  EXPECT_EQ(0, state.layerCount + state.excludedLayerCount + state.excludedLtypeCount);
  EXPECT_EQ(0, state.layerNamesOwned + state.layersOwned);
}

// The low byte is red.
TEST_F(Record, a_reset_fills_the_colour_table) {
  state.colorTable[0] = state.colorTable[7] = 0x123456;
  state.colorCount = 0;
  ResetConvState();
  EXPECT_EQ(7, state.colorCount);
  EXPECT_EQ(0x000000u, ColorAt(0));  // black
  EXPECT_EQ(0x0000FFu, ColorAt(1));  // red
  EXPECT_EQ(0x00FFFFu, ColorAt(2));  // yellow
  EXPECT_EQ(0x00FF00u, ColorAt(3));  // green
  EXPECT_EQ(0xFFFF00u, ColorAt(4));  // cyan
  EXPECT_EQ(0xFF0000u, ColorAt(5));  // blue
  EXPECT_EQ(0xFF00FFu, ColorAt(6));  // magenta
  EXPECT_EQ(0xFFFFFFu, ColorAt(7));  // white
}

TEST_F(Record, the_colour_index_minus_1_reads_the_count) {
  ResetConvState();
  EXPECT_EQ(0x000007u, ColorAt(-1));
}

TEST_F(Record, every_other_index_outside_the_table_is_black) {
  ResetConvState();
  for (const int32_t index : {-2, -7, -2147483647 - 1, 8, 255, 256, 2147483647})
    EXPECT_EQ(0x000000u, ColorAt(index));
}

}  // namespace
}  // namespace hexlume::conv_state_test
