// The sheet around the pages: its parts, their places, and the keys that work on all of it.
#include "windows/dialog_test.h"

#include <commctrl.h>

#include <cstdlib>
#include <tuple>

namespace hexlume::dialog_sheet_test {
namespace {

// A process that isn't aware of the screen's resolution is given 96 dots per inch whatever it is.
const BOOL isAware = SetProcessDPIAware();

constexpr int applyId = 0x3021, helpId = 9, listId = 1003;

int Width(const RECT& place) {
  return place.right - place.left;
}

int Height(const RECT& place) {
  return place.bottom - place.top;
}

void ExpectPlace(const RECT& expected, const RECT& place) {
  const auto numbers = [](const RECT& r) { return std::make_tuple(r.left, r.top, r.right, r.bottom); };
  EXPECT_EQ(numbers(expected), numbers(place));
}

void ExpectInside(const RECT& outer, const RECT& inner) {
  EXPECT_LE(outer.left, inner.left);
  EXPECT_LE(outer.top, inner.top);
  EXPECT_GE(outer.right, inner.right);
  EXPECT_GE(outer.bottom, inner.bottom);
}

bool IsShown(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  return control && IsWindowVisible(control);
}

class Sheet : public DialogTest {
 protected:
  static std::wstring TabText(const SheetWindow& sheet, int page) {
    wchar_t text[64] = L"";
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 64;
    Ask(sheet.Tabs(), TCM_GETITEMW, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&item));
    return text;
  }

  static int ActivePage(const SheetWindow& sheet) {
    return static_cast<int>(Ask(sheet.Tabs(), TCM_GETCURSEL));
  }

  // With all that comes with it.
  static void WaitForPage(const SheetWindow& sheet, int page) {
    WaitFor("page", [&] { return ActivePage(sheet) == page && IsWindowVisible(sheet.Page()); });
    Ask(sheet.window, WM_NULL);
  }

  // What the tabs leave for pages, on the screen.
  static RECT RoomForPages(const SheetWindow& sheet) {
    RECT room = PlaceOf(sheet.Tabs());
    Ask(sheet.Tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&room));
    return room;
  }

  static RECT InnerRoom(const SheetWindow& sheet) {
    RECT inner = {};
    GetClientRect(sheet.window, &inner);
    return inner;
  }

  // Looks at the sheet and cancels.
  void Look(const std::function<void(SheetWindow&)>& look) {
    Select(three, [&] {
      SheetWindow sheet;
      look(sheet);
      sheet.Cancel();
    });
  }

  const std::string three = LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}});
};

// Parts

TEST_F(Sheet, its_caption_tells_that_layers_and_line_types_are_chosen) {
  Look([](const SheetWindow& sheet) { EXPECT_EQ(L"レイヤ/線種選択", TextOf(sheet.window)); });
}

TEST_F(Sheet, its_tabs_are_layers_and_line_types) {
  Look([](const SheetWindow& sheet) {
    EXPECT_EQ(2, Ask(sheet.Tabs(), TCM_GETITEMCOUNT));
    EXPECT_EQ(L"レイヤ名", TabText(sheet, 0));
    EXPECT_EQ(L"線種", TabText(sheet, 1));
  });
}

TEST_F(Sheet, it_has_ok_and_cancel_and_no_apply_and_no_help) {
  Look([](const SheetWindow& sheet) {
    EXPECT_TRUE(IsShown(sheet.window, IDOK));
    EXPECT_TRUE(IsShown(sheet.window, IDCANCEL));
    EXPECT_FALSE(IsShown(sheet.window, applyId));
    EXPECT_FALSE(IsShown(sheet.window, helpId));
  });
}

TEST_F(Sheet, the_layers_come_first_with_the_focus_on_their_list) {
  Look([](const SheetWindow& sheet) {
    EXPECT_EQ(0, ActivePage(sheet));
    EXPECT_EQ(sheet.List(), FocusBeside(sheet.window));
  });
}

TEST_F(Sheet, a_change_enables_nothing_and_shows_no_apply_button) {
  Look([](const SheetWindow& sheet) {
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xx");
    EXPECT_FALSE(IsShown(sheet.window, applyId));
  });
}

// Places. The pages' template is 119 by 165 dialog units, and its list is at 7, 7 with 106 by 150.
// Distances in pixels are given for 96 dots per inch, and grow with the resolution.

