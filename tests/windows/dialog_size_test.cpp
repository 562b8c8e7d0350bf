// The dialog of the scale. Sizes are those of a sheet of 2000 by 1500 mm at 1:1 where nothing else is said.
#include <stdexcept>

#include "windows/dialog_test.h"

namespace hexlume::dialog_size_test {
namespace {

const std::string byTwoThousand = LargeDrawing(2000, 1500);

std::string Narrow(const std::wstring& text) {
  return std::string(text.begin(), text.end());
}

// What the dialog shows, as "100: 20.000 x 15.000".
std::string Shown(const SizeWindow& dialog) {
  return Narrow(dialog.Scale() + L": " + dialog.Width() + L" x " + dialog.Height());
}

void See(const SizeWindow& dialog, const std::string& expected) {
  std::string seen;
  try {
    WaitFor("size", [&] { return (seen = Shown(dialog)) == expected; });
  } catch (const std::runtime_error&) {
    throw std::runtime_error("the dialog shows \"" + seen + "\" and not \"" + expected + "\"");
  }
}

// The drawing with all these groups as others.
std::string With(const std::string& others, std::string drawing, const std::string& groups) {
  size_t at = 0;
  while ((at = drawing.find(groups, at)) != std::string::npos) {
    drawing.replace(at, groups.size(), others);
    at += others.size();
  }
  return drawing;
}

const std::string withFractions = With("10 2000.9\n20 1500.9\n", byTwoThousand, "10 2000\n20 1500\n");

// Twice as large, and drawn 1:2.
const std::string atHalfScale = With("2 HEADER\n9 $DIMSCALE\n40 2\n", LargeDrawing(4000, 3000), "2 HEADER\n");

bool IsCaretAt(const SizeWindow& dialog, size_t start, size_t end) {
  return Ask(dialog.Combo(), CB_GETEDITSEL) == MAKELONG(start, end);
}

// Keys are dealt with in turn: when these two have moved the caret, all that were pressed before have had
// their effect, even if it was none.
void SeeAllKeysThrough(const SizeWindow& dialog) {
  Press(VK_HOME);
  WaitFor("caret before the text", [&] { return IsCaretAt(dialog, 0, 0); });
  Press(VK_END);
  WaitFor("caret behind the text", [&] {
    const size_t end = dialog.Scale().size();
    return IsCaretAt(dialog, end, end);
  });
}

// What is typed in the place of the whole text.
void TypeAnew(const SizeWindow& dialog, const std::string& text) {
  dialog.SelectText();
  Type(text);
  SeeAllKeysThrough(dialog);
}

void TypeBehind(const SizeWindow& dialog, const std::string& text) {
  dialog.GoBehindText();
  Type(text);
  SeeAllKeysThrough(dialog);
}

// The caret is after that many characters when the text is typed.
void TypeWithin(const SizeWindow& dialog, int characters, const std::string& text) {
  dialog.SelectText();
  Press(VK_HOME);
  for (int i = 0; i < characters; ++i) Press(VK_RIGHT);
  Type(text);
  SeeAllKeysThrough(dialog);
}

void PasteAnew(const SizeWindow& dialog, const std::wstring& text) {
  CopyToClipboard(text);
  dialog.SelectText();
  PressTogether(VK_CONTROL, 'V');
  SeeAllKeysThrough(dialog);
}

// A text that is longer than what can be typed, as another program puts it there, and an edit of it.
void PutThereAndEdit(const SizeWindow& dialog, const std::wstring& text) {
  dialog.SelectText();
  Ask(dialog.Combo(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
  Press(VK_END);
  Press(VK_BACK);
}

bool Draws(const Conversion& conversion, const std::string& calls) {
  return conversion.listing.find(calls) != std::string::npos;
}

class SizeDialog : public DialogTest {
 protected:
  using Hand = std::function<void(const SizeWindow&)>;

  // The user does something, sees this, and cancels.
  void SeeAfter(const Hand& hand, const std::string& expected) {
    const Conversion left = Scale(byTwoThousand, [&] {
      const SizeWindow dialog;
      hand(dialog);
      See(dialog, expected);
      dialog.Cancel();
    });
    EXPECT_EQ(HEXLUME_CANCELLED, left.code);
  }

  // The user does something and answers OK.
  static User OkAfter(const Hand& hand) {
    return [=] {
      const SizeWindow dialog;
      hand(dialog);
      dialog.Ok();
    };
  }
  static User OkAfterTyping(const std::string& text) {
    return OkAfter([=](const SizeWindow& dialog) { TypeAnew(dialog, text); });
  }

  Conversion ScaleAfter(const Hand& hand) { return Scale(byTwoThousand, OkAfter(hand)); }
};

// --- what it shows at first

TEST_F(SizeDialog, opens_with_100_and_the_hundredth_of_the_sheet) {
  // 2000 / 100 and 1500 / 100.
  SeeAfter([](const SizeWindow&) {}, "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, shows_three_decimals) {
  Scale(LargeDrawing(1234, 5678), [] {
    const SizeWindow dialog;
    See(dialog, "100: 12.340 x 56.780");
    TypeAnew(dialog, "7");
    // 1234 / 7 = 176.28571, 5678 / 7 = 811.14286.
    See(dialog, "7: 176.286 x 811.143");
    dialog.Cancel();
  });
}

TEST_F(SizeDialog, shows_the_size_without_the_fractions_of_a_millimetre) {
  Scale(withFractions, [] {
    const SizeWindow dialog;
    TypeAnew(dialog, "1");
    See(dialog, "1: 2000.000 x 1500.000");
    dialog.Cancel();
  });
}

TEST_F(SizeDialog, shows_the_size_at_the_drawings_own_scale) {
  Scale(atHalfScale, [] {
    const SizeWindow dialog;
    // 4000 / 2 / 100 and 3000 / 2 / 100.
    See(dialog, "100: 20.000 x 15.000");
    dialog.Cancel();
  });
}

TEST_F(SizeDialog, shows_a_sheet_a_million_metres_wide) {
  Scale(LargeDrawing(1000000000, 1500), [] {
    const SizeWindow dialog;
    See(dialog, "100: 10000000.000 x 15.000");
    TypeAnew(dialog, "1");
    See(dialog, "1: 1000000000.000 x 1500.000");
    dialog.Cancel();
  });
}

TEST_F(SizeDialog, shows_a_sheet_beyond_all_whole_numbers) {
  Scale(With("10 1E300\n", byTwoThousand, "10 2000\n"), [] {
    const SizeWindow dialog;
    // What doesn't fit 32 bits is the least number: -2147483648 / 100.
    See(dialog, "100: -21474836.480 x 15.000");
    dialog.Cancel();
  });
}

// --- the rows

TEST_F(SizeDialog, offers_eleven_denominators) {
  Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    std::vector<std::wstring> rows;
    for (LRESULT row = 0; row < Ask(dialog.Combo(), CB_GETCOUNT); ++row) {
      wchar_t text[16] = L"";
      Ask(dialog.Combo(), CB_GETLBTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
      rows.push_back(text);
    }
    EXPECT_EQ((std::vector<std::wstring>{L"400", L"300", L"200", L"100", L"50", L"30", L"20", L"10", L"5",
                                         L"3", L"1"}),
              rows);
    EXPECT_EQ(3, Ask(dialog.Combo(), CB_GETCURSEL));
    dialog.Cancel();
  });
}

TEST_F(SizeDialog, each_row_shows_its_size_when_the_keyboard_comes_to_it) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        for (int row = 3; row > 0; --row) Press(VK_UP);
        // 2000 and 1500 by each of them.
        See(dialog, "400: 5.000 x 3.750");
        for (const char* next :
             {"300: 6.667 x 5.000", "200: 10.000 x 7.500", "100: 20.000 x 15.000", "50: 40.000 x 30.000",
              "30: 66.667 x 50.000", "20: 100.000 x 75.000", "10: 200.000 x 150.000", "5: 400.000 x 300.000",
              "3: 666.667 x 500.000", "1: 2000.000 x 1500.000"}) {
          Press(VK_DOWN);
          See(dialog, next);
        }
        Press(VK_DOWN);  // there is no more
      },
      "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_row_clicked_in_the_open_list_is_chosen) {
  SeeAfter([](const SizeWindow& dialog) { dialog.ClickRow(4); }, "50: 40.000 x 30.000");
}

TEST_F(SizeDialog, the_first_and_the_last_row_can_be_clicked) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.ClickRow(10);
        See(dialog, "1: 2000.000 x 1500.000");
        dialog.ClickRow(0);
      },
      "400: 5.000 x 3.750");
}

