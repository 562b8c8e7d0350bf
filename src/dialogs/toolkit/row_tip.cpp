#include "dialogs/toolkit/row_tip.h"

#include <commctrl.h>

#include <algorithm>

#include "dialogs/toolkit/gdi_objects.h"
#include "dialogs/toolkit/module.h"

namespace hexlume {

namespace {

// The first version of the record, which every version of the common controls accepts.
TOOLINFOW Tool(HWND list) {
  TOOLINFOW tool = {};
  tool.cbSize = TTTOOLINFOW_V1_SIZE;
  tool.hwnd = list;
  return tool;
}

int ScreenWidth(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork.right - monitor.rcWork.left;
}

// Breaks the text into lines of at most this width. A tooltip breaks only at blanks, and a name
// may have none.
std::wstring InLines(HWND list, const std::wstring& text, int width) {
  const CFontDC canvas(list);
  std::wstring lines;
  for (size_t start = 0; start < text.size();) {
    int fitting = 0;
    SIZE size = {};
    GetTextExtentExPointW(canvas.m_hDC, text.c_str() + start, static_cast<int>(text.size() - start), width,
                          &fitting, nullptr, &size);
    const size_t length = static_cast<size_t>(std::max(fitting, 1));
    if (start > 0) lines += L"\r\n";
    lines += text.substr(start, length);
    start += length;
  }
  return lines;
}

}  // namespace

void RowTip::Make() {
  INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TAB_CLASSES};  // includes the tooltip class
  InitCommonControlsEx(&classes);
  m_tip = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                          CW_USEDEFAULT, CW_USEDEFAULT, m_list, nullptr, ModuleInstance(), nullptr);
}

void RowTip::SetRow(HWND list, int row, const RECT& place, const std::wstring& text) {
  Clear();
  m_list = list;
  m_row = row;
  if (text.empty()) return;
  if (!m_tip) Make();
  const int width = ScreenWidth(list) * 3 / 4;
  std::wstring lines = InLines(list, text, width);
  SendMessageW(m_tip, WM_SETFONT, static_cast<WPARAM>(SendMessageW(list, WM_GETFONT, 0, 0)), FALSE);
  SendMessageW(m_tip, TTM_SETMAXTIPWIDTH, 0, width + 1);
  TOOLINFOW tool = Tool(list);
  tool.rect = place;
  tool.lpszText = lines.data();
  m_hasTool = SendMessageW(m_tip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool)) != 0;
}

void RowTip::Clear() {
  m_row = -1;
  if (!m_hasTool) return;
  TOOLINFOW tool = Tool(m_list);
  SendMessageW(m_tip, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  m_hasTool = false;
}

void RowTip::Relay(UINT message, WPARAM wParam, LPARAM lParam) const {
  if (!m_hasTool) return;
  MSG relayed = {};
  relayed.hwnd = m_list;
  relayed.message = message;
  relayed.wParam = wParam;
  relayed.lParam = lParam;
  SendMessageW(m_tip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace hexlume
