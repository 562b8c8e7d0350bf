// A function of the system in the place of which a module calls one of ours.
#pragma once

#include <windows.h>

#include <cstring>
#include <stdexcept>
#include <string>

namespace hexlume {

template <typename Function>
class ImportPatch {
 public:
  // Until the end of the object's life.
  ImportPatch(HMODULE module, const char* name, Function* function) : place(Find(module, name)) {
    original = Put(reinterpret_cast<ULONG_PTR>(function));
  }
  ~ImportPatch() { Put(original); }
  ImportPatch(const ImportPatch&) = delete;
  ImportPatch& operator=(const ImportPatch&) = delete;

 private:
  // Where the loader has put the function's address for the module.
  static ULONG_PTR* Find(HMODULE module, const char* name) {
    auto* base = reinterpret_cast<BYTE*>(module);
    const auto* headers =
        reinterpret_cast<IMAGE_NT_HEADERS*>(base + reinterpret_cast<IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = reinterpret_cast<IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
    for (; library->Name != 0; ++library) {
      const auto* names = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
      auto* addresses = reinterpret_cast<IMAGE_THUNK_DATA*>(base + library->FirstThunk);
      for (; names->u1.AddressOfData != 0; ++names, ++addresses) {
        if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
        const auto* entry = reinterpret_cast<IMAGE_IMPORT_BY_NAME*>(base + names->u1.AddressOfData);
        if (std::strcmp(reinterpret_cast<const char*>(entry->Name), name) == 0)
          return reinterpret_cast<ULONG_PTR*>(&addresses->u1.Function);
      }
    }
    throw std::runtime_error(std::string("a module doesn't call ") + name);
  }

  ULONG_PTR Put(ULONG_PTR function) {
    DWORD protection = 0;
    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &protection);
    const ULONG_PTR before = *place;
    *place = function;
    VirtualProtect(place, sizeof *place, protection, &protection);
    return before;
  }

  ULONG_PTR* const place;
  ULONG_PTR original;
};

}  // namespace hexlume
