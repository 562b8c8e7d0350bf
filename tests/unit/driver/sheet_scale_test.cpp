// The sheet of a drawing beyond A0, the full size and the size of point marks.
#include <gtest/gtest.h>

#include <limits>

#include "dialogs/size_dialog.h"
#include "driver/sheet.h"
#include "support/header_boxes.h"

namespace hexlume::sheet_scale_test {
namespace {

// The user of the size dialog, and what the dialog was shown with.
struct SizeDialogUser {
  DialogResult answer;
  int32_t denominator;
  int32_t asked;
  int32_t widthSeen, heightSeen;
} user;

}  // namespace
}  // namespace hexlume::sheet_scale_test

// In the place of the library's own, which waits for a real user.
hexlume::DialogResult hexlume::ShowSizeDialog() {
  using sheet_scale_test::user;
  ++user.asked;
  user.widthSeen = state.sheetWidth;
  user.heightSeen = state.sheetHeight;
  state.scaleDenominator = user.denominator;
  return user.answer;
}

namespace hexlume::sheet_scale_test {
namespace {

constexpr int32_t smallestInt = std::numeric_limits<int32_t>::min();

class SheetScale : public ::testing::Test {
 protected:
  SheetScale() {
    ResetConvState();
    user = {DialogResult::ok, 100, 0, 0, 0};
  }

  static void ExpectRect(int32_t width, int32_t height) {
    EXPECT_EQ(width, state.sheetRect.right);
    EXPECT_EQ(height, state.sheetRect.bottom);
  }
  static void ExpectSize(int32_t width, int32_t height) {
    EXPECT_EQ(width, state.sheetWidth);
    EXPECT_EQ(height, state.sheetHeight);
  }
  static void ExpectShift(double x, double y) {
    EXPECT_EQ(x, state.shiftX);
    EXPECT_EQ(y, state.shiftY);
  }

  HeaderVars vars = {};
};

// WITHOUT A DIALOG

TEST_F(SheetScale, a_drawing_beyond_A0_has_the_denominator_100) {
  SetLimits(vars, 0, 0, 42000, 29700);
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 0));
  EXPECT_EQ(100, state.scaleDenominator);
  ExpectRect(42000, 29700);
  ExpectSize(42000, 29700);
  EXPECT_EQ(100.0, vars.drawingScale);
  EXPECT_EQ(100.0, state.drawScale);
  EXPECT_EQ(0, user.asked);
}

TEST_F(SheetScale, a_preset_denominator_is_taken) {
  SetLimits(vars, 0, 0, 42000, 29700);
  EXPECT_EQ(0, SetupSheet(vars, 0, 50, 0));
  EXPECT_EQ(50, state.scaleDenominator);
  ExpectRect(84000, 59400);  // 42000 / 50 = 840 mm
  EXPECT_EQ(50.0, state.drawScale);
}

TEST_F(SheetScale, a_preset_denominator_of_1_is_taken) {
  SetLimits(vars, 0, 0, 1200, 900);
  EXPECT_EQ(0, SetupSheet(vars, 0, 1, 0));
  EXPECT_EQ(1, state.scaleDenominator);
  ExpectRect(120000, 90000);
}

// 1200 / -2 = -600; int(-60000 + 0.1) = -59999.
TEST_F(SheetScale, a_negative_preset_denominator_is_taken) {
  SetLimits(vars, 0, 0, 1200, 900);
  EXPECT_EQ(0, SetupSheet(vars, 0, -2, 0));
  EXPECT_EQ(-2, state.scaleDenominator);
  ExpectRect(-59999, -44999);
  ExpectSize(-60000, -45000);
  EXPECT_EQ(-2.0, state.drawScale);
}

TEST_F(SheetScale, a_drawing_that_fits_takes_no_denominator) {
  SetLimits(vars, 0, 0, 420, 297);
  EXPECT_EQ(0, SetupSheet(vars, 1, 50, 0));
  EXPECT_EQ(1, state.scaleDenominator);
  EXPECT_EQ(0, user.asked);
  EXPECT_EQ(1.0, state.drawScale);
  ExpectRect(42000, 29700);
}

TEST_F(SheetScale, the_denominator_comes_on_top_of_the_drawings_own_scale) {
  SetLimits(vars, 10, 20, 24010, 18020);
  vars.drawingScale = 20;  // 1200 by 900
  EXPECT_EQ(0, SetupSheet(vars, 0, 4, 0));
  EXPECT_EQ(4, state.scaleDenominator);
  EXPECT_EQ(80.0, vars.drawingScale);
  EXPECT_EQ(80.0, state.drawScale);
  ExpectRect(30000, 22500);
  EXPECT_EQ(1000.0, state.originX);  // in model units
  EXPECT_EQ(2000.0, state.originY);
}

// (1000 - 101) * 100 / 2 = 44950, (1500 - 100) * 100 / 2 = 70000, both by 100.
TEST_F(SheetScale, the_shift_is_divided_by_the_denominator_and_keeps_its_fraction) {
  SetLimits(vars, 0, 0, 1000, 1500);
  SetExtents(vars, 0, 0, 101, 100);
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 0));
  ExpectShift(449.5, 700);
}

