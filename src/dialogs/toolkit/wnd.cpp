#include "dialogs/toolkit/wnd.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "dialogs/toolkit/modal_run.h"
#include "dialogs/toolkit/wide_text.h"

namespace hexlume {

namespace {

constexpr wchar_t objectProperty[] = L"HexlumeWindowObject";

std::map<HWND, std::unique_ptr<CWnd>>& TempMap() {
  static std::map<HWND, std::unique_ptr<CWnd>> windows;
  return windows;
}

CRect WorkArea(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& area = monitor.rcWork;
  return {area.left, area.top, area.right, area.bottom};
}

// Returns the start of an interval that is centred on another one but kept between lowest and highest.
LONG CentredStart(LONG length, LONG start, LONG end, LONG lowest, LONG highest) {
  const LONG centred = (start + end) / 2 - length / 2;
  return std::max(std::min(centred, highest - length), lowest);
}

}  // namespace

CWnd::~CWnd() {
  if (m_pfnSuper) Detach();
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
  return static_cast<CWnd*>(GetPropW(window, objectProperty));
}

CWnd* CWnd::FromHandle(HWND window) {
  if (!window) return nullptr;
  if (CWnd* permanent = FromHandlePermanent(window)) return permanent;
  std::unique_ptr<CWnd>& temporary = TempMap()[window];
  if (!temporary) temporary = std::make_unique<CWnd>();
  temporary->m_hWnd = window;
  return temporary.get();
}

void CWnd::DeleteTempMap() {
  TempMap().clear();
}

BOOL CWnd::SubclassWindow(HWND window) {
  if (!SetPropW(window, objectProperty, this)) return FALSE;
  m_hWnd = window;
  PreSubclassWindow();
  m_pfnSuper = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CWnd::Procedure)));
  return TRUE;
}

void CWnd::Detach() {
  SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
  RemovePropW(m_hWnd, objectProperty);
  m_hWnd = nullptr;
  m_pfnSuper = nullptr;
}

LRESULT CALLBACK CWnd::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  CWnd* object = FromHandlePermanent(window);
  if (!object) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    const WNDPROC super = object->m_pfnSuper;
    object->Detach();
    ModalRun::WindowIsGone(window);
    return CallWindowProcW(super, window, message, wParam, lParam);
  }
  LRESULT result = 0;
  ModalRun::Protect([&] { result = object->Answer({message, wParam, lParam}); });
  return result;
}

LRESULT CWnd::Answer(const Message& message) {
  const Message outer = std::exchange(m_atHand, message);
  const LRESULT result = WindowProc(message.message, message.wParam, message.lParam);
  m_atHand = outer;
  return result;
}

LRESULT CWnd::Default() {
  return CallWindowProcW(m_pfnSuper, m_hWnd, m_atHand.message, m_atHand.wParam, m_atHand.lParam);
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (OnCommand(wParam, lParam)) return 0;
      break;
    case WM_SIZE: OnSize(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam)); return 0;
    case WM_DRAWITEM: {
      CWnd* control = FromHandlePermanent(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem);
      if (control && control->OnChildNotify(message, wParam, lParam)) return TRUE;
      break;
    }
  }
  return Default();
}

void CWnd::OnSize(UINT, int, int) {
  Default();
}

void CWnd::ScreenToClient(RECT* rect) const {
  MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::MoveWindow(const RECT& rect, BOOL repaint) {
  ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, repaint);
}

void CWnd::CenterWindow(CWnd* alternate) {
  const bool isChild = GetWindowLongW(m_hWnd, GWL_STYLE) & WS_CHILD;
  const HWND parent = isChild ? ::GetParent(m_hWnd) : GetWindow(m_hWnd, GW_OWNER);
  const HWND centre = alternate ? alternate->m_hWnd : parent;
  CRect around, bounds, own;
  GetWindowRect(&own);
  if (isChild) {
    GetClientRect(centre, &around);
    MapWindowPoints(centre, parent, reinterpret_cast<POINT*>(&around), 2);
    GetClientRect(parent, &bounds);
  } else {
    bounds = WorkArea(centre ? centre : m_hWnd);
    around = bounds;
    if (centre && IsWindowVisible(centre) && !IsIconic(centre)) ::GetWindowRect(centre, &around);
  }
  const LONG x = CentredStart(own.Width(), around.left, around.right, bounds.left, bounds.right);
  const LONG y = CentredStart(own.Height(), around.top, around.bottom, bounds.top, bounds.bottom);
  SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::GetWindowText(CString& text) const {
  std::wstring wide(static_cast<size_t>(GetWindowTextLengthW(m_hWnd)) + 1, L'\0');
  wide.resize(static_cast<size_t>(GetWindowTextW(m_hWnd, wide.data(), static_cast<int>(wide.size()))));
  text = ByteText(wide);
}

void CWnd::SetWindowText(const char* text) {
  SetWindowTextW(m_hWnd, WideText(text).c_str());
}

void CWnd::SetDlgItemText(int id, const char* text) {
  SetDlgItemTextW(m_hWnd, id, WideText(text).c_str());
}

}  // namespace hexlume