constexpr const char* resolutionVariable = "HEXLUME_TEST_RESOLUTION";

class SheetPlaces : public Sheet {
 protected:
  void SetUp() override {
    if (const char* expected = std::getenv(resolutionVariable)) {
      ASSERT_EQ(std::atoi(expected), Resolution());
    }
  }

  static RECT ExpectedTabs(const SheetWindow& sheet) {
    const RECT inner = InnerRoom(sheet);
    return {Scaled(7), Scaled(7), inner.right - Scaled(7), inner.bottom - Scaled(35)};
  }
};

TEST_F(SheetPlaces, its_size_goes_by_the_page_and_the_buttons) {
  Look([](const SheetWindow& sheet) {
    const RECT page = DialogUnits(sheet.Page(), {0, 0, 119, 165});
    const RECT ok = PlaceOf(ControlOf(sheet.window, IDOK));
    const RECT place = PlaceOf(sheet.window);
    EXPECT_EQ(page.right + Scaled(29), Width(place));
    EXPECT_EQ(page.bottom + Height(ok) + Scaled(70), Height(place));
  });
}

TEST_F(SheetPlaces, its_buttons_keep_the_system_s_size) {
  Look([](const SheetWindow& sheet) {
    const RECT size = DialogUnits(sheet.window, {0, 0, 50, 14});
    for (const int id : {IDOK, IDCANCEL}) {
      const RECT button = PlaceOf(ControlOf(sheet.window, id));
      EXPECT_EQ(size.right, Width(button));
      EXPECT_EQ(size.bottom, Height(button));
    }
  });
}

TEST_F(SheetPlaces, cancel_stands_in_its_lower_right_corner_and_ok_left_of_it) {
  Look([](const SheetWindow& sheet) {
    const RECT place = PlaceOf(sheet.window);
    const RECT ok = PlaceOf(ControlOf(sheet.window, IDOK));
    const RECT cancel = PlaceOf(ControlOf(sheet.window, IDCANCEL));
    const int width = Width(ok), height = Height(ok);
    const LONG right = place.right - Scaled(9), bottom = place.bottom - Scaled(7);
    ExpectPlace({right - width, bottom - height, right, bottom}, cancel);
    const LONG okRight = right - width - Scaled(7);
    ExpectPlace({okRight - width, bottom - height, okRight, bottom}, ok);
  });
}

TEST_F(SheetPlaces, its_tabs_leave_7_points_around_and_35_below) {
  Look([](const SheetWindow& sheet) {
    ExpectPlace(ExpectedTabs(sheet), PlaceIn(sheet.window, sheet.Tabs()));
  });
}

TEST_F(SheetPlaces, its_tabs_do_not_cover_the_buttons) {
  Look([](const SheetWindow& sheet) {
    const LONG tabs = PlaceOf(sheet.Tabs()).bottom;
    EXPECT_LE(tabs, PlaceOf(ControlOf(sheet.window, IDOK)).top);
    EXPECT_LE(tabs, PlaceOf(ControlOf(sheet.window, IDCANCEL)).top);
  });
}

TEST_F(SheetPlaces, both_pages_lie_in_the_same_place_within_the_tabs) {
  Look([](SheetWindow& sheet) {
    const RECT first = PlaceOf(sheet.Page());
    ExpectInside(RoomForPages(sheet), first);
    sheet.OpenPage(SheetWindow::lines);
    ExpectPlace(first, PlaceOf(sheet.Page()));
    sheet.OpenPage(SheetWindow::layers);
    ExpectPlace(first, PlaceOf(sheet.Page()));
  });
}

TEST_F(SheetPlaces, the_list_of_each_page_lies_where_the_template_puts_it_and_inside) {
  Look([](SheetWindow& sheet) {
    for (const int page : {SheetWindow::layers, SheetWindow::lines}) {
      sheet.OpenPage(page);
      // A place and a size are rounded each by itself.
      const RECT units = DialogUnits(sheet.Page(), {7, 7, 106, 150});
      const RECT place = {units.left, units.top, units.left + units.right, units.top + units.bottom};
      ExpectPlace(place, PlaceIn(sheet.Page(), sheet.List()));
      ExpectInside(PlaceOf(sheet.Page()), PlaceOf(sheet.List()));
    }
  });
}

