#include "driver/sheet.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/header_boxes.h"

namespace hexlume::sheet_test {
namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr int32_t smallestInt = std::numeric_limits<int32_t>::min();

class Sheet : public ::testing::Test {
 protected:
  // Starts from what another conversion may have left.
  Sheet() {
    ResetConvState();
    state.sheetRect = {1, 2, 3, 4};
    state.sheetWidth = state.sheetHeight = state.centreX = state.centreY = state.scaleDenominator = 77;
    state.shiftX = state.shiftY = 77.0;
  }

  // Without a dialog, preset or full size.
  int32_t SetupPlain() { return SetupSheet(vars, 0, 0, 0); }

  static void ExpectRect(int32_t width, int32_t height) {
    EXPECT_EQ(0, state.sheetRect.left);
    EXPECT_EQ(0, state.sheetRect.top);
    EXPECT_EQ(width, state.sheetRect.right);
    EXPECT_EQ(height, state.sheetRect.bottom);
  }
  static void ExpectSize(int32_t width, int32_t height) {
    EXPECT_EQ(width, state.sheetWidth);
    EXPECT_EQ(height, state.sheetHeight);
  }
  static void ExpectOrigin(double x, double y) {
    EXPECT_EQ(x, state.originX);
    EXPECT_EQ(y, state.originY);
  }
  static void ExpectShift(double x, double y) {
    EXPECT_EQ(x, state.shiftX);
    EXPECT_EQ(y, state.shiftY);
  }

  HeaderVars vars = {};
};

// THE BOXES

// The centring: (420 - 100) * 100 / 2 = 16000, (297 - 50) * 100 / 2 = 12350.
TEST_F(Sheet, extents_within_the_limits_lie_centred_on_a_sheet_of_the_limits) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 10, 10, 110, 60);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectSize(42000, 29700);
  EXPECT_EQ(29700.0, state.sheetHeightF);
  ExpectOrigin(1000, 1000);
  ExpectShift(16000, 12350);
  EXPECT_EQ(21000, state.centreX);
  EXPECT_EQ(14850, state.centreY);
  EXPECT_EQ(1, state.scaleDenominator);
  EXPECT_EQ(1.0, state.drawScale);
}

TEST_F(Sheet, extents_wider_than_the_limits_are_the_sheet) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, -10, 20, 490, 60);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(50000, 4000);
  ExpectOrigin(-1000, 2000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, extents_higher_than_the_limits_are_the_sheet) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 10, -20, 60, 280);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(5000, 30000);
  ExpectOrigin(1000, -2000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, extents_as_large_as_the_limits_fit_with_no_shift) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 1000, 2000, 1420, 2297);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectOrigin(100000, 200000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, without_limits_the_extents_are_the_sheet) {
  SetExtents(vars, 10, 10, 110, 60);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(10000, 5000);
  ExpectOrigin(1000, 1000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, without_extents_the_limits_are_the_sheet_and_the_drawing) {
  SetLimits(vars, 10, 20, 430, 317);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectOrigin(1000, 2000);
  ExpectShift(0, 0);
}

// The numbers of an incomplete box take part in the comparison, but the box itself isn't used.
TEST_F(Sheet, extents_that_fit_incomplete_limits_are_still_the_sheet) {
  vars.limMaxSet = 1;
  vars.limMaxX = 420;
  vars.limMaxY = 297;
  SetExtents(vars, 10, 10, 110, 60);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(10000, 5000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, limits_are_the_sheet_whatever_incomplete_extents_say) {
  vars.extMaxSet = 1;
  vars.extMaxX = vars.extMaxY = 5000;
  SetLimits(vars, 10, 20, 430, 317);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectOrigin(1000, 2000);
  ExpectShift(0, 0);
}

TEST_F(Sheet, without_a_box_there_is_no_sheet) {
  EXPECT_EQ(30, SetupPlain());
  vars.limMaxSet = vars.extMaxSet = 1;
  EXPECT_EQ(30, SetupPlain());
  vars.extMaxSet = 0;
  vars.extMinSet = 1;
  EXPECT_EQ(30, SetupPlain());
  vars.limMaxSet = 0;
  vars.limMinSet = 1;
  EXPECT_EQ(30, SetupPlain());
  EXPECT_EQ(30, SetupSheet(vars, 1, 5, 1));
}

// SCALE OF THE DRAWING

// At 1:50 the limits are 420 by 297 and the extents 100 by 50.
TEST_F(Sheet, sizes_are_divided_by_the_scale_and_the_origin_is_not) {
  SetLimits(vars, 0, 0, 21000, 14850);
  SetExtents(vars, 500, 600, 5500, 3100);
  vars.drawingScale = 50;
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectOrigin(50000, 60000);
  ExpectShift(16000, 12350);
  EXPECT_EQ(1, state.scaleDenominator);
  EXPECT_EQ(50.0, state.drawScale);
  EXPECT_EQ(50.0, vars.drawingScale);
}

// W = -420, H = -297; the shift is (-420 + 100) * 100 / 2; int(-42000 + 0.1) = -41999.
TEST_F(Sheet, extents_fit_by_their_own_numbers_under_a_negative_scale) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 10, 10, 110, 60);
  vars.drawingScale = -1;
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(-41999, -29699);
  ExpectSize(-42000, -29700);
  ExpectShift(-16000, -12350);
  EXPECT_EQ(-21000, state.centreX);
  EXPECT_EQ(-14850, state.centreY);
  EXPECT_EQ(-1.0, state.drawScale);
}