TEST_F(SizeDialog, enter_in_the_open_list_takes_the_row_and_leaves_the_dialog) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        PressTogether(VK_MENU, VK_DOWN);
        WaitFor("open list", [&] { return Ask(dialog.Combo(), CB_GETDROPPEDSTATE) != 0; });
        Press(VK_DOWN);
        Press(VK_DOWN);
        Press(VK_RETURN);
        WaitFor("closed list", [&] { return Ask(dialog.Combo(), CB_GETDROPPEDSTATE) == 0; });
      },
      "30: 66.667 x 50.000");
}

TEST_F(SizeDialog, a_row_chosen_behind_a_typed_number_replaces_it) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    TypeAnew(dialog, "7");
    dialog.ClickRow(4);
    See(dialog, "50: 40.000 x 30.000");
  });
  // 2000 / 50 * 100 and 1500 / 50 * 100.
  EXPECT_EQ("Frame(0, 0, 4000, 3000)", drawn.Frame());
}

TEST_F(SizeDialog, a_number_typed_behind_a_chosen_row_replaces_it) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    dialog.ClickRow(4);
    See(dialog, "50: 40.000 x 30.000");
    TypeAnew(dialog, "8");
    See(dialog, "8: 250.000 x 187.500");
  });
  EXPECT_EQ("Frame(0, 0, 25000, 18750)", drawn.Frame());
}

