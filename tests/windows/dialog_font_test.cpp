// The font of the dialogs: that of their templates, or the menu's.
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <map>
#include <set>

#include "windows/dialog_test.h"
#include "windows/process_resources.h"

namespace hexlume::dialog_font_test {
namespace {

using Texts = std::set<std::wstring>;

// As "Face 12 400 upright 128".
std::wstring Described(HFONT handle) {
  LOGFONTW font = {};
  if (GetObjectW(handle, sizeof font, &font) == 0) return L"none";
  return std::wstring(font.lfFaceName) + L' ' + std::to_wstring(font.lfHeight) + L' ' +
         std::to_wstring(font.lfWeight) + (font.lfItalic ? L" italic " : L" upright ") +
         std::to_wstring(font.lfCharSet);
}

std::wstring FontOf(HWND window) {
  return Described(reinterpret_cast<HFONT>(Ask(window, WM_GETFONT)));
}

bool IsDialog(HWND window) {
  wchar_t name[16] = L"";
  GetClassNameW(window, name, 16);
  return std::wstring(name) == L"#32770";
}

struct Fonts {
  Texts all;
  int windows = 0;
};

// A dialog returns the font that it was made with, whatever was set since.
BOOL CALLBACK AddFont(HWND window, LPARAM parameter) {
  auto& fonts = *reinterpret_cast<Fonts*>(parameter);
  if (!IsDialog(window)) fonts.all.insert(FontOf(window));
  ++fonts.windows;
  return TRUE;
}

// Those of all controls within a window, and the number of windows there.
Fonts FontsIn(HWND window) {
  Fonts fonts;
  EnumChildWindows(window, AddFont, reinterpret_cast<LPARAM>(&fonts));
  return fonts;
}

// The font that each window of a thread was given last, and whether it was to be drawn anew.
using GivenFonts = std::map<HWND, std::wstring>;
GivenFonts given;

LRESULT CALLBACK SeeMessage(int code, WPARAM wParam, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && message.message == WM_SETFONT)
    given[message.hwnd] =
        Described(reinterpret_cast<HFONT>(message.wParam)) + (message.lParam ? L" drawn" : L"");
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

class FontsGiven {
 public:
  FontsGiven() { given.clear(); }
  ~FontsGiven() { UnhookWindowsHookEx(hook); }
  FontsGiven(const FontsGiven&) = delete;
  FontsGiven& operator=(const FontsGiven&) = delete;

  std::wstring operator[](HWND window) const { return given[window]; }

 private:
  const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, SeeMessage, nullptr, GetCurrentThreadId());
};

std::wstring CharacterSet() {
  const HDC screen = GetDC(nullptr);
  const int charset = GetTextCharset(screen);
  ReleaseDC(nullptr, screen);
  return std::to_wstring(charset);
}

// A menu font of the test's own, for its process alone.
class MenuFont {
 public:
  MenuFont(const wchar_t* face, LONG height) {
    before.cbSize = sizeof before;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof before, &before, 0);
    NONCLIENTMETRICSW changed = before;
    changed.lfMenuFont = {};
    changed.lfMenuFont.lfHeight = height;
    changed.lfMenuFont.lfWidth = 5;
    changed.lfMenuFont.lfWeight = 700;
    changed.lfMenuFont.lfItalic = 1;
    changed.lfMenuFont.lfUnderline = 1;
    changed.lfMenuFont.lfCharSet = SYMBOL_CHARSET;
    wcscpy(changed.lfMenuFont.lfFaceName, face);
    SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof changed, &changed, 0);
  }
  ~MenuFont() { SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof before, &before, 0); }
  MenuFont(const MenuFont&) = delete;
  MenuFont& operator=(const MenuFont&) = delete;

 private:
  NONCLIENTMETRICSW before = {};
};

class FontMode : public DialogTest {
 protected:
  // Sees the fonts of the whole sheet, with both pages made.
  void SeeSheet(const std::function<void(const SheetWindow&)>& see) {
    EXPECT_EQ(16, Select(layers, [&] {
                    SheetWindow sheet;
                    sheet.OpenPage(SheetWindow::lines);
                    see(sheet);
                    sheet.Cancel();
                  }).code);
  }
  void SeeSizeDialog(const std::function<void(const SizeWindow&)>& see) {
    EXPECT_EQ(16, Scale(LargeDrawing(), [&] {
                    const SizeWindow dialog;
                    see(dialog);
                    dialog.Cancel();
                  }).code);
  }

