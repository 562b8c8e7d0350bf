// The page of the layers.
#include "windows/dialog_test.h"

#include <algorithm>

namespace hexlume::dialog_layers_test {
namespace {

using Texts = std::vector<std::wstring>;

class LayerPage : public DialogTest {
 protected:
  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
};

TEST_F(LayerPage, with_all_ticked_nothing_is_left_out) {
  const Conversion drawn = Select(three, PressOkOnSheet);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, one_layer_unticked_of_three_is_left_out) {
  const Conversion drawn = Select(three, Untick({1}));
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
}

TEST_F(LayerPage, each_layer_can_be_left_out_alone) {
  EXPECT_EQ((Numbers{1, 2}), Select(three, Untick({0})).Lines());
  EXPECT_EQ((Numbers{0, 1}), Select(three, Untick({2})).Lines());
}

TEST_F(LayerPage, every_row_has_a_tick_at_first) {
  Select(three, [] {
    const SheetWindow sheet;
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
}

TEST_F(LayerPage, the_next_conversion_starts_with_all_ticks_again) {
  EXPECT_EQ((Numbers{2}), Select(three, Untick({0, 1})).Lines());
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

// Rows and names

TEST_F(LayerPage, rows_stand_in_the_order_of_the_file) {
  Select(LayersDrawing({{"C", 7}, {"a", 7}, {"B", 7}, {"0", 7}}), [] {
    const SheetWindow sheet;
    EXPECT_EQ((Texts{L"C", L"a", L"B", L"0"}), sheet.Rows());
    sheet.Ok();
  });
}

// What a line of the file holds at most beside its end.
constexpr int longestName = 254;

// In code page 932. The second byte of the first name is a backslash, the last name has half-width letters.
constexpr char table[] = "\x95\x5C", dimension[] = "\x90\xA1\x96\x40",
               centreLine[] = "\x92\x86\x90\x53\x90\xFC", layer[] = "\xDA\xB2\xD4-1";

TEST_F(LayerPage, japanese_names_are_shown) {
  Select(LayersDrawing({{table, 7}, {dimension, 7}, {centreLine, 7}, {layer, 7}}), [] {
    const SheetWindow sheet;
    EXPECT_EQ((Texts{L"表", L"寸法", L"中心線", L"ﾚｲﾔ-1"}), sheet.Rows());
    sheet.Ok();
  });
}

TEST_F(LayerPage, layers_with_japanese_names_are_left_out) {
  const std::string drawing = LayersDrawing({{table, 7}, {dimension, 7}, {centreLine, 7}, {layer, 7}});
  EXPECT_EQ((Numbers{1, 2, 3}), Select(drawing, Untick({0})).Lines());
  EXPECT_EQ((Numbers{0, 2}), Select(drawing, Untick({1, 3})).Lines());
}

TEST_F(LayerPage, names_of_the_longest_that_differ_in_the_last_byte_are_told_apart) {
  const std::string alike(longestName - 1, 'n');
  const std::string first = alike + 'a', second = alike + 'b';
  const Conversion drawn = Select(LayersDrawing({{first.c_str(), 7}, {second.c_str(), 7}}), [&] {
    const SheetWindow sheet;
    EXPECT_EQ((Texts{{first.begin(), first.end()}, {second.begin(), second.end()}}), sheet.Rows());
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(LayerPage, a_japanese_name_of_the_longest_is_shown_and_left_out) {
  constexpr int letters = longestName / 2;
  std::string bytes;
  for (int i = 0; i < letters; ++i) bytes += table;
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {bytes.c_str(), 7}}), [] {
    const SheetWindow sheet;
    EXPECT_EQ((Texts{L"A", std::wstring(letters, L'表')}), sheet.Rows());
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(LayerPage, names_that_are_no_text_of_code_page_932_are_left_out_each_by_itself) {
  // A first byte without a second one, a second byte that can't be one, and bytes that mean nothing.
  const std::string drawing = LayersDrawing({{"A\x81", 7}, {"A\x82", 7}, {"\x81 B", 7}, {"\xFF\xFE", 7}});
  EXPECT_EQ((Numbers{0, 1, 2, 3}), Select(drawing, PressOkOnSheet).Lines());
  EXPECT_EQ((Numbers{1, 2, 3}), Select(drawing, Untick({0})).Lines());
  EXPECT_EQ((Numbers{0, 2, 3}), Select(drawing, Untick({1})).Lines());
  EXPECT_EQ((Numbers{0, 1, 3}), Select(drawing, Untick({2})).Lines());
  EXPECT_EQ((Numbers{0, 1, 2}), Select(drawing, Untick({3})).Lines());
}

TEST_F(LayerPage, a_name_in_two_records_has_two_rows_of_which_one_without_a_tick_leaves_it_out) {
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7}, {"A", 7}}, {"A", "B"});
  const Conversion drawn = Select(drawing, [] {
    const SheetWindow sheet;
    EXPECT_EQ((Texts{L"A", L"B", L"A"}), sheet.Rows());
    sheet.ClickBox(2);
    sheet.ExpectTicks("xx-");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{1}), drawn.Lines());
}

TEST_F(LayerPage, names_that_differ_in_case_are_two_layers) {
  EXPECT_EQ((Numbers{0}), Select(LayersDrawing({{"wall", 7}, {"WALL", 7}}), Untick({1})).Lines());
}

// The mouse

TEST_F(LayerPage, a_click_on_a_box_flips_it_and_selects_its_row) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
    sheet.ExpectSelected(1);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_second_click_on_a_box_flips_it_back) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
    sheet.ClickBox(1);
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_click_on_a_text_selects_its_row_and_flips_nothing) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    EXPECT_EQ(-1, sheet.Selected());
    sheet.ClickText(1);
    sheet.ExpectSelected(1);
    sheet.ExpectTicks("xxx");
    sheet.ClickText(2);
    sheet.ExpectSelected(2);
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_double_click_on_a_row_flips_it) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ExpectTicks("xxx");
    sheet.DoubleClickText(2);
    sheet.ExpectTicks("xx-");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1}), drawn.Lines());
}

