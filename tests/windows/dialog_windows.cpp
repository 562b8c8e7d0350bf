#include "windows/dialog_windows.h"

#include <commctrl.h>
#include <prsht.h>

#include <stdexcept>

namespace hexlume {

namespace {

constexpr int rowsId = 1003, scaleId = 1009, widthId = 1010, heightId = 1011;

// In a row's left end, where its box is, and in its text.
constexpr int inBox = 8, inText = 30;

// A click on a button, and the dialog is gone.
void Push(HWND dialog, int button) {
  ClickMiddle(ControlOf(dialog, button));
  WaitUntilGone(dialog);
}

// The pixels of a place of the screen that aren't white.
int CountMarks(const RECT& place) {
  const HDC screen = GetDC(nullptr);
  int marks = 0;
  for (LONG y = place.top; y < place.bottom; ++y)
    for (LONG x = place.left; x < place.right; ++x) marks += GetPixel(screen, x, y) != 0xFFFFFF;
  ReleaseDC(nullptr, screen);
  return marks;
}

BOOL CALLBACK TakeShownTip(HWND window, LPARAM found) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t name[32] = L"";
  GetClassNameW(window, name, 32);
  const bool isTip = std::wstring(name) == TOOLTIPS_CLASSW;
  if (process != GetCurrentProcessId() || !isTip || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

SheetWindow::SheetWindow() : window(WaitForDialog(L"レイヤ/線種選択")) {
  WaitForFocus(window);
}

HWND SheetWindow::Tabs() const {
  return reinterpret_cast<HWND>(Ask(window, PSM_GETTABCONTROL));
}

HWND SheetWindow::Page() const {
  return reinterpret_cast<HWND>(Ask(window, PSM_GETCURRENTPAGEHWND));
}

HWND SheetWindow::List() const {
  return ControlOf(Page(), rowsId);
}

void SheetWindow::OpenPage(int page) {
  RECT tab = {};
  Ask(Tabs(), TCM_GETITEMRECT, static_cast<WPARAM>(page), reinterpret_cast<LPARAM>(&tab));
  MapWindowPoints(Tabs(), nullptr, reinterpret_cast<POINT*>(&tab), 2);
  Click({(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2});
  WaitFor("page behind the tab",
          [&] { return Ask(Tabs(), TCM_GETCURSEL) == page && Page() && IsWindowVisible(Page()); });
  Ask(window, WM_NULL);
}

std::vector<std::wstring> SheetWindow::Rows() const {
  std::vector<std::wstring> rows;
  const LRESULT count = Ask(List(), LB_GETCOUNT);
  for (LRESULT row = 0; row < count; ++row) {
    std::wstring text(static_cast<size_t>(Ask(List(), LB_GETTEXTLEN, static_cast<WPARAM>(row))), L'\0');
    Ask(List(), LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text.data()));
    rows.push_back(text);
  }
  return rows;
}

int SheetWindow::Selected() const {
  return static_cast<int>(Ask(List(), LB_GETCURSEL));
}

RECT SheetWindow::RowPlace(int row) const {
  RECT place = {};
  if (Ask(List(), LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place)) == LB_ERR)
    throw std::runtime_error("the list has no row " + std::to_string(row));
  MapWindowPoints(List(), nullptr, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

POINT SheetWindow::BoxPlace(int row) const {
  const RECT place = RowPlace(row);
  return {place.left + Scaled(inBox), (place.top + place.bottom) / 2};
}

POINT SheetWindow::TextPlace(int row) const {
  const RECT place = RowPlace(row);
  return {place.left + Scaled(inText), (place.top + place.bottom) / 2};
}

// Inside the box's frame there is nothing or a tick.
bool SheetWindow::IsTicked(int row) const {
  Ask(List(), WM_NULL);
  UpdateWindow(List());
  const POINT middle = BoxPlace(row);
  const int reach = Scaled(3);
  return CountMarks({middle.x - reach, middle.y - reach, middle.x + reach + 1, middle.y + reach + 1}) > 5;
}

void SheetWindow::ExpectTicks(const std::string& ticks) const {
  std::string seen;
  try {
    WaitFor("such ticks", [&] {
      seen.clear();
      for (size_t row = 0; row < ticks.size(); ++row) seen += IsTicked(static_cast<int>(row)) ? 'x' : '-';
      return seen == ticks;
    });
  } catch (const std::runtime_error&) {
    throw std::runtime_error("the ticks are \"" + seen + "\" and not \"" + ticks + '"');
  }
}

void SheetWindow::ExpectTick(int row, bool ticked) const {
  WaitFor((ticked ? "tick in row " : "row without a tick, number ") + std::to_string(row),
          [&] { return IsTicked(row) == ticked; });
}

void SheetWindow::ExpectSelected(int row) const {
  WaitFor("selection of row " + std::to_string(row), [&] { return Selected() == row; });
}

HWND SheetWindow::Tip() {
  HWND tip = nullptr;
  EnumWindows(TakeShownTip, reinterpret_cast<LPARAM>(&tip));
  return tip;
}

void SheetWindow::PointAtText(int row) const {
  PointAt(TextPlace(row));
}

void SheetWindow::ClickBox(int row) const {
  Click(BoxPlace(row));
}

void SheetWindow::ClickText(int row) const {
  Click(TextPlace(row));
}

void SheetWindow::DoubleClickText(int row) const {
  DoubleClick(TextPlace(row));
}

void SheetWindow::DoubleClickBox(int row) const {
  DoubleClick(BoxPlace(row));
}

void SheetWindow::Ok() const {
  Push(window, IDOK);
}

void SheetWindow::Cancel() const {
  Push(window, IDCANCEL);
}

SizeWindow::SizeWindow() : window(WaitForDialog(L"図面サイズ")) {
  WaitForFocus(window);
}

HWND SizeWindow::Combo() const {
  return ControlOf(window, scaleId);
}

std::wstring SizeWindow::Scale() const {
  return TextOf(Combo());
}

std::wstring SizeWindow::Width() const {
  return TextOf(ControlOf(window, widthId));
}

std::wstring SizeWindow::Height() const {
  return TextOf(ControlOf(window, heightId));
}

void SizeWindow::GoBehindText() const {
  SelectText();
  Press(VK_END);
}

void SizeWindow::SelectText() const {
  const RECT place = PlaceOf(Combo());
  Click({place.left + 8, (place.top + place.bottom) / 2});
  Press(VK_HOME);
  PressTogether(VK_SHIFT, VK_END);
}

void SizeWindow::ClickRow(int row) const {
  COMBOBOXINFO parts = {};
  parts.cbSize = sizeof parts;
  Ask(Combo(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&parts));
  RECT button = parts.rcButton;
  MapWindowPoints(Combo(), nullptr, reinterpret_cast<POINT*>(&button), 2);
  Click({(button.left + button.right) / 2, (button.top + button.bottom) / 2});
  WaitFor("open list", [&] { return IsWindowVisible(parts.hwndList) != 0; });
  RECT place = {};
  Ask(parts.hwndList, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  MapWindowPoints(parts.hwndList, nullptr, reinterpret_cast<POINT*>(&place), 2);
  Click({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
  WaitFor("closed list", [&] { return !IsWindowVisible(parts.hwndList); });
}

void SizeWindow::ExpectScale(const std::wstring& shown) const {
  std::wstring seen;
  try {
    WaitFor("scale", [&] { return (seen = Scale()) == shown; });
  } catch (const std::runtime_error&) {
    throw std::runtime_error("the scale is \"" + std::string(seen.begin(), seen.end()) + "\" and not \"" +
                             std::string(shown.begin(), shown.end()) + "\"");
  }
}

void SizeWindow::TypeAndSee(const std::string& typed, const std::wstring& shown) const {
  Type(typed);
  ExpectScale(shown);
}

void SizeWindow::PressAndSee(WORD key, const std::wstring& shown) const {
  Press(key);
  ExpectScale(shown);
}

void SizeWindow::Ok() const {
  Push(window, IDOK);
}

void SizeWindow::Cancel() const {
  Push(window, IDCANCEL);
}

std::function<void()> Untick(const std::vector<int>& rows, int page) {
  return [rows, page] {
    SheetWindow sheet;
    if (page != SheetWindow::layers) sheet.OpenPage(page);
    for (const int row : rows) {
      sheet.ClickBox(row);
      sheet.ExpectTick(row, false);
    }
    sheet.Ok();
  };
}

void PressOkOnSheet() {
  SheetWindow().Ok();
}

void PressOkOnSizeDialog() {
  SizeWindow().Ok();
}

}  // namespace hexlume
