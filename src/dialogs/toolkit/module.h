// The module that the dialogs are part of, which isn't that of the host.
#pragma once

#include <windows.h>

namespace hexlume {

// Where the resources are.
HINSTANCE ModuleInstance();

// While it lives, the thread's windows are made of the common controls that the module's manifest asks for.
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