// --- what is typed

TEST_F(SizeDialog, a_number_is_taken_as_it_is_typed) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        Type("2");
        See(dialog, "2: 1000.000 x 750.000");
        Type("5");
        See(dialog, "25: 80.000 x 60.000");
        Type("0");
      },
      "250: 8.000 x 6.000");
}

TEST_F(SizeDialog, a_field_emptied_by_backspace_holds_1) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.GoBehindText();
        Press(VK_BACK);
        See(dialog, "10: 200.000 x 150.000");
        Press(VK_BACK);
        See(dialog, "1: 2000.000 x 1500.000");
        Press(VK_BACK);
        SeeAllKeysThrough(dialog);
      },
      "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_field_emptied_at_once_holds_1) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        Press(VK_DELETE);
      },
      "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, typing_goes_on_behind_the_1_of_an_emptied_field) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        Press(VK_DELETE);
        dialog.ExpectScale(L"1");
        Type("2");
      },
      "12: 166.667 x 125.000");
}

TEST_F(SizeDialog, a_0_becomes_1) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "0"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, digits_behind_a_0_stand_behind_the_1_that_it_became) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "05"); }, "15: 133.333 x 100.000");
}

TEST_F(SizeDialog, a_0_behind_other_digits_stays) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "20"); }, "20: 100.000 x 75.000");
}

TEST_F(SizeDialog, zeros_in_front_stay) {
  SeeAfter([](const SizeWindow& dialog) { TypeWithin(dialog, 0, "0"); }, "0100: 20.000 x 15.000");
}

TEST_F(SizeDialog, numbers_up_to_1000_stay) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        TypeAnew(dialog, "999");
        // 2000 / 999 = 2.00200, 1500 / 999 = 1.50150.
        See(dialog, "999: 2.002 x 1.502");
        TypeAnew(dialog, "1000");
      },
      "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, a_number_is_cut_to_1000_as_soon_as_it_is_higher) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        dialog.TypeAndSee("500", L"500");
        dialog.TypeAndSee("0", L"1000");
      },
      "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, one_more_than_1000_is_cut) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "1001"); }, "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, digits_behind_1000_leave_1000) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "500000"); }, "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, a_letter_behind_a_digit_goes_at_once) {
  SeeAfter([](const SizeWindow& dialog) { TypeBehind(dialog, "a"); }, "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, letters_between_digits_typed_in_turn_all_go) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "2x5y0z"); }, "250: 8.000 x 6.000");
}

