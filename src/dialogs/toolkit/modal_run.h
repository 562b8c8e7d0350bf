// The modal loop of a window, from before its creation until after its destruction.
#pragma once

#include <windows.h>

#include "dialogs/toolkit/module.h"

namespace hexlume {

class CWnd;

// The owner is the root of the thread's active window, which is the host's. It is disabled during the
// run, and enabled before the modal window is destroyed so that it becomes the active window. Runs
// can't be nested.
class ModalRun {
 public:
  ModalRun();
  ~ModalRun();
  ModalRun(const ModalRun&) = delete;
  ModalRun& operator=(const ModalRun&) = delete;

  HWND Owner() const { return owner; }

  // Shows the window centred on its owner and delivers messages until End is called, then destroys it.
  // Returns the argument of End, or -1 if there is no window. Throws faultCode if a handler failed.
  INT_PTR Run(CWnd& window);

  // Ends the current run.
  static void End(INT_PTR result);

  // Calls a handler. A fault or exception in it ends the run, because it can't be unwound through
  // the system's frames.
  template <typename Handler>
  static void Protect(Handler handler) {
    Protect([](void* context) { (*static_cast<Handler*>(context))(); }, &handler);
  }

  // Must be called for each window that is destroyed. Ends the run if it was the modal window.
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
