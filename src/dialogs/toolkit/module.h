// The library that contains the dialogs, as opposed to the host's executable.
#pragma once

#include <windows.h>

namespace hexlume {

// Returns the instance that contains the dialogs' resources.
HINSTANCE ModuleInstance();

// While an object exists, windows that the thread creates use the common controls of the library's manifest.
class ModuleControls {
 public:
  ModuleControls();
  ~ModuleControls();
  ModuleControls(const ModuleControls&) = delete;
  ModuleControls& operator=(const ModuleControls&) = delete;

 private:
  HANDLE context;
  ULONG_PTR cookie = 0;
};

}  // namespace hexlume
