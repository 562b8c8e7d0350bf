// A window and the object that answers its messages.
#pragma once

#include <windows.h>

#include "dialogs/toolkit/cstring.h"

namespace hexlume {

struct CRect : RECT {
  CRect() : RECT{} {}
  CRect(LONG left, LONG top, LONG right, LONG bottom) : RECT{left, top, right, bottom} {}
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
};

class CWnd {
 public:
  CWnd() = default;
  virtual ~CWnd();
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;

  HWND m_hWnd = nullptr;

  // The object that answers a window's messages, null if there is none.
  static CWnd* FromHandlePermanent(HWND window);
  // The same, or else an object that only calls the window and is gone behind the modal run.
  static CWnd* FromHandle(HWND window);
  static void DeleteTempMap();

  // From now on the object answers the messages of this window, until the window goes.
  BOOL SubclassWindow(HWND window);

  static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
  CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
  CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }

  void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
  void ScreenToClient(RECT* rect) const;
  void MoveWindow(const RECT& rect, BOOL repaint = TRUE);
  // In the middle of the other window, as far as that is in reach: a child stays within its parent, a window
  // of its own on the screen. Without another window it is the owner.
  void CenterWindow(CWnd* alternate = nullptr);
  void UpdateWindow() { ::UpdateWindow(m_hWnd); }

  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(m_hWnd, message, wParam, lParam);
  }
  void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
  void GetWindowText(CString& text) const;
  void SetWindowText(const char* text);
  void SetDlgItemText(int id, const char* text);

  // A message from the queue to the window or one of its children, before it is delivered. Not 0 if it has
  // been dealt with.
  virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }

 protected:
  // The object has just been given its window.
  virtual void PreSubclassWindow() {}
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // What a control tells its parent, offered to the control's object first. Not 0 if it has been dealt with.
  virtual BOOL OnChildNotify(UINT, WPARAM, LPARAM) { return FALSE; }
  virtual BOOL OnCommand(WPARAM, LPARAM) { return FALSE; }
  virtual void OnSize(UINT type, int cx, int cy);

  // What the window does with the message at hand by itself.
  LRESULT Default();

 private:
  struct Message {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
  };

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Answer(const Message& message);
  void Detach();

  WNDPROC m_pfnSuper = nullptr;
  Message m_atHand = {};
};

}  // namespace hexlume
