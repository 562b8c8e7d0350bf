#include "dialogs/toolkit/gdi_objects.h"

#include "dialogs/toolkit/wnd.h"

namespace hexlume {

CWindowDC::CWindowDC(CWnd* window)
    : m_hDC(GetWindowDC(window ? window->m_hWnd : nullptr)), m_hWnd(window ? window->m_hWnd : nullptr) {}

CWindowDC::~CWindowDC() {
  ReleaseDC(m_hWnd, m_hDC);
}

}  // namespace hexlume
