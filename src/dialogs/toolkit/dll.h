// A library that is loaded at run time.
#pragma once

#include <windows.h>

namespace hexlume {

class CDll {
 public:
  CDll() = default;
  ~CDll() {
    if (m_module) FreeLibrary(m_module);
    m_module = nullptr;
  }
  CDll(const CDll&) = delete;
  CDll& operator=(const CDll&) = delete;

  HMODULE m_module = nullptr;

 protected:
  // Returns null if the library isn't loaded or has no such function.
  template <typename Function>
  Function Entry(const char* name) const {
    return m_module ? reinterpret_cast<Function>(GetProcAddress(m_module, name)) : nullptr;
  }
};

}  // namespace hexlume