// FRACTIONS

// 4.35 * 100.0 is 434.99999999999994.
TEST_F(Sheet, a_product_just_short_of_a_whole_number_loses_no_unit) {
  SetLimits(vars, 0, 0, 4.35, 4.35);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(435, 435);
}

// 435.95 + 0.1 = 436.05, 435.85 + 0.1 = 435.95.
TEST_F(Sheet, a_tenth_is_added_to_the_hundredths_and_no_more) {
  SetLimits(vars, 0, 0, 4.3595, 4.3585);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(436, 435);
}

TEST_F(Sheet, the_size_has_whole_millimetres_and_the_height_keeps_its_fraction_besides) {
  SetLimits(vars, 0, 0, 421.75, 297.5);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42175, 29750);
  ExpectSize(42100, 29700);
  EXPECT_EQ(29750.0, state.sheetHeightF);
  EXPECT_EQ(21050, state.centreX);  // 42100 / 2
  EXPECT_EQ(14850, state.centreY);
}

// 120.75 - 100 = 20.75 and 60.9375 - 50 = 10.9375; 20 * 100 / 2, 10 * 100 / 2.
TEST_F(Sheet, the_shift_counts_whole_millimetres) {
  SetLimits(vars, 0, 0, 120.75, 60.9375);
  SetExtents(vars, 0, 0, 100, 50);
  EXPECT_EQ(0, SetupPlain());
  ExpectShift(1000, 500);
}

// 0.75 - 0.5 = 0.25 at the scale of -1 is -0.25, that is 0 and not -1.
TEST_F(Sheet, the_shift_is_truncated_toward_zero) {
  SetLimits(vars, 0, 0, 0.75, 2.25);
  SetExtents(vars, 0, 0, 0.5, 0.5);
  vars.drawingScale = -1;
  EXPECT_EQ(0, SetupPlain());
  ExpectShift(0, -50);  // int(-1.75) * 100 / 2
}

// THE LARGEST SHEET

struct A0Case {
  double width, height;
  bool fits;
};

TEST_F(Sheet, a_sheet_fits_A0_in_either_orientation) {
  const A0Case cases[] = {
      // upright and lying
      {841, 1189, true},
      {1189, 841, true},
      {0, 0, true},
      // wider than the short side: no higher than the long one
      {841.01, 1189, true},
      {841.01, 1189.01, false},
      {900, 1100, true},
      {900, 1189, true},
      {900, 1189.01, false},
      {900, 1200, false},
      {1189, 1189, true},
      // no wider than the short side: any height
      {841, 1189.01, true},
      {800, 5000, true},
      // wider than the long side: no higher than the short one, and then any width
      {1189.01, 841, true},
      {1189.01, 841.01, false},
      {1200, 800, true},
      {1200, 900, false},
      {5000, 800, true},
  };
  for (const A0Case& a0Case : cases) {
    vars = HeaderVars();
    SetLimits(vars, 0, 0, a0Case.width, a0Case.height);
    EXPECT_EQ(0, SetupPlain());
    EXPECT_EQ(a0Case.fits ? 1 : 100, state.scaleDenominator) << a0Case.width << " by " << a0Case.height;
    EXPECT_EQ(a0Case.fits ? 1.0 : 100.0, state.drawScale) << a0Case.width << " by " << a0Case.height;
  }
}