  void ExpectTemplateFont() {
    SeeSheet([&](const SheetWindow& sheet) {
      // The system's own windows of the sheet have its font.
      EXPECT_EQ(0u, FontsIn(sheet.window).all.count(menuFont));
      for (const HWND window : {sheet.Page(), sheet.List()}) ExpectTemplateFontOf(window);
    });
    SeeSizeDialog([&](const SizeWindow& dialog) {
      ExpectTemplateFontOf(dialog.window);
      const Fonts fonts = FontsIn(dialog.window);
      EXPECT_EQ(1u, fonts.all.size());
      ExpectTemplateFontOf(dialog.Combo());
    });
  }
  void ExpectTemplateFontOf(HWND window) {
    EXPECT_EQ(templateFont, FontOf(window).substr(0, templateFont.size()));
  }

  void ExpectMenuFont() {
    SeeSheet([&](const SheetWindow& sheet) { EXPECT_EQ((Texts{menuFont}), FontsIn(sheet.window).all); });
    SeeSizeDialog(
        [&](const SizeWindow& dialog) { EXPECT_EQ((Texts{menuFont}), FontsIn(dialog.window).all); });
  }

  const std::string layers = LayersDrawing({{"A", 7}, {"B", 7}});
  const MenuFont menu{L"Courier New", -17};
  // The height of the characters as that of the cell; width, underline and character set aren't the menu's.
  const std::wstring menuFont = L"Courier New 17 700 italic " + CharacterSet();
  // 9 points at 96 dots per inch: 9 * 96 / 72 = 12. The character set is given by the template alone.
  const std::wstring templateFont = L"ＭＳ Ｐゴシック -12 400 upright ";
};

TEST_F(FontMode, at_first_the_dialogs_have_the_templates_font) {
  ExpectTemplateFont();
}

TEST_F(FontMode, with_1_all_windows_have_the_menu_font) {
  library.dxfSetFontMode(1);
  ExpectMenuFont();
}

TEST_F(FontMode, with_1_the_sheets_buttons_tabs_and_lists_have_the_menu_font) {
  library.dxfSetFontMode(1);
  SeeSheet([&](const SheetWindow& sheet) {
    for (const HWND window :
         {ControlOf(sheet.window, IDOK), ControlOf(sheet.window, IDCANCEL), sheet.Tabs(), sheet.List()})
      EXPECT_EQ(menuFont, FontOf(window));
    Ask(sheet.window, PSM_SETCURSEL, SheetWindow::layers);
    EXPECT_EQ(menuFont, FontOf(sheet.List()));
    // The tabs, two pages with a list each, and at least two buttons.
    EXPECT_LE(7, FontsIn(sheet.window).windows);
  });
}

TEST_F(FontMode, with_1_the_size_dialogs_controls_have_the_menu_font) {
  library.dxfSetFontMode(1);
  SeeSizeDialog([&](const SizeWindow& dialog) {
    const Fonts fonts = FontsIn(dialog.window);
    EXPECT_EQ((Texts{menuFont}), fonts.all);
    // Thirteen controls, and the field of the scale.
    EXPECT_EQ(14, fonts.windows);
  });
}

TEST_F(FontMode, with_1_each_dialog_is_given_the_menu_font_and_drawn_anew) {
  library.dxfSetFontMode(1);
  const FontsGiven fonts;
  std::vector<HWND> dialogs;
  SeeSheet([&](const SheetWindow& sheet) {
    dialogs = {sheet.window, sheet.Page(), sheet.List()};
    Ask(sheet.window, PSM_SETCURSEL, SheetWindow::layers);
    dialogs.insert(dialogs.end(), {sheet.Page(), sheet.List()});
  });
  SeeSizeDialog([&](const SizeWindow& dialog) {
    dialogs.insert(dialogs.end(), {dialog.window, dialog.Combo()});
  });
  for (const HWND dialog : dialogs) EXPECT_EQ(menuFont + L" drawn", fonts[dialog]);
}

TEST_F(FontMode, without_it_no_dialog_is_given_the_menu_font) {
  const FontsGiven fonts;
  ExpectTemplateFont();
  for (const auto& [window, font] : given) EXPECT_NE(menuFont + L" drawn", font);
}

