#include "dialogs/toolkit/module.h"

namespace hexlume {

HINSTANCE ModuleInstance() {
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<const wchar_t*>(&ModuleInstance), &module);
  return module;
}

ModuleControls::ModuleControls() {
  ACTCTXW manifest = {};
  manifest.cbSize = sizeof manifest;
  manifest.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  manifest.hModule = ModuleInstance();
  manifest.lpResourceName = MAKEINTRESOURCEW(2);  // the resource number of a library's manifest
  context = CreateActCtxW(&manifest);
  // On failure the controls are those of the host.
  if (context != INVALID_HANDLE_VALUE) ActivateActCtx(context, &cookie);
}

ModuleControls::~ModuleControls() {
  if (cookie != 0) DeactivateActCtx(0, cookie);
  if (context != INVALID_HANDLE_VALUE) ReleaseActCtx(context);
}

}  // namespace hexlume
