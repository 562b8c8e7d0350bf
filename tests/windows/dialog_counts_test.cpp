// What the conversions make of the number of layers that are left out.
#include "windows/dialog_test.h"

namespace hexlume::dialog_counts_test {
namespace {

using Texts = std::vector<std::wstring>;

// The whole sheet goes the short way when the count is one more than the layers. A layer that isn't offered
// counts two, a row without a tick one.
class WholeSheetCount : public DialogTest {
 protected:
  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
};

TEST_F(WholeSheetCount, with_every_layer_unticked_it_goes_the_long_way) {
  // 3 of 3.
  EXPECT_EQ(emptySheet, Select(three, Untick({0, 1, 2})).listing);
}

TEST_F(WholeSheetCount, with_its_only_layer_unticked_it_goes_the_long_way) {
  // 1 of 1.
  EXPECT_EQ(emptySheet, Select(LayersDrawing({{"A", 7}}), Untick({0})).listing);
}

TEST_F(WholeSheetCount, with_its_only_layer_frozen_it_goes_the_short_way) {
  // 2 of 1.
  EXPECT_EQ(onlyFrame, Select(LayersDrawing({{"A", 7, 1}}), PressOkOnSheet).listing);
}

TEST_F(WholeSheetCount, with_two_of_three_frozen_it_goes_the_short_way_though_the_third_has_its_tick) {
  // 2 + 2 of 3.
  const Conversion drawn = Select(LayersDrawing({{"A", 7, 1}, {"B", 7}, {"C", -7}}), PressOkOnSheet);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ(onlyFrame, drawn.listing);
}

TEST_F(WholeSheetCount, with_two_of_four_frozen_one_row_unticked_makes_it_short) {
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7, 1}, {"D", 7}});
  // 4 of 4, and 5 of 4, and 6 of 4.
  EXPECT_EQ((Numbers{0, 3}), Select(drawing, PressOkOnSheet).Lines());
  EXPECT_EQ(onlyFrame, Select(drawing, Untick({0})).listing);
  EXPECT_EQ(emptySheet, Select(drawing, Untick({0, 1})).listing);
}

TEST_F(WholeSheetCount, with_one_of_three_frozen_it_takes_all_rows_unticked_to_make_it_short) {
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7}});
  // 2 of 3, 3 of 3 and 4 of 3.
  EXPECT_EQ((Numbers{0, 2}), Select(drawing, PressOkOnSheet).Lines());
  EXPECT_EQ((Numbers{2}), Select(drawing, Untick({0})).Lines());
  EXPECT_EQ(onlyFrame, Select(drawing, Untick({0, 1})).listing);
}

TEST_F(WholeSheetCount, with_two_of_two_frozen_the_list_is_empty_and_it_goes_the_long_way) {
  // 4 of 2.
  const Conversion drawn = Select(LayersDrawing({{"A", 7, 1}, {"B", 7, 1}}), [] {
    const SheetWindow sheet;
    EXPECT_EQ(Texts{}, sheet.Rows());
    sheet.Ok();
  });
  EXPECT_EQ(emptySheet, drawn.listing);
}

TEST_F(WholeSheetCount, at_full_size_it_is_the_same) {
  // 4 of 3, then 3 of 3.
  EXPECT_EQ(onlyFrame,
            FullSize(LayersDrawing({{"A", 7, 1}, {"B", 7}, {"C", 7, 1}}), 1, PressOkOnSheet).listing);
  EXPECT_EQ(emptySheet, FullSize(three, 1, Untick({0, 1, 2})).listing);
}

TEST_F(WholeSheetCount, at_full_size_an_unticked_layer_is_left_out) {
  EXPECT_EQ((Numbers{1, 2}), FullSize(three, 1, Untick({0})).Lines());
}

// A part of the sheet goes the short way when the count is that of the layers.
class PartOfSheetCount : public DialogTest {
 protected:
  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});

  Conversion SelectPart(const std::string& drawing, const User& user) { return Part(drawing, 1, user); }
};

TEST_F(PartOfSheetCount, with_every_layer_unticked_it_goes_the_short_way) {
  // 3 of 3.
  const Conversion drawn = SelectPart(three, Untick({0, 1, 2}));
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ(onlyFrame, drawn.listing);
}

TEST_F(PartOfSheetCount, with_one_layer_unticked_the_others_are_drawn) {
  EXPECT_EQ((Numbers{0, 2}), SelectPart(three, Untick({1})).Lines());
}

TEST_F(PartOfSheetCount, with_its_only_layer_frozen_it_goes_the_long_way) {
  // 2 of 1.
  EXPECT_EQ(emptySheet, SelectPart(LayersDrawing({{"A", 7, 1}}), PressOkOnSheet).listing);
}

TEST_F(PartOfSheetCount, with_one_of_two_frozen_it_goes_the_short_way_though_the_other_has_its_tick) {
  // 2 of 2; the whole sheet, which would take 3, draws.
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7, 1}});
  EXPECT_EQ(onlyFrame, SelectPart(drawing, PressOkOnSheet).listing);
  EXPECT_EQ((Numbers{0}), Select(drawing, PressOkOnSheet).Lines());
}

