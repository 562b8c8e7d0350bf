// GoogleTest's own place for what a system lacks: the cross compilers' library has no std::mutex, of which
// GoogleTest makes its Notification. A system event does the same.
#pragma once

#define GTEST_HAS_NOTIFICATION_ 1

#include <windows.h>

namespace testing::internal {

class Notification {
 public:
  Notification() : event(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
  Notification(const Notification&) = delete;
  Notification& operator=(const Notification&) = delete;
  ~Notification() { CloseHandle(event); }

  void Notify() { SetEvent(event); }
  void WaitForNotification() { WaitForSingleObject(event, INFINITE); }

 private:
  HANDLE event;
};

}  // namespace testing::internal
