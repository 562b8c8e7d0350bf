// The ways out of the sheet.
#include "windows/dialog_test.h"

#include <prsht.h>

#include "windows/import_patch.h"
#include "windows/process_resources.h"

namespace hexlume {
namespace {

void Cancel() {
  SheetWindow().Cancel();
}

// The sheet's own result, as a test wants it: systems differ in what it says where no page declares a change.
WNDPROC sheetProcedure;
LRESULT sheetResult;

LRESULT CALLBACK TellResult(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == PSM_GETRESULT) return sheetResult;
  return CallWindowProcW(sheetProcedure, window, message, wParam, lParam);
}

void LetTellResult(HWND sheet, LRESULT result) {
  sheetResult = result;
  sheetProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(sheet, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&TellResult)));
}

class Exits : public DialogTest {
 protected:
  static void NoUser() {}

  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
  const Numbers all = {0, 1, 2};
};

// Cancel

TEST_F(Exits, cancel_of_the_whole_sheet_gives_16_and_no_metafile) {
  ExpectCancelled(Whole(three, 1, Cancel));
}

TEST_F(Exits, cancel_of_a_part_of_the_sheet_gives_16_and_no_metafile) {
  ExpectCancelled(Part(three, 1, Cancel));
}

TEST_F(Exits, cancel_of_full_size_gives_16_and_no_metafile) {
  ExpectCancelled(FullSize(three, 1, Cancel));
}

TEST_F(Exits, escape_is_cancel) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    Press(VK_ESCAPE);
    WaitUntilGone(sheet.window);
  }));
}

TEST_F(Exits, the_button_that_closes_the_window_is_cancel) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    ClickClose(sheet.window);
    WaitUntilGone(sheet.window);
  }));
}

TEST_F(Exits, alt_and_f4_are_cancel) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    PressTogether(VK_MENU, VK_F4);
    WaitUntilGone(sheet.window);
  }));
}

TEST_F(Exits, cancel_on_the_page_of_the_line_types_is_cancel) {
  ExpectCancelled(Select(three, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xxxx");
    sheet.Cancel();
  }));
}

TEST_F(Exits, a_message_that_closes_the_window_is_cancel) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    PostMessageW(sheet.window, WM_CLOSE, 0, 0);
    WaitUntilGone(sheet.window);
  }));
}

TEST_F(Exits, ok_is_ok_whatever_the_sheets_own_result_is) {
  for (const LRESULT result : {0, -1}) {
    const Conversion drawn = Select(three, [&] {
      const SheetWindow sheet;
      LetTellResult(sheet.window, result);
      sheet.ClickBox(1);
      sheet.ExpectTicks("x-x");
      sheet.Ok();
    });
    EXPECT_EQ(0, drawn.code);
    EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
  }
}

TEST_F(Exits, cancel_is_cancel_whatever_the_sheets_own_result_is) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    LetTellResult(sheet.window, 1);
    sheet.Cancel();
  }));
}

TEST_F(Exits, cancel_after_an_apply_is_cancel) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    Ask(sheet.window, PSM_APPLY);
    sheet.Cancel();
  }));
}

TEST_F(Exits, what_was_unticked_before_a_cancel_is_forgotten) {
  ExpectCancelled(Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xx");
    sheet.Cancel();
  }));
  EXPECT_EQ(all, Whole(three, 0, NoUser).Lines());
}

TEST_F(Exits, after_a_cancel_each_conversion_works) {
  ExpectCancelled(Whole(three, 1, Cancel));
  EXPECT_EQ((Numbers{0, 2}), Whole(three, 1, Untick({1})).Lines());
  ExpectCancelled(Part(three, 1, Cancel));
  EXPECT_EQ((Numbers{0, 2}), Part(three, 1, Untick({1})).Lines());
  ExpectCancelled(FullSize(three, 1, Cancel));
  EXPECT_EQ((Numbers{0, 2}), FullSize(three, 1, Untick({1})).Lines());
}

TEST_F(Exits, a_turn_after_a_cancel_repeats_the_conversion_before_it) {
  EXPECT_EQ((Numbers{0, 2}), Whole(three, 1, Untick({1})).Lines());
  ExpectCancelled(Whole(LayersDrawing({{"A", 7}}), 1, Cancel));
  EXPECT_EQ((Numbers{0, 2}), Turned().TurnedLines());
  ExpectCancelled(FullSize(LayersDrawing({{"A", 7}}), 1, Cancel));
  EXPECT_EQ((Numbers{0, 2}), Turned().TurnedLines());
}

TEST_F(Exits, a_turn_after_nothing_but_a_cancel_has_nothing_to_repeat) {
  ExpectCancelled(Whole(three, 1, Cancel));
  EXPECT_EQ(30, Turned().code);
}