TEST_F(LayerPage, a_second_double_click_on_a_row_flips_it_back) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.DoubleClickText(2);
    sheet.ExpectTicks("xx-");
    sheet.DoubleClickText(2);
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_double_click_on_a_box_is_two_clicks_on_it) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xx");
    sheet.DoubleClickBox(1);
    sheet.ExpectSelected(1);
    sheet.ClickText(2);  // comes after both clicks
    sheet.ExpectSelected(2);
    sheet.ExpectTicks("-xx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{1, 2}), drawn.Lines());
}

TEST_F(LayerPage, clicks_below_the_last_row_flip_nothing) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    const RECT list = PlaceOf(sheet.List());
    Click({list.left + 10, list.bottom - 10});
    DoubleClick({list.left + 50, list.bottom - 10});
    sheet.ClickText(0);
    sheet.ExpectSelected(0);
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

// The tooltip

class LayerTip : public LayerPage {
 protected:
  // Waits for the tooltip of a row, and returns its text without the ends of its lines.
  static std::wstring TipOf(const SheetWindow& sheet, int row) {
    sheet.ClickText(0);  // so that the pointer comes to the row, and isn't there from before
    sheet.PointAtText(row);
    WaitFor("tooltip", [] { return SheetWindow::Tip() != nullptr; });
    std::wstring text = TextOf(SheetWindow::Tip());
    for (const wchar_t end : {L'\r', L'\n'})
      text.erase(std::remove(text.begin(), text.end(), end), text.end());
    return text;
  }

  static void ExpectNoTip() {
    WaitFor("end of the tooltip", [] { return SheetWindow::Tip() == nullptr; });
  }

  // Looks at the rows of a drawing with a layer A and another one, and cancels.
  void Look(const std::string& name, const std::function<void(const SheetWindow&)>& look) {
    ExpectCancelled(Select(LayersDrawing({{"A", 7}, {name.c_str(), 7}}), [&] {
      const SheetWindow sheet;
      look(sheet);
      sheet.Cancel();
    }));
  }

  // The list has room for about 30.
  const std::string longName = std::string(40, 'n') + "-end";
};