TEST_F(SheetPlaces, it_comes_up_in_the_middle_of_the_screen) {
  Look([](const SheetWindow& sheet) {
    RECT screen = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
    const RECT place = PlaceOf(sheet.window);
    EXPECT_NEAR(screen.left + screen.right, place.left + place.right, 2);
    EXPECT_NEAR(screen.top + screen.bottom, place.top + place.bottom, 2);
  });
}

TEST_F(SheetPlaces, its_boxes_are_where_the_user_clicks) {
  Look([](const SheetWindow& sheet) {
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
  });
}

TEST_F(SheetPlaces, its_tabs_and_pages_follow_its_size) {
  Select(three, [] {
    SheetWindow sheet;
    sheet.OpenPage(SheetWindow::lines);
    const RECT before = PlaceOf(sheet.window);
    SetWindowPos(sheet.window, nullptr, 0, 0, Width(before) + 60, Height(before) + 40,
                 SWP_NOMOVE | SWP_NOZORDER);
    ExpectPlace(ExpectedTabs(sheet), PlaceIn(sheet.window, sheet.Tabs()));
    EXPECT_EQ(SheetWindow::lines, ActivePage(sheet));
    ExpectPlace(RoomForPages(sheet), PlaceOf(sheet.Page()));
    Press(VK_ESCAPE);  // the buttons stay where they were
    WaitUntilGone(sheet.window);
  });
}

// The same at other resolutions: a process sees the one that is set when it starts.
class SheetResolution : public testing::TestWithParam<DWORD> {
 protected:
  SheetResolution() {
    RegCreateKeyW(HKEY_CURRENT_USER, L"Control Panel\\Desktop", &key);
    DWORD size = sizeof before;
    if (RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&before), &size) != 0)
      before = 0;
    Set(GetParam());
  }
  ~SheetResolution() override {
    before ? Set(before) : static_cast<void>(RegDeleteValueW(key, name));
    RegCloseKey(key);
  }

  void Set(DWORD dotsPerInch) {
    RegSetValueExW(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&dotsPerInch), sizeof dotsPerInch);
  }

  // This program's exit status.
  static DWORD RunOwnTests(const std::string& filter) {
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, sizeof program);
    std::string command = "\"" + std::string(program) + "\" --gtest_brief=1 --gtest_filter=" + filter;
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION started = {};
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &started))
      return ~0u;
    if (WaitForSingleObject(started.hProcess, 120000) != WAIT_OBJECT_0) TerminateProcess(started.hProcess, 3);
    DWORD status = 0;
    GetExitCodeProcess(started.hProcess, &status);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    return status;
  }

 private:
  static constexpr const wchar_t* name = L"LogPixels";
  HKEY key = nullptr;
  DWORD before = 0;
};

TEST_P(SheetResolution, has_the_sheet_s_parts_in_the_same_places) {
  SetEnvironmentVariableA(resolutionVariable, std::to_string(GetParam()).c_str());
  EXPECT_EQ(0u, RunOwnTests("SheetPlaces.*"));
  SetEnvironmentVariableA(resolutionVariable, nullptr);
}

INSTANTIATE_TEST_SUITE_P(DotsPerInch, SheetResolution, testing::Values(120, 144, 192),
                         [](const auto& info) { return std::to_string(info.param); });

// Keys

TEST_F(Sheet, tab_goes_from_the_list_to_ok_to_cancel_to_the_tabs_and_back) {
  Look([](const SheetWindow& sheet) {
    const HWND stops[] = {ControlOf(sheet.window, IDOK), ControlOf(sheet.window, IDCANCEL), sheet.Tabs(),
                          sheet.List()};
    for (const HWND stop : stops) {
      Press(VK_TAB);
      WaitFor("focus on the next stop", [&] { return FocusBeside(sheet.window) == stop; });
    }
    const HWND back[] = {stops[2], stops[1], stops[0], stops[3]};
    for (const HWND stop : back) {
      PressTogether(VK_SHIFT, VK_TAB);
      WaitFor("focus on the stop before", [&] { return FocusBeside(sheet.window) == stop; });
    }
  });
}