// 900.75 / 2 = 450.375, 1200.5 / 2 = 600.25.
TEST_F(SheetScale, without_a_dialog_the_size_keeps_its_fraction) {
  SetLimits(vars, 0, 0, 900.75, 1200.5);
  EXPECT_EQ(0, SetupSheet(vars, 0, 2, 0));
  ExpectRect(45037, 60025);
  ExpectSize(45000, 60000);
  EXPECT_EQ(60025.0, state.sheetHeightF);
  EXPECT_EQ(22500, state.centreX);
  EXPECT_EQ(30000, state.centreY);
}

// WITH THE DIALOG

TEST_F(SheetScale, the_dialog_gives_the_denominator) {
  SetLimits(vars, 0, 0, 42000, 29700);
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  EXPECT_EQ(1, user.asked);
  EXPECT_EQ(100, state.scaleDenominator);
  ExpectRect(42000, 29700);
  EXPECT_EQ(100.0, vars.drawingScale);
  EXPECT_EQ(100.0, state.drawScale);
}

TEST_F(SheetScale, any_value_but_0_asks_and_the_preset_does_not_count) {
  for (const int32_t showDialog : {1, 2, -1}) {
    vars = HeaderVars();
    SetLimits(vars, 0, 0, 42000, 29700);
    user = {DialogResult::ok, 60, 0, 0, 0};
    EXPECT_EQ(0, SetupSheet(vars, showDialog, 50, 0));
    EXPECT_EQ(1, user.asked);
    EXPECT_EQ(60, state.scaleDenominator);
    ExpectRect(70000, 49500);  // 42000 / 60 = 700 mm
  }
}

TEST_F(SheetScale, the_dialog_sees_whole_millimetres) {
  SetLimits(vars, 0, 0, 9007.5, 12005);
  vars.drawingScale = 10;  // 900.75 by 1200.5
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  EXPECT_EQ(900, user.widthSeen);
  EXPECT_EQ(1200, user.heightSeen);
}

// 900.75 by 1200.5 becomes 900 by 1200.
TEST_F(SheetScale, with_the_dialog_the_size_loses_its_fraction) {
  SetLimits(vars, 0, 0, 900.75, 1200.5);
  user.denominator = 2;
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  ExpectRect(45000, 60000);
  EXPECT_EQ(60000.0, state.sheetHeightF);
}

// 900 / 8 = 112.5, 1203 / 8 = 150.375.
TEST_F(SheetScale, whole_millimetres_by_the_denominator_have_a_fraction_again) {
  SetLimits(vars, 0, 0, 900, 1203);
  user.denominator = 8;
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  ExpectRect(11250, 15037);
  ExpectSize(11200, 15000);
  EXPECT_EQ(15037.5, state.sheetHeightF);
}

// As above: 44950 and 70000, by 8.
TEST_F(SheetScale, the_shift_is_divided_by_the_denominator_of_the_dialog) {
  SetLimits(vars, 0, 0, 1000, 1500);
  SetExtents(vars, 0, 0, 101, 100);
  user.denominator = 8;
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  ExpectShift(5618.75, 8750);
}

TEST_F(SheetScale, a_dialog_that_is_cancelled_gives_16) {
  SetLimits(vars, 0, 0, 42000, 29700);
  user.answer = DialogResult::cancelled;
  EXPECT_EQ(16, SetupSheet(vars, 1, 0, 0));
  EXPECT_EQ(1, user.asked);
  EXPECT_EQ(1.0, vars.drawingScale);
  EXPECT_EQ(0.0, state.drawScale);
}

// 2000.95 / 100 = 20.0095 mm, and int(2000.95 + 0.1) = 2001. The whole millimetres of a dialog give 2000.
TEST_F(SheetScale, a_dialog_that_cannot_be_shown_leaves_100_and_the_fractions) {
  SetLimits(vars, 0, 0, 2000.95, 1500.95);
  user.answer = DialogResult::notShown;
  user.denominator = 5;
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  EXPECT_EQ(1, user.asked);
  EXPECT_EQ(100, state.scaleDenominator);
  ExpectRect(2001, 1501);
  ExpectSize(2000, 1500);
  EXPECT_EQ(100.0, state.drawScale);
}

// 1E+300 has no int, so the dialog sees -2147483648; by 100 that is -21474836.48, and its hundredths plus 0.1
// are -2147483647.9.
TEST_F(SheetScale, a_size_without_an_int_is_the_smallest_one_in_the_dialog) {
  SetLimits(vars, 0, 0, 1e300, 1e300);
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 0));
  EXPECT_EQ(smallestInt, user.widthSeen);
  EXPECT_EQ(smallestInt, user.heightSeen);
  ExpectRect(-2147483647, -2147483647);
  ExpectSize(-2147483600, -2147483600);
}