TEST_F(LayerTip, a_name_that_is_cut_shows_whole_while_the_pointer_is_on_it) {
  Look(longName, [&](const SheetWindow& sheet) {
    EXPECT_EQ(std::wstring(longName.begin(), longName.end()), TipOf(sheet, 1));
    sheet.PointAtText(0);
    ExpectNoTip();
    TipOf(sheet, 1);
  });
}

TEST_F(LayerTip, a_name_that_has_room_has_none) {
  Look("&B", [](const SheetWindow& sheet) {
    for (const int row : {0, 1}) {
      sheet.PointAtText(row);
      Sleep(2 * GetDoubleClickTime());  // longer than a tooltip waits
      EXPECT_EQ(nullptr, SheetWindow::Tip());
    }
  });
}

TEST_F(LayerTip, a_japanese_name_and_one_with_an_ampersand_show_as_they_are) {
  std::string tables;
  for (int i = 0; i < 30; ++i) tables += table;
  Look(tables, [](const SheetWindow& sheet) { EXPECT_EQ(std::wstring(30, L'表'), TipOf(sheet, 1)); });
  Look("A&B" + longName, [&](const SheetWindow& sheet) {
    EXPECT_EQ(L"A&B" + std::wstring(longName.begin(), longName.end()), TipOf(sheet, 1));
  });
}

TEST_F(LayerTip, a_name_wider_than_the_screen_is_in_lines) {
  const std::string longest(longestName, 'W');
  Look(longest, [&](const SheetWindow& sheet) {
    EXPECT_EQ(std::wstring(longest.begin(), longest.end()), TipOf(sheet, 1));
    const RECT tip = PlaceOf(SheetWindow::Tip());
    EXPECT_LE(0, tip.left);
    EXPECT_GE(GetSystemMetrics(SM_CXSCREEN), tip.right);
  });
}

TEST_F(LayerTip, it_goes_when_a_key_is_pressed) {
  Look(longName, [&](const SheetWindow& sheet) {
    TipOf(sheet, 1);
    Press(VK_HOME);
    ExpectNoTip();
  });
}

TEST_F(LayerTip, it_goes_with_the_sheet) {
  Look(longName, [&](const SheetWindow& sheet) { TipOf(sheet, 1); });
  EXPECT_EQ(nullptr, SheetWindow::Tip());
}

// The keyboard

TEST_F(LayerPage, space_flips_the_first_row_right_away) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    Press(VK_SPACE);
    sheet.ExpectTicks("-xx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{1, 2}), drawn.Lines());
}

TEST_F(LayerPage, arrows_go_to_a_row_and_space_flips_it) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickText(0);
    sheet.ExpectSelected(0);
    Press(VK_DOWN);
    Press(VK_DOWN);
    sheet.ExpectSelected(2);
    sheet.ExpectTicks("xxx");
    Press(VK_SPACE);
    sheet.ExpectTicks("xx-");
    Press(VK_UP);
    sheet.ExpectSelected(1);
    Press(VK_SPACE);
    sheet.ExpectTicks("x--");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(LayerPage, space_twice_leaves_the_row_as_it_was) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickText(1);
    sheet.ExpectSelected(1);
    Press(VK_SPACE);
    sheet.ExpectTicks("x-x");
    Press(VK_SPACE);
    sheet.ExpectTicks("xxx");
    EXPECT_EQ(1, sheet.Selected());
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

TEST_F(LayerPage, a_letter_goes_to_the_row_that_begins_with_it_and_flips_nothing) {
  Select(three, [] {
    const SheetWindow sheet;
    Press('C');
    sheet.ExpectSelected(2);
    Press('B');
    sheet.ExpectSelected(1);
    sheet.ExpectTicks("xxx");
    sheet.Ok();
  });
}

TEST_F(LayerPage, space_does_not_go_to_a_row_that_begins_with_one) {
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {" B", 7}}, {"A"}), [] {
    const SheetWindow sheet;
    sheet.ClickText(0);
    sheet.ExpectSelected(0);
    Press(VK_SPACE);
    sheet.ExpectTicks("-x");
    EXPECT_EQ(0, sheet.Selected());
    sheet.Ok();
  });
  EXPECT_EQ(emptySheet, drawn.listing);
}

// Many layers