// The short way

TEST_F(Exits, the_short_way_makes_a_metafile_of_nothing_with_the_sheet_as_its_frame) {
  const std::string frozen = LayersDrawing({{"A", 7, 1}});
  for (const Conversion& conversion :
       {Whole(frozen, 1, PressOkOnSheet), FullSize(frozen, 1, PressOkOnSheet)}) {
    EXPECT_EQ(0, conversion.code);
    EXPECT_TRUE(conversion.hasMetafile);
    EXPECT_EQ("Frame(0, 0, 30000, 20000)\n", conversion.listing);
  }
}

TEST_F(Exits, the_short_way_of_a_part_of_the_sheet_has_the_part_as_its_frame) {
  const Conversion drawn = Part(three, 1, Untick({0, 1, 2}), {1000, 2000, 11000, 9000});
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ("Frame(1000, 2000, 11000, 9000)\n", drawn.listing);
}

TEST_F(Exits, after_the_short_way_the_next_conversion_works) {
  EXPECT_EQ(onlyFrame, Part(three, 1, Untick({0, 1, 2})).listing);
  EXPECT_EQ(all, Part(three, 1, PressOkOnSheet).Lines());
}

// Which dialogs show

TEST_F(Exits, only_1_shows_the_sheet) {
  for (const int32_t showDialogs : {0, 2, -1}) {
    EXPECT_EQ(all, Whole(three, showDialogs, NoUser).Lines());
    EXPECT_EQ(all, Part(three, showDialogs, NoUser).Lines());
    EXPECT_EQ(all, FullSize(three, showDialogs, NoUser).Lines());
  }
}

TEST_F(Exits, a_drawing_that_fits_shows_the_sheet_and_no_size_dialog) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;  // the first dialog that comes
    EXPECT_EQ(1, CountDialogs());
    sheet.Ok();
  });
  EXPECT_EQ(all, drawn.Lines());
}

TEST_F(Exits, beyond_a0_the_sheet_comes_behind_the_size_dialog) {
  const Conversion drawn = Select(LargeDrawing(), [] {
    const SizeWindow size;
    EXPECT_EQ(1, CountDialogs());
    size.Ok();
    const SheetWindow sheet;
    EXPECT_EQ(1, CountDialogs());
    sheet.Ok();
  });
  EXPECT_EQ(0, drawn.code);
  // 2000 by 1500 mm at 1:100.
  EXPECT_EQ("Frame(0, 0, 2000, 1500)", drawn.Frame());
}

TEST_F(Exits, cancel_of_the_size_dialog_shows_no_sheet) {
  const auto cancel = [] { SizeWindow().Cancel(); };
  ExpectCancelled(Whole(LargeDrawing(), 1, cancel));
  ExpectCancelled(Part(LargeDrawing(), 1, cancel));
  ExpectCancelled(FullSize(LargeDrawing(), 1, cancel));
}

TEST_F(Exits, cancel_of_the_sheet_behind_the_size_dialog_cancels_all) {
  ExpectCancelled(Select(LargeDrawing(), [] {
    SizeWindow().Ok();
    SheetWindow().Cancel();
  }));
}

TEST_F(Exits, a_file_that_is_no_drawing_shows_no_sheet) {
  EXPECT_EQ(30, Whole("0 EOF\n", 1, NoUser).code);
}

// Where no window can be made

INT_PTR WINAPI MakeNoSheet(const PROPSHEETHEADERW*) {
  return -1;
}

HWND WINAPI MakeNoDialog(HINSTANCE, const wchar_t*, HWND, DLGPROC, LPARAM) {
  return nullptr;
}

class NoWindows : public Exits {
 protected:
  // Each conversion draws with dialogs what it draws without them.
  void ExpectAsWithoutDialogs(const std::string& drawing) {
    const ImportPatch<decltype(PropertySheetW)> sheet(GetModuleHandleW(L"Hexlume.dll"), "PropertySheetW",
                                                      &MakeNoSheet);
    const ImportPatch<decltype(CreateDialogParamW)> dialog(GetModuleHandleW(L"Hexlume.dll"),
                                                           "CreateDialogParamW", &MakeNoDialog);
    for (const int32_t showDialogs : {1, 2}) {
      ExpectSame(Whole(drawing, 0, NoUser), Whole(drawing, showDialogs, NoUser));
      ExpectSame(Part(drawing, 0, NoUser), Part(drawing, showDialogs, NoUser));
      ExpectSame(FullSize(drawing, 0, NoUser), FullSize(drawing, showDialogs, NoUser));
    }
  }

