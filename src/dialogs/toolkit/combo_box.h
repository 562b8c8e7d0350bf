#pragma once

#include "dialogs/toolkit/wnd.h"

namespace hexlume {

class CComboBox : public CWnd {
 public:
  int AddString(const char* text);
  int GetCurSel() const { return static_cast<int>(SendMessage(CB_GETCURSEL)); }
  int SetCurSel(int row) { return static_cast<int>(SendMessage(CB_SETCURSEL, static_cast<WPARAM>(row))); }
  // Sets the selection of the edit field, in characters.
  BOOL SetEditSel(int start, int end) {
    return static_cast<BOOL>(SendMessage(CB_SETEDITSEL, 0, MAKELPARAM(start, end)));
  }
};

}  // namespace hexlume