TEST_F(FontMode, with_1_a_cell_height_of_the_menu_stays) {
  const MenuFont cell(L"Courier New", 23);
  library.dxfSetFontMode(1);
  SeeSizeDialog([](const SizeWindow& dialog) {
    EXPECT_EQ(L"Courier New 23 700 italic " + CharacterSet(), FontOf(dialog.Combo()));
  });
}

TEST_F(FontMode, other_values_leave_the_templates_font) {
  for (const int mode : {0, 2, 255}) {
    library.dxfSetFontMode(static_cast<uint8_t>(mode));
    ExpectTemplateFont();
  }
}

TEST_F(FontMode, holds_for_later_conversions_until_the_next_call) {
  library.dxfSetFontMode(1);
  EXPECT_EQ(0, Whole(layers, 0, [] {}).code);
  ExpectMenuFont();
  ExpectMenuFont();
  library.dxfSetFontMode(0);
  ExpectTemplateFont();
}

TEST_F(FontMode, the_dialogs_are_answered_as_ever) {
  library.dxfSetFontMode(1);
  const Conversion drawn = Select(LayersDrawing({{"A", 7}, {"B", 7}, {"C", 7}}), [] {
    const SheetWindow sheet;
    sheet.ClickBox(1);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0, 2}), drawn.Lines());
  EXPECT_EQ("Frame(0, 0, 4000, 3000)", Scale(LargeDrawing(), [] {
                                         const SizeWindow dialog;
                                         dialog.SelectText();
                                         dialog.TypeAndSee("50", L"50");
                                         dialog.Ok();
                                       }).Frame());
}

int RowHeight(HWND list) {
  return static_cast<int>(Ask(list, LB_GETITEMHEIGHT));
}

TEST_F(FontMode, rows_are_as_high_as_a_large_font) {
  const MenuFont large(L"Courier New", -40);
  library.dxfSetFontMode(1);
  SeeSheet([](const SheetWindow& sheet) {
    EXPECT_EQ(40, RowHeight(sheet.List()));
    Ask(sheet.window, PSM_SETCURSEL, SheetWindow::layers);
    EXPECT_EQ(40, RowHeight(sheet.List()));
  });
}

// A box of 13 pixels, two above and one below it.
TEST_F(FontMode, rows_of_a_small_font_have_room_for_their_boxes) {
  const MenuFont little(L"Courier New", -6);
  library.dxfSetFontMode(1);
  SeeSheet([](const SheetWindow& sheet) { EXPECT_EQ(16, RowHeight(sheet.List())); });
}

TEST_F(FontMode, boxes_of_high_rows_are_drawn_and_clicked_in_their_middle) {
  const MenuFont large(L"Courier New", -40);
  library.dxfSetFontMode(1);
  const Conversion drawn = Select(layers, [] {
    const SheetWindow sheet;
    sheet.ExpectTick(1, true);
    sheet.ClickBox(1);
    sheet.ExpectTick(1, false);
    sheet.ExpectTick(0, true);
    sheet.Ok();
  });
  EXPECT_EQ((Numbers{0}), drawn.Lines());
}

TEST_F(FontMode, a_hundred_rounds_leave_no_object_behind) {
  library.dxfSetFontMode(1);
  const char* small_ = Keep(layers);
  const char* largeOne = Keep(LargeDrawing());
  const auto cancel = [](HWND window) { PostMessageW(window, WM_COMMAND, IDCANCEL, 0); };
  const auto rounds = [&](int count) {
    for (int round = 0; round < count; ++round) {
      Convert(
          [&] {
            const SheetWindow sheet;
            Ask(sheet.window, PSM_SETCURSEL, SheetWindow::lines);
            cancel(sheet.window);
          },
          [&](HENHMETAFILE* out) { return library.metaMake(small_, out, 1, 0); });
      Convert([&] { cancel(SizeWindow().window); },
              [&](HENHMETAFILE* out) { return library.metaMake(largeOne, out, 2, 0); });
    }
  };
  rounds(10);
  const size_t early = CountGdiObjects();
  rounds(100);
  EXPECT_EQ(early, CountGdiObjects());
}

}  // namespace
}  // namespace hexlume::dialog_font_test
