// A window and the object that handles its messages.
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

  // Returns the object that handles the window's messages, null if there is none.
  static CWnd* FromHandlePermanent(HWND window);
  // Returns the same, or else a temporary object that lives until the modal run ends.
  static CWnd* FromHandle(HWND window);
  static void DeleteTempMap();

  // Lets the object handle the messages of this window until the window is destroyed.
  BOOL SubclassWindow(HWND window);

  static CWnd* GetDesktopWindow() { return FromHandle(::GetDesktopWindow()); }
  CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
  CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }

  void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
  void ScreenToClient(RECT* rect) const;
  void MoveWindow(const RECT& rect, BOOL repaint = TRUE);
  // Centres the window on the other window, or on its owner if that is null. A child is kept within its
  // parent, a top-level window on the screen.
  void CenterWindow(CWnd* alternate = nullptr);
  void UpdateWindow() { ::UpdateWindow(m_hWnd); }

  LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(m_hWnd, message, wParam, lParam);
  }
  void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
  void GetWindowText(CString& text) const;
  void SetWindowText(const char* text);
  void SetDlgItemText(int id, const char* text);

  // Called for a message from the queue to the window or one of its children, before it is delivered. Returns
  // nonzero if the message was handled.
  virtual BOOL PreTranslateMessage(MSG*) { return FALSE; }

 protected:
  // Called when the object has just been given its window.
  virtual void PreSubclassWindow() {}
  virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
  // Called for a notification from a control to its parent, on the control's object. Returns nonzero if the
  // notification was handled.
  virtual BOOL OnChildNotify(UINT, WPARAM, LPARAM) { return FALSE; }
  virtual BOOL OnCommand(WPARAM, LPARAM) { return FALSE; }
  virtual void OnSize(UINT type, int cx, int cy);

  // Runs the window's own handling of the current message.
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