TEST_F(Sheet, control_and_tab_change_the_page) {
  Look([](const SheetWindow& sheet) {
    for (const int page : {SheetWindow::lines, SheetWindow::layers}) {
      PressTogether(VK_CONTROL, VK_TAB);
      WaitForPage(sheet, page);
    }
    EXPECT_EQ(3u, sheet.Rows().size());
  });
}

TEST_F(Sheet, a_page_opened_by_keys_counts_as_opened) {
  const Conversion drawn = Select(FamiliesDrawing(), [] {
    const SheetWindow sheet;
    PressTogether(VK_CONTROL, VK_TAB);
    WaitForPage(sheet, SheetWindow::lines);
    sheet.ClickBox(0);
    sheet.ExpectTicks("-xxxx");
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{1, 2, 3, 4}), drawn.Lines());
}

TEST_F(Sheet, a_page_opened_by_keys_takes_the_keyboard_from_the_page_before) {
  const WORD back[] = {VK_TAB, VK_PRIOR}, forth[] = {VK_TAB, VK_NEXT};
  for (size_t i = 0; i < std::size(forth); ++i) {
    const Conversion drawn = Select(FamiliesDrawing(), [&] {
      const SheetWindow sheet;
      PressTogether(VK_CONTROL, forth[i]);
      WaitForPage(sheet, SheetWindow::lines);
      EXPECT_EQ(sheet.List(), FocusBeside(sheet.window));
      Press(VK_SPACE);
      sheet.ExpectTicks("-xxxx");
      PressTogether(VK_CONTROL, back[i]);
      WaitForPage(sheet, SheetWindow::layers);
      EXPECT_EQ(sheet.List(), FocusBeside(sheet.window));
      sheet.ExpectTicks("x");
      sheet.Ok();
    });
    EXPECT_EQ((Numbers{1, 2, 3, 4}), drawn.Lines());
  }
}

TEST_F(Sheet, a_page_opened_by_keys_leaves_the_keyboard_on_a_button_or_the_tabs) {
  Look([](const SheetWindow& sheet) {
    for (const HWND stop : {ControlOf(sheet.window, IDOK), ControlOf(sheet.window, IDCANCEL), sheet.Tabs()}) {
      Press(VK_TAB);
      WaitFor("focus on the next stop", [&] { return FocusBeside(sheet.window) == stop; });
      PressTogether(VK_CONTROL, VK_TAB);
      WaitForPage(sheet, SheetWindow::lines);
      PressTogether(VK_CONTROL, VK_TAB);
      WaitForPage(sheet, SheetWindow::layers);
      EXPECT_EQ(stop, FocusBeside(sheet.window));
    }
  });
}

TEST_F(Sheet, a_page_opened_by_its_tab_takes_the_keyboard_from_the_page_before) {
  Look([](SheetWindow& sheet) {
    EXPECT_EQ(sheet.List(), FocusBeside(sheet.window));
    sheet.OpenPage(SheetWindow::lines);
    Press(VK_SPACE);
    sheet.OpenPage(SheetWindow::layers);
    sheet.ExpectTicks("xxx");
  });
}

TEST_F(Sheet, enter_on_the_list_is_ok) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.ExpectTicks("x-x");
    Press(VK_RETURN);
    WaitUntilGone(sheet.window);
  });
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
}

TEST_F(Sheet, enter_on_cancel_is_cancel) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    const HWND cancel = ControlOf(sheet.window, IDCANCEL);
    Press(VK_TAB);
    Press(VK_TAB);
    WaitFor("focus on cancel", [&] { return FocusBeside(sheet.window) == cancel; });
    Press(VK_RETURN);
    WaitUntilGone(sheet.window);
  });
  EXPECT_EQ(16, drawn.code);
  EXPECT_FALSE(drawn.hasMetafile);
}

TEST_F(Sheet, space_on_ok_is_ok) {
  const Conversion drawn = Select(three, [] {
    const SheetWindow sheet;
    const HWND ok = ControlOf(sheet.window, IDOK);
    Press(VK_TAB);
    WaitFor("focus on OK", [&] { return FocusBeside(sheet.window) == ok; });
    Press(VK_SPACE);
    WaitUntilGone(sheet.window);
  });
  EXPECT_EQ(0, drawn.code);
  EXPECT_EQ((Numbers{0, 1, 2}), drawn.Lines());
}

}  // namespace
}  // namespace hexlume::dialog_sheet_test
