// A tooltip with the full text of a list row that is cut off.
#pragma once

#include <windows.h>

#include <string>

namespace hexlume {

class RowTip {
 public:
  // Returns the row last passed to SetRow, with or without a tooltip; -1 if none.
  int Row() const { return m_row; }

  // Called when the pointer moves to a row. text is shown in the tooltip; if it is empty, there
  // is no tooltip.
  void SetRow(HWND list, int row, const RECT& place, const std::wstring& text);
  // Removes the tooltip, as the rows may have moved under the pointer.
  void Clear();

  // Passes a mouse message of the list to the tooltip.
  void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  void Make();

  HWND m_list = nullptr;
  HWND m_tip = nullptr;  // destroyed with the list's dialog, which owns it
  int m_row = -1;
  bool m_hasTool = false;
};

}  // namespace hexlume
