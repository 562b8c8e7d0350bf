// A list with a check box in front of each row: an owner-drawn list that keeps its texts.
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

// A click on a box and the space key turn the row's tick round. A text that is cut shows whole in a tooltip.
class CCheckListBox : public CListBox {
 public:
  // 1 for a row with a tick, 0 for one without and for one that isn't there.
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
