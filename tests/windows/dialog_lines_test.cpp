// The page of the line types.
#include "windows/dialog_test.h"

namespace hexlume::dialog_lines_test {
namespace {

using Texts = std::vector<std::wstring>;

class LinePage : public DialogTest {
 protected:
  static User UntickLines(const std::vector<int>& rows) { return Untick(rows, SheetWindow::lines); }

  // Line number i is of family i.
  const std::string families = FamiliesDrawing();
  const Numbers all = {0, 1, 2, 3, 4};
};

TEST_F(LinePage, its_rows_stand_in_this_order_with_ticks) {
  Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    EXPECT_EQ((Texts{L"実線", L"点線", L"破線", L"一点鎖線", L"二点鎖線"}), sheet.Rows());
    sheet.ExpectTicks("xxxxx");
    sheet.Ok();
  });
}

// Rows and families

TEST_F(LinePage, without_the_first_row_solid_lines_are_left_out) {
  EXPECT_EQ((Numbers{1, 2, 3, 4}), Select(families, UntickLines({0})).Lines());
}

TEST_F(LinePage, without_the_second_row_dotted_lines_are_left_out) {
  EXPECT_EQ((Numbers{0, 1, 3, 4}), Select(families, UntickLines({1})).Lines());
}

TEST_F(LinePage, without_the_third_row_dashed_lines_are_left_out) {
  EXPECT_EQ((Numbers{0, 2, 3, 4}), Select(families, UntickLines({2})).Lines());
}

TEST_F(LinePage, without_the_fourth_row_chain_lines_with_one_dot_are_left_out) {
  EXPECT_EQ((Numbers{0, 1, 2, 4}), Select(families, UntickLines({3})).Lines());
}

TEST_F(LinePage, without_the_fifth_row_chain_lines_with_two_dots_are_left_out) {
  EXPECT_EQ((Numbers{0, 1, 2, 3}), Select(families, UntickLines({4})).Lines());
}

TEST_F(LinePage, several_families_are_left_out_together) {
  // Dotted, 2, and the chain with two dots, 4.
  EXPECT_EQ((Numbers{0, 1, 3}), Select(families, UntickLines({4, 1})).Lines());
}

TEST_F(LinePage, part_of_the_sheet_and_full_size_leave_out_the_same) {
  EXPECT_EQ((Numbers{0, 1, 3, 4}), Part(families, 1, UntickLines({1})).Lines());
  EXPECT_EQ((Numbers{0, 1, 3, 4}), FullSize(families, 1, UntickLines({1})).Lines());
}

TEST_F(LinePage, a_turn_leaves_out_the_same_families) {
  EXPECT_EQ((Numbers{1, 3, 4}), Select(families, UntickLines({0, 1})).Lines());
  EXPECT_EQ((Numbers{1, 3, 4}), Turned().TurnedLines());
}

TEST_F(LinePage, a_turn_after_a_second_conversion_that_leaves_out_none_draws_all) {
  Select(families, UntickLines({0}));
  Select(families, PressOkOnSheet);
  EXPECT_EQ(all, Turned().TurnedLines());
}

// Opened or not

TEST_F(LinePage, never_opened_it_leaves_out_nothing) {
  EXPECT_EQ(all, Select(families, PressOkOnSheet).Lines());
}

TEST_F(LinePage, opened_and_left_as_it_is_it_leaves_out_nothing) {
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.Ok();
  });
  EXPECT_EQ(all, drawn.Lines());
}

TEST_F(LinePage, never_opened_it_does_not_repeat_what_the_conversion_before_left_out) {
  EXPECT_EQ((Numbers{1, 2, 3, 4}), Select(families, UntickLines({0})).Lines());
  EXPECT_EQ(all, Select(families, PressOkOnSheet).Lines());
}

TEST_F(LinePage, after_a_conversion_that_left_out_families_all_have_their_ticks_again) {
  Select(families, UntickLines({0, 3}));
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.ExpectTicks("xxxxx");
    sheet.Ok();
  });
  EXPECT_EQ(all, drawn.Lines());
}

TEST_F(LinePage, its_choice_holds_when_ok_is_pressed_on_the_page_of_the_layers) {
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickBox(2);
    sheet.ExpectTicks("xx-xx");
    sheet.OpenPage(SheetWindow::layers);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 2, 3, 4}), drawn.Lines());
}

TEST_F(LinePage, the_choice_of_layers_holds_when_ok_is_pressed_on_it) {
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7}}), [] {
    SheetWindow sheet;
    sheet.ClickBox(0);
    sheet.ExpectTicks("-x");
    sheet.OpenPage(SheetWindow::lines);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{1}), drawn.Lines());
}

TEST_F(LinePage, layers_and_families_are_left_out_together) {
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7}}), [] {
    SheetWindow sheet;
    sheet.ClickBox(0);
    sheet.ExpectTicks("-x");
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xxxx");
    sheet.Ok();
  });
  // The one line by its layer, the other one because it is solid.
  EXPECT_EQ(emptySheet, drawn.listing);
}

TEST_F(LinePage, going_back_and_forth_between_the_pages_keeps_the_ticks) {
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}}), [] {
    SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickBox(3);
    sheet.ExpectTicks("xxx-x");
    sheet.OpenPage(SheetWindow::layers);
    sheet.ExpectTicks("x-x");
    sheet.OpenPage(SheetWindow::lines);
    sheet.ExpectTicks("xxx-x");
    sheet.OpenPage(SheetWindow::layers);
    sheet.ClickBox(2);
    sheet.ExpectTicks("x--");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

// All five

TEST_F(LinePage, with_all_five_unticked_the_whole_sheet_goes_the_long_way) {
  EXPECT_EQ(emptySheet, Select(families, UntickLines({0, 1, 2, 3, 4})).listing);
}

TEST_F(LinePage, with_all_five_unticked_full_size_goes_the_long_way) {
  EXPECT_EQ(emptySheet, FullSize(families, 1, UntickLines({0, 1, 2, 3, 4})).listing);
}

TEST_F(LinePage, with_all_five_unticked_a_part_of_the_sheet_goes_the_short_way) {
  const Conversion drawn = Part(families, 1, UntickLines({0, 1, 2, 3, 4}));
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ(onlyFrame, drawn.listing);
}

TEST_F(LinePage, with_four_unticked_a_part_of_the_sheet_goes_the_long_way) {
  EXPECT_EQ((Numbers{3}), Part(families, 1, UntickLines({0, 1, 2, 4})).Lines());
}

// Mouse and keyboard

TEST_F(LinePage, a_click_on_a_text_flips_nothing_and_a_double_click_does) {
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickText(1);
    sheet.ExpectSelected(1);
    sheet.ExpectTicks("xxxxx");
    sheet.DoubleClickText(3);
    sheet.ExpectTicks("xxx-x");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2, 4}), drawn.Lines());
}

TEST_F(LinePage, a_second_double_click_on_a_row_flips_it_back) {
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.DoubleClickText(4);
    sheet.ExpectTicks("xxxx-");
    sheet.DoubleClickText(4);
    sheet.ExpectTicks("xxxxx");
    sheet.Ok();
  });
  EXPECT_EQ(all, drawn.Lines());
}

TEST_F(LinePage, arrows_and_space_work_as_on_the_other_page) {
  const Conversion drawn = Select(families, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickText(0);
    sheet.ExpectSelected(0);
    Press(VK_DOWN);
    sheet.ExpectSelected(1);
    Press(VK_SPACE);
    sheet.ExpectTicks("x-xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 3, 4}), drawn.Lines());
}

}  // namespace
}  // namespace hexlume::dialog_lines_test