TEST_F(Sheet, what_must_fit_is_the_scaled_sheet) {
  SetLimits(vars, 0, 0, 42000, 29700);
  vars.drawingScale = 100;
  EXPECT_EQ(0, SetupPlain());
  EXPECT_EQ(1, state.scaleDenominator);
  ExpectRect(42000, 29700);
}

TEST_F(Sheet, limits_that_hold_the_extents_must_fit_themselves) {
  SetLimits(vars, 0, 0, 1200, 900);
  SetExtents(vars, 0, 0, 100, 100);
  EXPECT_EQ(0, SetupPlain());
  EXPECT_EQ(100, state.scaleDenominator);
}

// SIZES OUT OF ALL BOUNDS

TEST_F(Sheet, a_drawing_without_width_has_an_empty_sheet) {
  SetExtents(vars, 50, 50, 50, 150);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(0, 10000);
  ExpectSize(0, 10000);
  EXPECT_EQ(0, state.centreX);
  EXPECT_EQ(0.0, vars.pdSize);
}

// int(-100 * 100 + 0.1) = int(-9999.9) = -9999.
TEST_F(Sheet, a_box_with_swapped_corners_has_a_negative_sheet) {
  SetExtents(vars, 100, 50, 0, 0);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(-9999, -4999);
  ExpectSize(-10000, -5000);
  ExpectOrigin(10000, 5000);
  EXPECT_EQ(-5000, state.centreX);
  EXPECT_EQ(1, state.scaleDenominator);
}

// A size of -2E+20 has no int. The smallest one times 100 is -50 * 2^32, which wraps to 0.
TEST_F(Sheet, untouched_extents_give_the_smallest_int) {
  SetExtents(vars, 1e20, 1e20, -1e20, -1e20);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(smallestInt, smallestInt);
  ExpectSize(0, 0);
  EXPECT_EQ(1e22, state.originX);
  EXPECT_EQ(1, state.scaleDenominator);
}

TEST_F(Sheet, limits_that_are_no_numbers_give_the_smallest_int) {
  SetLimits(vars, 0, 0, noNumber, noNumber);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(smallestInt, smallestInt);
  ExpectSize(0, 0);
  EXPECT_EQ(1, state.scaleDenominator);  // not greater than anything, so it fits
}

TEST_F(Sheet, extents_that_are_no_numbers_fit_the_limits) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 0, 0, noNumber, noNumber);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(42000, 29700);
  ExpectShift(0, 0);  // of the smallest int: it times 100 wraps to 0
}

TEST_F(Sheet, endless_limits_take_the_denominator_100) {
  SetLimits(vars, 0, 0, infinity, infinity);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(smallestInt, smallestInt);
  EXPECT_EQ(100, state.scaleDenominator);
  EXPECT_EQ(infinity, state.sheetHeightF);
}

TEST_F(Sheet, huge_limits_take_the_denominator_100) {
  SetLimits(vars, -1e300, -1e300, 1e300, 1e300);
  EXPECT_EQ(0, SetupPlain());
  ExpectRect(smallestInt, smallestInt);
  ExpectSize(0, 0);
  EXPECT_EQ(100, state.scaleDenominator);
}

// 30000000 * 100 = 3000000000, less 2^32 = -1294967296; its half.
TEST_F(Sheet, a_huge_shift_wraps_around) {
  SetLimits(vars, 0, 0, 30000100, 100);
  SetExtents(vars, 0, 0, 100, 100);
  EXPECT_EQ(0, SetupPlain());
  ExpectShift(-647483648, 0);
  // 30000100 * 100 = 3000010000, less 2^32.
  EXPECT_EQ(-1294957296, state.sheetWidth);
  EXPECT_EQ(-647478648, state.centreX);
  EXPECT_EQ(smallestInt, state.sheetRect.right);
}

}  // namespace
}  // namespace hexlume::sheet_test
