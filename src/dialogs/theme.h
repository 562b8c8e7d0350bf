// The themed background of tab pages, on systems that have themes.
#pragma once

#include "dialogs/toolkit/dll.h"

namespace hexlume {

class CTheme : public CDll {
 public:
  // Returns 0 on success and on systems without themes, 1 on failure.
  int Load();

  // Returns 1 if the function isn't available, 2 if it returned a value above 0, otherwise 0.
  int EnableDialogTexture(HWND window, DWORD flags);

  HRESULT(WINAPI* m_enableThemeDialogTexture)(HWND window, DWORD flags) = nullptr;
};

// Gives a page of the sheet the background of a tab page.
void EnableTabTexture(HWND page);

}  // namespace hexlume