TEST_F(SizeDialog, a_letter_alone_becomes_1) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "x"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_point_behind_a_digit_goes_at_once) {
  SeeAfter([](const SizeWindow& dialog) { TypeBehind(dialog, "."); }, "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_fraction_that_is_typed_loses_its_point) {
  SeeAfter([](const SizeWindow& dialog) { TypeAnew(dialog, "2.5"); }, "25: 80.000 x 60.000");
}

TEST_F(SizeDialog, a_blank_behind_a_digit_goes_at_once) {
  SeeAfter([](const SizeWindow& dialog) { TypeBehind(dialog, " "); }, "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_minus_behind_a_digit_goes_at_once) {
  SeeAfter([](const SizeWindow& dialog) { TypeBehind(dialog, "-"); }, "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_minus_in_front_makes_it_1) {
  SeeAfter([](const SizeWindow& dialog) { TypeWithin(dialog, 0, "-"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_full_width_digit_behind_a_digit_goes_at_once) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.GoBehindText();
        TypeCharacter(L'５');
        SeeAllKeysThrough(dialog);
      },
      "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_full_width_digit_alone_becomes_1) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.SelectText();
        TypeCharacter(L'５');
        SeeAllKeysThrough(dialog);
      },
      "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_half_width_kana_behind_a_digit_goes_at_once) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.GoBehindText();
        TypeCharacter(L'ｱ');
        SeeAllKeysThrough(dialog);
      },
      "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_character_that_no_drawing_can_hold_goes_at_once) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        dialog.GoBehindText();
        TypeCharacter(L'한');
        SeeAllKeysThrough(dialog);
      },
      "100: 20.000 x 15.000");
}

TEST_F(SizeDialog, a_letter_within_the_digits_stays_and_the_number_ends_at_it) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    TypeWithin(dialog, 2, "a");
    See(dialog, "10a0: 200.000 x 150.000");
  });
  EXPECT_EQ("Frame(0, 0, 20000, 15000)", drawn.Frame());
}

TEST_F(SizeDialog, a_letter_in_front_of_the_digits_makes_it_1) {
  SeeAfter([](const SizeWindow& dialog) { TypeWithin(dialog, 0, "a"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_letter_is_left_when_the_digits_behind_it_go) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        TypeWithin(dialog, 2, "a");
        See(dialog, "10a0: 200.000 x 150.000");
        Press(VK_BACK);
        SeeAllKeysThrough(dialog);
      },
      "10: 200.000 x 150.000");
}

// Shown by its value, taken by the digits in front.
TEST_F(SizeDialog, an_exponent_counts_for_the_size_and_not_for_the_scale) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    TypeAnew(dialog, "52");
    TypeWithin(dialog, 1, "e");
    // 5e2 = 500.
    See(dialog, "5e2: 4.000 x 3.000");
  });
  // 2000 / 5 * 100.
  EXPECT_EQ("Frame(0, 0, 40000, 30000)", drawn.Frame());
}

TEST_F(SizeDialog, an_exponent_beyond_1000_is_cut) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        TypeAnew(dialog, "14");
        TypeWithin(dialog, 1, "e");
      },
      "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, a_point_within_the_digits_stays) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    TypeWithin(dialog, 1, ".");
    See(dialog, "1.00: 2000.000 x 1500.000");
  });
  EXPECT_EQ("Frame(0, 0, 200000, 150000)", drawn.Frame());
}

TEST_F(SizeDialog, a_pasted_fraction_stays_and_its_whole_part_is_the_scale) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    PasteAnew(dialog, L"12.5");
    See(dialog, "12.5: 160.000 x 120.000");
  });
  // 2000 / 12 * 100 = 16666.67 and 1500 / 12 * 100.
  EXPECT_EQ("Frame(0, 0, 16666, 12500)", drawn.Frame());
}

// Shown by its value, 5; but no digit is in front, so the sheet is divided by 0 and all lines are outside.
TEST_F(SizeDialog, a_pasted_exponent_without_a_digit_in_front_leaves_the_sheet_empty) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    PasteAnew(dialog, L".5e1");
    See(dialog, ".5e1: 400.000 x 300.000");
  });
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ(drawn.Frame() + "\nSetMapMode(MM_HIMETRIC)\n", drawn.listing);
}