  static void ExpectSame(const Conversion& without, const Conversion& with) {
    EXPECT_EQ(0, with.code);
    EXPECT_EQ(without.listing, with.listing);
  }
};

TEST_F(NoWindows, a_drawing_without_layers_is_drawn_as_without_dialogs) {
  ExpectAsWithoutDialogs(LayersDrawing({}, {"A"}));
}

TEST_F(NoWindows, a_drawing_with_hidden_layers_is_drawn_as_without_dialogs) {
  ExpectAsWithoutDialogs(LayersDrawing({{"A", 7}, {"B", -7}, {"C", 7, 1}}));
}

TEST_F(NoWindows, a_drawing_beyond_a0_keeps_the_fractions_of_its_size) {
  // 2000.95 / 100 * 100 + 0.1 = 2001.05; whole millimetres give 2000.
  std::string drawing = LargeDrawing();
  for (size_t at = drawing.find("10 2000\n"); at != std::string::npos; at = drawing.find("10 2000\n"))
    drawing.replace(at, 8, "10 2000.95\n");
  ExpectAsWithoutDialogs(drawing);
  EXPECT_EQ("Frame(0, 0, 2001, 1500)", Whole(drawing, 0, NoUser).Frame());
}

// The twins with a monochrome switch

class MonochromeExits : public Exits {
 protected:
  // A red line on a layer with no tick and one on a layer with one.
  const std::string red = LayersDrawing({{"A", 1}, {"B", 1}});
  const User untickFirst = Untick({0});

  static void ExpectSecondLineInBlack(const Conversion& conversion) {
    EXPECT_EQ(0, conversion.code);
    EXPECT_EQ((Numbers{1}), conversion.Lines());
    EXPECT_NE(std::string::npos, conversion.listing.find("CreatePen(1, PS_SOLID, 0, 0x000000)"));
  }
};

TEST_F(MonochromeExits, the_whole_sheet_shows_the_sheet_and_draws_what_is_left_in_black) {
  const char* path = Keep(red);
  ExpectSecondLineInBlack(
      Convert(untickFirst, [&](HENHMETAFILE* out) { return library.dxfMetaMake(path, out, 1, 0, 1); }));
}

TEST_F(MonochromeExits, a_part_of_the_sheet_shows_the_sheet_and_draws_what_is_left_in_black) {
  const char* path = Keep(red);
  ExpectSecondLineInBlack(Convert(untickFirst, [&](HENHMETAFILE* out) {
    return library.dxfReMetaMake(path, out, 0, {0, 0, 30000, 20000}, 0, 1, 1);
  }));
}

TEST_F(MonochromeExits, full_size_shows_the_sheet_and_draws_what_is_left_in_black) {
  const char* path = Keep(red);
  ExpectSecondLineInBlack(Convert(
      untickFirst, [&](HENHMETAFILE* out) { return library.dxfFullSizeMetaMake(path, out, 1, 0, 1); }));
}

TEST_F(MonochromeExits, a_cancel_gives_16_and_the_switch_stays) {
  const char* path = Keep(red);
  ExpectCancelled(
      Convert(Cancel, [&](HENHMETAFILE* out) { return library.dxfMetaMake(path, out, 1, 0, 1); }));
  ExpectSecondLineInBlack(Whole(red, 1, untickFirst));
}

// What is left in the process

class ManyTimes : public Exits {
 protected:
  // Both pages, and the cancel without a way of the mouse.
  void OpenAndCancel(int times) {
    for (int i = 0; i < times; ++i)
      ExpectCancelled(Convert(
          [] {
            const SheetWindow sheet;
            Ask(sheet.window, PSM_SETCURSEL, SheetWindow::lines);
            PostMessageW(sheet.window, WM_COMMAND, IDCANCEL, 0);
            WaitUntilGone(sheet.window);
          },
          [&](HENHMETAFILE* out) { return library.metaMake(path, out, 1, 0); }));
  }

  const char* path = Keep(three);
};

TEST_F(ManyTimes, five_hundred_sheets_leave_no_more_objects_than_ten) {
  OpenAndCancel(10);
  const size_t gdiObjects = CountGdiObjects(), userObjects = CountUserObjects();
  OpenAndCancel(490);
  EXPECT_EQ(gdiObjects, CountGdiObjects());
  EXPECT_EQ(userObjects, CountUserObjects());
}

TEST_F(ManyTimes, the_count_of_windows_sees_a_single_one) {
  const size_t before = CountUserObjects();
  const HMENU menu = CreateMenu();
  EXPECT_EQ(before + 1, CountUserObjects());
  DestroyMenu(menu);
  EXPECT_EQ(before, CountUserObjects());
}

}  // namespace
}  // namespace hexlume
