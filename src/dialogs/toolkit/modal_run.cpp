#include "dialogs/toolkit/modal_run.h"

#include "dialogs/toolkit/wnd.h"
#include "platform/fault_guard.h"

namespace hexlume {

ModalRun* ModalRun::current = nullptr;

ModalRun::ModalRun() {
  const HWND active = GetActiveWindow();
  owner = active ? GetAncestor(active, GA_ROOT) : nullptr;
  ownerDisabled = owner && !EnableWindow(owner, FALSE);
  current = this;
}

ModalRun::~ModalRun() {
  EnableOwner();
  CWnd::DeleteTempMap();
  current = nullptr;
}

void ModalRun::EnableOwner() {
  if (ownerDisabled) EnableWindow(owner, TRUE);
  ownerDisabled = false;
}

INT_PTR ModalRun::Run(CWnd& window) {
  const bool isMade = window.m_hWnd != nullptr;
  if (isMade && !ended) {
    shown = window.m_hWnd;
    window.CenterWindow();
    ShowWindow(shown, SW_SHOW);
    DeliverMessages(window);
  }
  Close(window);
  if (failed) throw faultCode;
  return isMade ? result : -1;
}

void ModalRun::DeliverMessages(CWnd& window) {
  MSG message;
  while (!ended) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));  // for the host's message loop
    if (got <= 0) return;
    const bool isOurs = message.hwnd == shown || IsChild(shown, message.hwnd);
    bool isDone = false;
    if (isOurs) Protect([&] { isDone = window.PreTranslateMessage(&message); });
    if (isDone) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void ModalRun::Close(CWnd& window) {
  EnableOwner();
  const HWND closing = window.m_hWnd;
  if (!closing) return;
  if (owner && GetActiveWindow() == closing) SetActiveWindow(owner);
  DestroyWindow(closing);
}

void ModalRun::End(INT_PTR result) {
  if (!current || current->ended) return;
  current->ended = true;
  current->result = result;
  // Wakes up the message loop: a message that another thread sends is handled inside GetMessage, which
  // then keeps waiting.
  PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void ModalRun::WindowIsGone(HWND window) {
  if (current && window == current->shown) End(IDCANCEL);
}

void ModalRun::Protect(void (*handler)(void* context), void* context) {
  try {
    RunGuarded(handler, context);
  } catch (...) {
    if (current) current->failed = true;
    End(IDCANCEL);
  }
}

}  // namespace hexlume
