#include "platform/module_file.h"

#include "platform/gdi.h"

namespace hexlume {

bool ModuleFileName(char* path, size_t size) {
  // Checked by name: if the library has another name, the file of the host must not be taken for it.
  const HMODULE module = GetModuleHandleA("Hexlume.dll");
  if (!module) return false;
  const DWORD length = GetModuleFileNameA(module, path, static_cast<DWORD>(size));
  return length > 0 && length < size;
}

void DeleteFileIfThere(const char* path) {
  DeleteFileA(path);
}

}  // namespace hexlume