TEST_F(SizeDialog, a_pasted_fraction_below_1_becomes_1) {
  SeeAfter([](const SizeWindow& dialog) { PasteAnew(dialog, L"0.9"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, of_a_pasted_text_one_last_character_goes) {
  SeeAfter([](const SizeWindow& dialog) { PasteAnew(dialog, L"5ab"); }, "5a: 400.000 x 300.000");
}

TEST_F(SizeDialog, pasted_words_become_1) {
  SeeAfter([](const SizeWindow& dialog) { PasteAnew(dialog, L"縮尺"); }, "1: 2000.000 x 1500.000");
}

TEST_F(SizeDialog, a_pasted_text_that_the_field_has_no_room_for_does_no_harm) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        PasteAnew(dialog, std::wstring(1000, L'9'));
        TypeAnew(dialog, "20");
      },
      "20: 100.000 x 75.000");
}

TEST_F(SizeDialog, thousands_of_digits_are_cut_to_1000) {
  SeeAfter([](const SizeWindow& dialog) { PutThereAndEdit(dialog, std::wstring(3000, L'9')); },
           "1000: 2.000 x 1.500");
}

TEST_F(SizeDialog, thousands_of_letters_become_1) {
  SeeAfter([](const SizeWindow& dialog) { PutThereAndEdit(dialog, std::wstring(3000, L'あ')); },
           "1: 2000.000 x 1500.000");
}

// --- the caret

TEST_F(SizeDialog, the_caret_is_behind_the_text_after_each_edit) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        TypeAnew(dialog, "50");
        Press(VK_HOME);
        Type("1");
        dialog.ExpectScale(L"150");
        WaitFor("caret behind 150", [&] { return IsCaretAt(dialog, 3, 3); });
        Press(VK_LEFT);
        Press(VK_BACK);
        dialog.ExpectScale(L"10");
        WaitFor("caret behind 10", [&] { return IsCaretAt(dialog, 2, 2); });
      },
      "10: 200.000 x 150.000");
}

TEST_F(SizeDialog, the_caret_is_behind_a_text_that_was_put_right) {
  SeeAfter(
      [](const SizeWindow& dialog) {
        TypeAnew(dialog, "500");
        dialog.TypeAndSee("0", L"1000");
        WaitFor("caret behind 1000", [&] { return IsCaretAt(dialog, 4, 4); });
        dialog.SelectText();
        dialog.PressAndSee(VK_BACK, L"1");
        WaitFor("caret behind 1", [&] { return IsCaretAt(dialog, 1, 1); });
        dialog.TypeAndSee("6", L"16");
        Type("x");
        WaitFor("caret behind 16", [&] { return IsCaretAt(dialog, 2, 2); });
      },
      "16: 125.000 x 93.750");
}

// --- the exits

TEST_F(SizeDialog, ok_at_once_takes_100) {
  const Conversion drawn = Scale(byTwoThousand, PressOkOnSizeDialog);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ("Frame(0, 0, 2000, 1500)", drawn.Frame());
  // (10, 10) is at 10 * 100 / 100 = 10 and 10 - 1500, (110, 10) a hundred to the right.
  EXPECT_TRUE(Draws(drawn, "MoveToEx(10, -1490)\nLineTo(110, -1490)\n")) << drawn.listing;
}

TEST_F(SizeDialog, ok_takes_a_typed_number) {
  const Conversion drawn = Scale(byTwoThousand, OkAfterTyping("7"));
  EXPECT_EQ(0, drawn.code);
  // 2000 / 7 * 100 = 28571.43, 1500 / 7 * 100 = 21428.57.
  EXPECT_EQ("Frame(0, 0, 28571, 21428)", drawn.Frame());
  // 1000 / 7 = 142.86, 142.86 - 21428.57 = -21285.71, 11000 / 7 = 1571.43.
  EXPECT_TRUE(Draws(drawn, "MoveToEx(142, -21285)\nLineTo(1571, -21285)\n")) << drawn.listing;
}