class ManyLayers : public LayerPage {
 protected:
  // Layers with the numbers 1000, 1001 and so on as names.
  static std::string Drawing(int count, const std::vector<std::string>& lineLayers) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) names.push_back(std::to_string(1000 + i));
    std::vector<Layer> layers;
    for (const std::string& name : names) layers.push_back({name.c_str(), 7});
    return LayersDrawing(layers, lineLayers);
  }

  static void GoToEnd(const SheetWindow& sheet, int lastRow) {
    sheet.ClickText(0);  // from no row at all a key may go to the first one
    sheet.ExpectSelected(0);
    Press(VK_END);
    sheet.ExpectSelected(lastRow);
  }
};

TEST_F(ManyLayers, the_last_of_a_hundred_is_unticked_after_the_end_key) {
  const Conversion drawn = Select(Drawing(100, {"1000", "1098", "1099"}), [] {
    const SheetWindow sheet;
    GoToEnd(sheet, 99);
    sheet.ExpectTick(99, true);
    Press(VK_SPACE);
    sheet.ExpectTick(99, false);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1}), drawn.Lines());
}

TEST_F(ManyLayers, a_click_on_a_box_means_the_row_that_is_there_after_scrolling) {
  const Conversion drawn = Select(Drawing(100, {"1000", "1096", "1097", "1099"}), [] {
    const SheetWindow sheet;
    GoToEnd(sheet, 99);
    sheet.ClickBox(97);
    sheet.ExpectSelected(97);
    sheet.ExpectTick(97, false);
    sheet.ExpectTick(96, true);
    sheet.ExpectTick(98, true);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1, 3}), drawn.Lines());
}

TEST_F(ManyLayers, a_tick_that_scrolls_out_of_sight_and_back_stays) {
  const Conversion drawn = Select(Drawing(100, {"1000", "1001", "1099"}), [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
    GoToEnd(sheet, 99);
    Press(VK_HOME);
    sheet.ExpectSelected(0);
    sheet.ExpectTicks("x-x");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
}

TEST_F(ManyLayers, five_thousand_are_all_offered_and_the_last_is_unticked) {
  const Conversion drawn = Select(Drawing(5000, {"1000", "5998", "5999"}), [] {
    const SheetWindow sheet;
    const Texts rows = sheet.Rows();
    EXPECT_EQ(5000u, rows.size());
    for (size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(std::to_wstring(1000 + i), rows[i]);
    GoToEnd(sheet, 4999);
    sheet.ClickBox(4999);
    sheet.ExpectTick(4999, false);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 1}), drawn.Lines());
}

// Layers that are off

TEST_F(LayerPage, a_layer_that_is_off_and_one_that_is_frozen_are_not_offered) {
  // Frozen is the flag 1 alone: locked layers, with 4, and locked and frozen ones, with 5, are offered.
  const Conversion drawn = Select(
      LayersDrawing({{"A", 7}, {"OFF", -7}, {"LOCKED", 7, 4}, {"FROZEN", 7, 1}, {"BOTH", 7, 5}, {"B", 7}}),
      [] {
        const SheetWindow sheet;
        EXPECT_EQ((Texts{L"A", L"LOCKED", L"BOTH", L"B"}), sheet.Rows());
        sheet.ExpectTicks("xxxx");
        sheet.Ok();
      });
  // 2 * 2 of 6 layers: not one more than there are.
  EXPECT_EQ((Numbers{0, 2, 4, 5}), drawn.Lines());
}

TEST_F(LayerPage, beside_a_frozen_layer_the_unticked_rows_are_left_out) {
  const std::string drawing = LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7}, {"D", 7}, {"E", 7}});
  // The rows are A, C, D, E.
  EXPECT_EQ((Numbers{0, 3, 4}), Select(drawing, Untick({1})).Lines());
  EXPECT_EQ((Numbers{0, 2, 3}), Select(drawing, Untick({3})).Lines());
}

TEST_F(LayerPage, of_four_with_one_frozen_the_three_others_are_drawn) {
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7, 1}, {"C", 7}, {"D", 7}}), PressOkOnSheet);
  EXPECT_EQ((Numbers{0, 2, 3}), drawn.Lines());
}

}  // namespace
}  // namespace hexlume::dialog_layers_test