TEST_F(PartOfSheetCount, a_frozen_layer_of_four_counts_two) {
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7}, {"D", 7}});
  // 2, 3, 4 and 5 of 4.
  EXPECT_EQ((Numbers{0, 2, 3}), SelectPart(drawing, PressOkOnSheet).Lines());
  EXPECT_EQ((Numbers{2, 3}), SelectPart(drawing, Untick({0})).Lines());
  EXPECT_EQ(onlyFrame, SelectPart(drawing, Untick({0, 1})).listing);
  EXPECT_EQ(emptySheet, SelectPart(drawing, Untick({0, 1, 2})).listing);
}

TEST_F(PartOfSheetCount, two_frozen_layers_of_four_make_it_short) {
  // 4 of 4.
  EXPECT_EQ(onlyFrame,
            SelectPart(LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", -7}, {"D", 7}}), PressOkOnSheet).listing);
}

// Drawings without layers

class WithoutLayers : public DialogTest {
 protected:
  // A table of layers without a record, and a line that names a layer all the same.
  const std::string drawing = LayersDrawing({}, {"A"});
};

TEST_F(WithoutLayers, the_list_is_empty_and_the_whole_sheet_is_drawn) {
  const Conversion drawn = Select(drawing, [] {
    const SheetWindow sheet;
    EXPECT_EQ(Texts{}, sheet.Rows());
    sheet.Ok();
  });
  // 0 of 0.
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(WithoutLayers, a_part_of_the_sheet_goes_the_short_way) {
  // 0 of 0.
  EXPECT_EQ(onlyFrame, Part(drawing, 1, PressOkOnSheet).listing);
}

TEST_F(WithoutLayers, keys_and_clicks_on_the_empty_list_do_nothing) {
  const Conversion drawn = Select(drawing, [] {
    const SheetWindow sheet;
    Press(VK_SPACE);
    Press(VK_DOWN);
    Press(VK_SPACE);
    Press(VK_END);
    Press('A');
    const RECT list = PlaceOf(sheet.List());
    Click({list.left + 10, list.top + 10});
    DoubleClick({list.left + 50, list.top + 10});
    sheet.Ok();
  });
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(WithoutLayers, a_drawing_without_tables_that_is_measured_by_its_entities_offers_layer_0) {
  const std::string entities =
      "0 SECTION\n2 ENTITIES\n0 LINE\n8 0\n10 0\n20 20\n11 100\n21 20\n0 ENDSEC\n0 EOF\n";
  const Conversion drawn = Select(entities, [] {
    const SheetWindow sheet;
    EXPECT_EQ(Texts{L"0"}, sheet.Rows());
    sheet.ExpectTicks("x");
    sheet.ClickBox(0);
    sheet.ExpectTicks("-");
    sheet.Ok();
  });
  // From the origin to the line's right end. 1 of 1: the long way.
  EXPECT_EQ("Frame(0, 0, 10000, 2000)\nSetMapMode(MM_HIMETRIC)\n", drawn.listing);
}

// The turn afterwards

class TurnAfterSheet : public WholeSheetCount {};

TEST_F(TurnAfterSheet, a_turn_leaves_out_the_same_layers) {
  EXPECT_EQ((Numbers{0, 2}), Select(three, Untick({1})).Lines());
  const Conversion turned = Turned();
  EXPECT_EQ(0, turned.code);
  EXPECT_EQ((Numbers{0, 2}), turned.TurnedLines());
}

TEST_F(TurnAfterSheet, a_turn_leaves_out_the_layers_that_were_not_offered) {
  // 2 of 4 names are asked for, and one is there.
  EXPECT_EQ((Numbers{0, 2, 3}),
            Select(LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7}, {"D", 7}}), PressOkOnSheet).Lines());
  EXPECT_EQ((Numbers{0, 2, 3}), Turned().TurnedLines());
}

TEST_F(TurnAfterSheet, a_turn_after_full_size_leaves_out_the_same_layers) {
  EXPECT_EQ((Numbers{2}), FullSize(three, 1, Untick({0, 1})).Lines());
  EXPECT_EQ((Numbers{2}), Turned().TurnedLines());
}

TEST_F(TurnAfterSheet, a_turn_after_a_second_conversion_with_all_ticks_leaves_out_nothing) {
  Select(three, Untick({1}));
  Select(three, PressOkOnSheet);
  EXPECT_EQ((Numbers{0, 1, 2}), Turned().TurnedLines());
}

TEST_F(TurnAfterSheet, a_turn_after_a_part_of_the_sheet_repeats_the_whole_sheet_before_it) {
  Select(three, Untick({1}));
  EXPECT_EQ((Numbers{0, 1}), Part(three, 1, Untick({2})).Lines());
  EXPECT_EQ((Numbers{0, 2}), Turned().TurnedLines());
}

TEST_F(TurnAfterSheet, a_turn_after_the_short_way_repeats_the_conversion_before_it) {
  Select(three, Untick({0}));
  EXPECT_EQ(onlyFrame, Select(LayersDrawing({{"A", 7, 1}}), PressOkOnSheet).listing);
  EXPECT_EQ((Numbers{1, 2}), Turned().TurnedLines());
}

}  // namespace
}  // namespace hexlume::dialog_counts_test
