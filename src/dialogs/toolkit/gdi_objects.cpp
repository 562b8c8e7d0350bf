#include "dialogs/toolkit/gdi_objects.h"

#include "dialogs/toolkit/wnd.h"

namespace hexlume {

namespace {

HGDIOBJ FontOf(HWND window) {
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0));
  return font ? font : GetStockObject(SYSTEM_FONT);
}

}  // namespace

CWindowDC::CWindowDC(CWnd* window)
    : m_hDC(GetWindowDC(window ? window->m_hWnd : nullptr)), m_hWnd(window ? window->m_hWnd : nullptr) {}

CWindowDC::~CWindowDC() {
  ReleaseDC(m_hWnd, m_hDC);
}

CFontDC::CFontDC(HWND window)
    : m_hDC(GetDC(window)), m_hWnd(window), m_fontBefore(SelectObject(m_hDC, FontOf(window))) {}

CFontDC::~CFontDC() {
  SelectObject(m_hDC, m_fontBefore);
  ReleaseDC(m_hWnd, m_hDC);
}

}  // namespace hexlume
