// A list with a check box at the left of each row: an owner-drawn list box with LBS_HASSTRINGS.
#pragma once

#include "dialogs/toolkit/check_box_image.h"
#include "dialogs/toolkit/row_tip.h"
#include "dialogs/toolkit/wnd.h"

namespace hexlume {

class CListBox : public CWnd {
 public:
  int AddString(const char* text);
  int GetCount() const { return static_cast<int>(SendMessage(LB_GETCOUNT)); }
  int GetCurSel() const { return static_cast<int>(SendMessage(LB_GETCURSEL)); }
  int SetCurSel(int row) { return static_cast<int>(SendMessage(LB_SETCURSEL, static_cast<WPARAM>(row))); }
};

// A click on a box or the space key toggles the row. A row whose text is cut off shows it in a tooltip.
class CCheckListBox : public CListBox {
 public:
  // Returns 1 for a ticked row, 0 for an unticked one and for a row that doesn't exist.
  int GetCheck(int row) const;
  void SetCheck(int row, int check);

 protected:
  void PreSubclassWindow() override;
  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
  BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void DrawItem(const DRAWITEMSTRUCT& item);
  void DrawText(const DRAWITEMSTRUCT& item, RECT rect);
  void FitItemHeight();
  int TextStart() const;
  int RowAt(int y) const;
  int BoxAt(int x, int y) const;
  void Toggle(int row);
  bool IsCut(const std::wstring& text) const;
  void FollowPointer(int y);
  void FollowRows(UINT message, WPARAM wParam, LPARAM lParam);

  CheckBoxImage m_image;
  RowTip m_tip;
};

}  // namespace hexlume
