// A modal window's time: from before it is made until it is gone.
#pragma once

#include <windows.h>

#include "dialogs/toolkit/module.h"

namespace hexlume {

class CWnd;

// The owner is the active window of the thread, the host's. It is disabled meanwhile, and enabled again
// before the modal window goes, so that it is the one to become active. One run at a time.
class ModalRun {
 public:
  ModalRun();
  ~ModalRun();
  ModalRun(const ModalRun&) = delete;
  ModalRun& operator=(const ModalRun&) = delete;

  HWND Owner() const { return owner; }

  // Shows the window in the middle of its owner and delivers messages until End. The window is gone
  // afterwards. Returns the result told to End, -1 if there is no window; throws faultCode if a handler
  // failed.
  INT_PTR Run(CWnd& window);

  // Ends the run that goes on.
  static void End(INT_PTR result);

  // Calls a handler. A fault or an exception in it ends the run instead of going through the system's own
  // frames, which can't be done.
  template <typename Handler>
  static void Protect(Handler handler) {
    Protect([](void* context) { (*static_cast<Handler*>(context))(); }, &handler);
  }

  // To be told of each window that goes: one that others have destroyed needs no more messages.
  static void WindowIsGone(HWND window);

 private:
  static void Protect(void (*handler)(void* context), void* context);
  void DeliverMessages(CWnd& window);
  void Close(CWnd& window);
  void EnableOwner();

  ModuleControls controls;
  HWND owner = nullptr;
  bool ownerDisabled = false;
  HWND shown = nullptr;
  bool ended = false;
  bool failed = false;
  INT_PTR result = IDCANCEL;

  static ModalRun* current;
};

}  // namespace hexlume
