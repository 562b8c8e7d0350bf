#include "dialogs/theme.h"

#include <uxtheme.h>

namespace hexlume {

int CTheme::Load() {
  OSVERSIONINFOA version = {};
  version.dwOSVersionInfoSize = sizeof version;
  if (!GetVersionExA(&version)) return 1;
  const bool hasThemes =
      version.dwMajorVersion > 5 || (version.dwMajorVersion == 5 && version.dwMinorVersion > 0);
  if (!hasThemes) return 0;
  m_module = LoadLibraryA("UxTheme.dll");
  if (!m_module) return 1;
  m_enableThemeDialogTexture = Entry<decltype(m_enableThemeDialogTexture)>("EnableThemeDialogTexture");
  return m_enableThemeDialogTexture ? 0 : 1;
}

int CTheme::EnableDialogTexture(HWND window, DWORD flags) {
  if (!m_enableThemeDialogTexture) return 1;
  return m_enableThemeDialogTexture(window, flags) > 0 ? 2 : 0;
}

void EnableTabTexture(HWND page) {
  CTheme theme;
  theme.Load();
  if (theme.m_module) theme.EnableDialogTexture(page, ETDT_ENABLETAB);
}

}  // namespace hexlume
