// The whole text of a list's row that is cut, as a tooltip while the pointer rests on it.
#pragma once

#include <windows.h>

#include <string>

namespace hexlume {

class RowTip {
 public:
  // The row that has the tip, or had no need of one; -1 if none.
  int Row() const { return m_row; }

  // The pointer is on this row of the list. The text is what its tip shows, "" for none.
  void SetRow(HWND list, int row, const RECT& place, const std::wstring& text);
  // The rows may have moved under the pointer.
  void Clear();

  // What the pointer does in the list.
  void Relay(UINT message, WPARAM wParam, LPARAM lParam) const;

 private:
  void Make();

  HWND m_list = nullptr;
  HWND m_tip = nullptr;  // goes with the list's dialog, which owns it
  int m_row = -1;
  bool m_hasTool = false;
};

}  // namespace hexlume