TEST_F(SizeDialog, ok_takes_a_chosen_row) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) {
    dialog.ClickRow(4);
    dialog.ExpectScale(L"50");
  });
  EXPECT_EQ("Frame(0, 0, 4000, 3000)", drawn.Frame());
  // 1000 / 50 = 20, 20 - 3000, 11000 / 50.
  EXPECT_TRUE(Draws(drawn, "MoveToEx(20, -2980)\nLineTo(220, -2980)\n")) << drawn.listing;
}

TEST_F(SizeDialog, ok_takes_a_number_with_zeros_in_front) {
  const Conversion drawn = ScaleAfter([](const SizeWindow& dialog) { TypeWithin(dialog, 0, "0"); });
  EXPECT_EQ("Frame(0, 0, 2000, 1500)", drawn.Frame());
}

TEST_F(SizeDialog, the_fractions_of_the_drawing_are_lost_for_the_sheet_too) {
  const Conversion drawn = Scale(withFractions, OkAfterTyping("1"));
  EXPECT_EQ("Frame(0, 0, 200000, 150000)", drawn.Frame());
  // The turned one asks nobody, and so keeps them.
  EXPECT_EQ("Frame(0, 0, 200090, 150090)", Turned().Frame());
}

TEST_F(SizeDialog, a_part_of_the_sheet_is_drawn_in_the_chosen_scale) {
  const Conversion drawn = Part(byTwoThousand, 2, OkAfterTyping("10"));
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ("Frame(0, 0, 30000, 20000)", drawn.Frame());  // the part that was asked for
  // 1000 / 10 = 100, 100 - 15000, 11000 / 10.
  EXPECT_TRUE(Draws(drawn, "MoveToEx(100, -14900)\nLineTo(1100, -14900)\n")) << drawn.listing;
}

// The sheet shrinks and the drawing doesn't.
TEST_F(SizeDialog, at_full_size_the_drawing_overflows_its_sheet) {
  const Conversion drawn = FullSize(byTwoThousand, 2, PressOkOnSizeDialog);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ("Frame(0, 0, 2000, 1500)", drawn.Frame());
  // 10 * 100 = 1000, 1000 - 1500, and 110 * 100 is cut at the sheet's right edge.
  EXPECT_TRUE(Draws(drawn, "MoveToEx(1000, -500)\nLineTo(2000, -500)\n")) << drawn.listing;
}

TEST_F(SizeDialog, a_turned_drawing_has_the_scale_that_was_chosen) {
  Scale(byTwoThousand, OkAfterTyping("10"));
  const Conversion turned = Turned();
  EXPECT_EQ("Frame(0, 0, 20000, 15000)", turned.Frame());
  // (100, -14900) and (1100, -14900) about (10000, -7500); a turned line begins at its end.
  EXPECT_TRUE(Draws(turned, "MoveToEx(18900, -100)\nLineTo(19900, -100)\n")) << turned.listing;
}

// What is kept is the scale of the strokes, with the drawing's own in it, and it is taken as a denominator on
// top of that one.
TEST_F(SizeDialog, a_turned_drawing_with_a_scale_of_its_own_gets_that_twice) {
  // 4000 / 2 / 10 * 100 and 3000 / 2 / 10 * 100; kept is 2 * 10.
  EXPECT_EQ("Frame(0, 0, 20000, 15000)", Scale(atHalfScale, OkAfterTyping("10")).Frame());
  // 4000 / 2 / 20 * 100 and 3000 / 2 / 20 * 100.
  EXPECT_EQ("Frame(0, 0, 10000, 7500)", Turned().Frame());
}

TEST_F(SizeDialog, a_turn_of_a_drawing_at_full_size_has_the_denominator_1) {
  FullSize(byTwoThousand, 2, PressOkOnSizeDialog);
  EXPECT_EQ("Frame(0, 0, 200000, 150000)", Turned().Frame());
}

TEST_F(SizeDialog, enter_is_ok) {
  const Conversion drawn = Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    TypeAnew(dialog, "10");
    Press(VK_RETURN);
    WaitUntilGone(dialog.window);
  });
  EXPECT_EQ("Frame(0, 0, 20000, 15000)", drawn.Frame());
}

