// The themed background of tab pages, on systems that have themes.
#pragma once

#include "dialogs/toolkit/dll.h"

namespace hexlume {

class CTheme : public CDll {
 public:
  // 0, also where the system has no themes; 1 on failure.
  int Load();

  // 1 without the entry, 2 if the call returned a value above 0, otherwise 0.
  int EnableDialogTexture(HWND window, DWORD flags);

  HRESULT(WINAPI* m_enableThemeDialogTexture)(HWND window, DWORD flags) = nullptr;
};

// The step that both pages take.
void EnableTabTexture(HWND page);

}  // namespace hexlume