// FULL SIZE

TEST_F(SheetScale, at_full_size_the_drawings_scale_does_not_count) {
  SetLimits(vars, 0, 0, 420, 297);
  SetExtents(vars, 10, 10, 110, 60);
  vars.drawingScale = 50;
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 1));
  ExpectRect(42000, 29700);
  ExpectShift(16000, 12350);
  EXPECT_EQ(1.0, state.drawScale);
  EXPECT_EQ(50.0, vars.drawingScale);
}

TEST_F(SheetScale, full_size_is_asked_for_by_1_alone) {
  SetLimits(vars, 0, 0, 21000, 14850);
  vars.drawingScale = 50;
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 2));
  ExpectRect(42000, 29700);
  EXPECT_EQ(50.0, state.drawScale);
}

// At full size 800 by 1000 would be 80 by 100 sheet units; the shift is (800 - 100) * 50, (1000 - 300) * 50.
TEST_F(SheetScale, at_full_size_the_shift_comes_from_undivided_sizes) {
  SetLimits(vars, 0, 0, 800, 1000);
  SetExtents(vars, 0, 0, 100, 300);
  vars.drawingScale = 10;
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 1));
  ExpectShift(35000, 35000);
}

TEST_F(SheetScale, a_drawing_beyond_A0_at_full_size_overflows_its_sheet) {
  SetLimits(vars, 0, 0, 42000, 29700);
  vars.drawingScale = 50;
  EXPECT_EQ(0, SetupSheet(vars, 0, 0, 1));
  EXPECT_EQ(100, state.scaleDenominator);
  ExpectRect(42000, 29700);  // by 100
  EXPECT_EQ(1.0, state.drawScale);
  EXPECT_EQ(5000.0, vars.drawingScale);
}

TEST_F(SheetScale, at_full_size_the_dialog_gives_the_denominator_too) {
  SetLimits(vars, 0, 0, 4200.5, 2970.5);
  vars.drawingScale = 50;
  user.denominator = 10;
  EXPECT_EQ(0, SetupSheet(vars, 1, 0, 1));
  EXPECT_EQ(4200, user.widthSeen);
  ExpectRect(42000, 29700);
  EXPECT_EQ(1.0, state.drawScale);
}

// POINT MARKS

double PointSize(double pdSize, HeaderVars vars, int32_t fullSize = 0) {
  vars.pdSize = pdSize;
  SetupSheet(vars, 0, 0, fullSize);
  return vars.pdSize;
}

// 42000 * 0.0045 * 100 = 18900, times 100 by the scale.
TEST_F(SheetScale, a_point_size_of_0_is_a_part_of_the_sheets_width) {
  SetLimits(vars, 0, 0, 420, 297);
  EXPECT_DOUBLE_EQ(1890000.0, PointSize(0, vars));
  SetLimits(vars, 0, 0, 21000, 14850);
  vars.drawingScale = 50;
  EXPECT_DOUBLE_EQ(37800.0, PointSize(0, vars));
}

TEST_F(SheetScale, a_positive_point_size_stays_in_model_units) {
  SetLimits(vars, 0, 0, 420, 297);
  EXPECT_EQ(500.0, PointSize(5, vars));
  SetLimits(vars, 0, 0, 21000, 14850);
  vars.drawingScale = 50;
  EXPECT_EQ(10.0, PointSize(5, vars));
}

// 42000 * 0.01 * -5 * 100 = -210000, times 100 by the scale.
TEST_F(SheetScale, a_negative_point_size_is_a_percentage_of_the_sheets_width_and_stays_negative) {
  SetLimits(vars, 0, 0, 420, 297);
  EXPECT_DOUBLE_EQ(-21000000.0, PointSize(-5, vars));
  SetLimits(vars, 0, 0, 21000, 14850);
  vars.drawingScale = 50;
  EXPECT_DOUBLE_EQ(-420000.0, PointSize(-5, vars));
}

TEST_F(SheetScale, a_point_size_counts_whole_millimetres_of_the_width) {
  SetLimits(vars, 0, 0, 420.875, 297);
  EXPECT_DOUBLE_EQ(1890000.0, PointSize(0, vars));
}

// By 100 the sheet is 420 mm wide: 18900 * 100 / 100 and 5 * 100 / 100.
TEST_F(SheetScale, a_point_size_is_settled_with_the_chosen_scale) {
  SetLimits(vars, 0, 0, 42000, 29700);
  EXPECT_DOUBLE_EQ(18900.0, PointSize(0, vars));
  EXPECT_EQ(5.0, PointSize(5, vars));
}

TEST_F(SheetScale, at_full_size_a_point_size_has_the_scale_1) {
  SetLimits(vars, 0, 0, 420, 297);
  vars.drawingScale = 50;
  EXPECT_DOUBLE_EQ(1890000.0, PointSize(0, vars, 1));
  EXPECT_EQ(500.0, PointSize(5, vars, 1));
}

}  // namespace
}  // namespace hexlume::sheet_scale_test