TEST_F(SizeDialog, can_be_answered_by_the_keyboard_alone) {
  const Conversion drawn = Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    // From OK over Cancel to the scales.
    Press(VK_TAB);
    Press(VK_TAB);
    dialog.PressAndSee(VK_DOWN, L"50");
    Press(VK_RETURN);
    WaitUntilGone(dialog.window);
  });
  EXPECT_EQ("Frame(0, 0, 4000, 3000)", drawn.Frame());
}

class CancelledSizeDialog : public SizeDialog {
 protected:
  static void Cancel() { SizeWindow().Cancel(); }
};

TEST_F(CancelledSizeDialog, gives_16_and_leaves_out_as_it_was) {
  ExpectCancelled(Scale(byTwoThousand, Cancel));
}

TEST_F(CancelledSizeDialog, gives_16_for_a_part_of_the_sheet) {
  ExpectCancelled(Part(byTwoThousand, 2, Cancel));
}

TEST_F(CancelledSizeDialog, gives_16_at_full_size) {
  ExpectCancelled(FullSize(byTwoThousand, 2, Cancel));
}

TEST_F(CancelledSizeDialog, by_escape) {
  ExpectCancelled(Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    Press(VK_ESCAPE);
    WaitUntilGone(dialog.window);
  }));
}

TEST_F(CancelledSizeDialog, by_escape_while_a_number_is_typed) {
  ExpectCancelled(Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    TypeAnew(dialog, "7");
    Press(VK_ESCAPE);
    WaitUntilGone(dialog.window);
  }));
}

TEST_F(CancelledSizeDialog, by_the_close_button) {
  ExpectCancelled(Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    ClickClose(dialog.window);
    WaitUntilGone(dialog.window);
  }));
}

TEST_F(CancelledSizeDialog, by_the_systems_key_for_closing) {
  ExpectCancelled(Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    PressTogether(VK_MENU, VK_F4);
    WaitUntilGone(dialog.window);
  }));
}

TEST_F(CancelledSizeDialog, leaves_the_last_conversion_to_be_turned) {
  Scale(byTwoThousand, OkAfterTyping("10"));
  Scale(LargeDrawing(3000, 3000), Cancel);
  EXPECT_EQ("Frame(0, 0, 20000, 15000)", Turned().Frame());
}

TEST_F(CancelledSizeDialog, starts_with_100_the_next_time) {
  Scale(byTwoThousand, [] {
    const SizeWindow dialog;
    TypeAnew(dialog, "7");
    dialog.Cancel();
  });
  SeeAfter([](const SizeWindow&) {}, "100: 20.000 x 15.000");
}

// --- when it comes

void Nobody() {}

TEST_F(SizeDialog, without_dialogs_the_scale_is_100) {
  const Conversion drawn = Whole(byTwoThousand, 0, Nobody);
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ("Frame(0, 0, 2000, 1500)", drawn.Frame());
}

TEST_F(SizeDialog, comes_for_any_other_value_of_show_dialogs) {
  for (const int32_t showDialogs : {-1, 3, 256}) {
    const Conversion drawn = Whole(byTwoThousand, showDialogs, OkAfterTyping("10"));
    EXPECT_EQ(0, drawn.code);
    EXPECT_EQ("Frame(0, 0, 20000, 15000)", drawn.Frame()) << showDialogs;
  }
}

// A0 is 841 by 1189.
TEST_F(SizeDialog, does_not_come_for_a_drawing_that_fits) {
  EXPECT_EQ("Frame(0, 0, 118900, 84100)", Scale(LargeDrawing(1189, 841), Nobody).Frame());
  EXPECT_EQ("Frame(0, 0, 84100, 118900)", Scale(LargeDrawing(841, 1189), Nobody).Frame());
  EXPECT_EQ("Frame(0, 0, 80000, 500000)", Scale(LargeDrawing(800, 5000), Nobody).Frame());
}

TEST_F(SizeDialog, comes_for_a_drawing_a_millimetre_too_large) {
  EXPECT_EQ("Frame(0, 0, 1190, 842)", Scale(LargeDrawing(1190, 842), PressOkOnSizeDialog).Frame());
  EXPECT_EQ("Frame(0, 0, 842, 1190)", Scale(LargeDrawing(842, 1190), PressOkOnSizeDialog).Frame());
}

}  // namespace
}  // namespace hexlume::dialog_size_test
