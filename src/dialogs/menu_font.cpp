#include "dialogs/menu_font.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace hexlume {

namespace {

// The size of the record without its last field, iPaddedBorderWidth, which Windows before
// Vista doesn't accept.
constexpr UINT metricsSize = offsetof(NONCLIENTMETRICSA, iPaddedBorderWidth);
static_assert(metricsSize == 340);

LOGFONTA MenuFont() {
  NONCLIENTMETRICSA metrics = {};
  metrics.cbSize = metricsSize;
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, metricsSize, &metrics, 0);

  LOGFONTA font = {};
  CWindowDC screen(nullptr);
  font.lfCharSet = static_cast<BYTE>(GetTextCharsetInfo(screen.m_hDC, nullptr, 0));
  font.lfWeight = metrics.lfMenuFont.lfWeight;
  font.lfItalic = metrics.lfMenuFont.lfItalic;
  std::memcpy(font.lfFaceName, metrics.lfMenuFont.lfFaceName, sizeof font.lfFaceName);
  // The character height (negative) becomes a cell height (positive), so the text is smaller than in a menu.
  font.lfHeight = std::abs(metrics.lfMenuFont.lfHeight);
  return font;
}

BOOL CALLBACK SetChildFont(HWND child, LPARAM font) {
  SendMessageA(child, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
  return TRUE;
}

}  // namespace

void UseMenuFont(HWND window, CFont& font) {
  const LOGFONTA described = MenuFont();
  font.Attach(CreateFontIndirectA(&described));
  SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.m_hObject), TRUE);
  EnumChildWindows(window, SetChildFont, reinterpret_cast<LPARAM>(font.m_hObject));
}

}  // namespace hexlume
