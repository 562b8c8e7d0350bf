#include "dialogs/toolkit/check_list_box.h"

#include <windowsx.h>

#include <algorithm>

#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/wide_text.h"

namespace hexlume {

namespace {

constexpr int boxMargin = 2;   // around a box, pixels
constexpr int textMargin = 2;  // left of a text, pixels

std::wstring RowText(HWND list, UINT row) {
  const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, row, 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  text.resize(
      static_cast<size_t>(SendMessageW(list, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()))));
  return text;
}

struct RowColors {
  int text, background;
};

RowColors ColorsOf(UINT itemState) {
  if (itemState & ODS_SELECTED) return {COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT};
  return {itemState & ODS_DISABLED ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT, COLOR_WINDOW};
}

}  // namespace

int CListBox::AddString(const char* text) {
  const std::wstring wide = WideText(text);
  return static_cast<int>(SendMessage(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wide.c_str())));
}

// The item data of a row is its check state.
int CCheckListBox::GetCheck(int row) const {
  const LRESULT check = SendMessage(LB_GETITEMDATA, static_cast<WPARAM>(row));
  return check == LB_ERR ? 0 : static_cast<int>(check);
}

void CCheckListBox::SetCheck(int row, int check) {
  if (row < 0) return;  // -1 would set all rows
  SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(row), check);
  if (!IsWindowVisible(m_hWnd)) return;  // a hidden list is drawn as a whole when it is shown
  RECT rect;
  if (SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect)) != LB_ERR)
    InvalidateRect(m_hWnd, &rect, FALSE);
}

void CCheckListBox::Toggle(int row) {
  SetCheck(row, GetCheck(row) == 1 ? 0 : 1);
}

LRESULT CCheckListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  FollowRows(message, wParam, lParam);
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      // A double click on a box counts as two clicks.
      const int row = BoxAt(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      if (row < 0) break;
      SetFocus(m_hWnd);
      SetCurSel(row);
      Toggle(row);
      return 0;
    }
    case WM_KEYDOWN: {
      if (wParam != VK_SPACE) break;
      const int row = static_cast<int>(SendMessage(LB_GETCARETINDEX));
      if (row >= 0 && row < GetCount()) Toggle(row);
      return 0;
    }
    case WM_CHAR:
      if (wParam == VK_SPACE) return 0;  // the list must not search for a row that begins with a blank
      break;
    case WM_SETFONT:
    case WM_THEMECHANGED: {
      const LRESULT result = CListBox::WindowProc(message, wParam, lParam);
      FitItemHeight();
      return result;
    }
  }
  return CListBox::WindowProc(message, wParam, lParam);
}

BOOL CCheckListBox::OnChildNotify(UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_DRAWITEM) return FALSE;
  DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
  return TRUE;
}

void CCheckListBox::PreSubclassWindow() {
  FitItemHeight();
}

// The row height is set here because WM_MEASUREITEM comes before the list has its font and its object.
void CCheckListBox::FitItemHeight() {
  m_image.Open(m_hWnd);
  TEXTMETRICW metrics = {};
  GetTextMetricsW(CFontDC(m_hWnd).m_hDC, &metrics);
  const LONG height = std::max(metrics.tmHeight, m_image.Size().cy + 2 * boxMargin - 1);
  SendMessage(LB_SETITEMHEIGHT, 0, height);
  InvalidateRect(m_hWnd, nullptr, TRUE);
}

int CCheckListBox::TextStart() const {
  return m_image.Size().cx + 2 * boxMargin;
}

// Returns the row at y in client coordinates, -1 if there is none.
int CCheckListBox::RowAt(int y) const {
  if (y < 0) return -1;
  const auto height = static_cast<int>(SendMessage(LB_GETITEMHEIGHT));
  const int row = static_cast<int>(SendMessage(LB_GETTOPINDEX)) + y / std::max(height, 1);
  return row < GetCount() ? row : -1;
}

// Returns the row whose check box is at a point in client coordinates, -1 if there is none.
int CCheckListBox::BoxAt(int x, int y) const {
  return x >= 0 && x < TextStart() ? RowAt(y) : -1;
}

bool CCheckListBox::IsCut(const std::wstring& text) const {
  SIZE size = {};
  GetTextExtentPoint32W(CFontDC(m_hWnd).m_hDC, text.data(), static_cast<int>(text.size()), &size);
  RECT inner = {};
  GetClientRect(m_hWnd, &inner);
  return TextStart() + textMargin + size.cx > inner.right;
}

void CCheckListBox::FollowPointer(int y) {
  const int row = RowAt(y);
  if (row == m_tip.Row()) return;
  RECT place = {};
  SendMessage(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
  const std::wstring text = row < 0 ? std::wstring() : RowText(m_hWnd, static_cast<UINT>(row));
  m_tip.SetRow(m_hWnd, row, place, IsCut(text) ? text : std::wstring());
}

// Shows the tooltip of the row under the pointer.
void CCheckListBox::FollowRows(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_KEYDOWN: m_tip.Clear(); break;
    case WM_MOUSEMOVE: FollowPointer(GET_Y_LPARAM(lParam)); [[fallthrough]];
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP: m_tip.Relay(message, wParam, lParam); break;
  }
}

void CCheckListBox::DrawItem(const DRAWITEMSTRUCT& item) {
  if (item.itemID == static_cast<UINT>(-1)) {  // an empty list that gains or loses the focus
    if (!(item.itemState & ODS_NOFOCUSRECT)) DrawFocusRect(item.hDC, &item.rcItem);
    return;
  }
  RECT column = item.rcItem;
  column.right = column.left + TextStart();
  FillRect(item.hDC, &column, GetSysColorBrush(COLOR_WINDOW));

  const SIZE size = m_image.Size();
  RECT box;
  box.left = column.left + boxMargin;
  box.top = (column.top + column.bottom - size.cy) / 2;
  box.right = box.left + size.cx;
  box.bottom = box.top + size.cy;
  const bool enabled = !(item.itemState & ODS_DISABLED);
  m_image.Draw(item.hDC, box, GetCheck(static_cast<int>(item.itemID)) == 1, enabled);

  RECT rest = item.rcItem;
  rest.left = column.right;
  DrawText(item, rest);
}

void CCheckListBox::DrawText(const DRAWITEMSTRUCT& item, RECT rect) {
  const std::wstring text = RowText(m_hWnd, item.itemID);
  const RowColors colors = ColorsOf(item.itemState);
  const COLORREF textBefore = SetTextColor(item.hDC, GetSysColor(colors.text));
  const COLORREF backgroundBefore = SetBkColor(item.hDC, GetSysColor(colors.background));
  TEXTMETRICW metrics = {};
  GetTextMetricsW(item.hDC, &metrics);
  const int y = (rect.top + rect.bottom - metrics.tmHeight) / 2;
  ExtTextOutW(item.hDC, rect.left + textMargin, y, ETO_OPAQUE | ETO_CLIPPED, &rect, text.data(),
              static_cast<UINT>(text.size()), nullptr);
  SetTextColor(item.hDC, textBefore);
  SetBkColor(item.hDC, backgroundBefore);
  if (item.itemState & ODS_FOCUS && !(item.itemState & ODS_NOFOCUSRECT)) DrawFocusRect(item.hDC, &rect);
}

}  // namespace hexlume
