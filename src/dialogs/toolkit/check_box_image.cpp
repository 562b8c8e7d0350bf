#include "dialogs/toolkit/check_box_image.h"

#include <vssym32.h>

namespace hexlume {

namespace {

// The size of a check box without themes, at the resolution of the screen.
SIZE PlainSize(HDC screen) {
  constexpr int sizeAt96 = 13;
  return {MulDiv(sizeAt96, GetDeviceCaps(screen, LOGPIXELSX), 96),
          MulDiv(sizeAt96, GetDeviceCaps(screen, LOGPIXELSY), 96)};
}

int ThemeState(bool ticked, bool enabled) {
  if (ticked) return enabled ? CBS_CHECKEDNORMAL : CBS_CHECKEDDISABLED;
  return enabled ? CBS_UNCHECKEDNORMAL : CBS_UNCHECKEDDISABLED;
}

UINT PlainState(bool ticked, bool enabled) {
  return DFCS_BUTTONCHECK | (ticked ? DFCS_CHECKED : 0u) | (enabled ? 0u : DFCS_INACTIVE);
}

}  // namespace

void CheckBoxImage::Open(HWND window) {
  Close();
  if (!m_module) m_module = LoadLibraryA("UxTheme.dll");
  if (const auto open = Entry<decltype(&OpenThemeData)>("OpenThemeData")) theme = open(window, L"BUTTON");

  const HDC screen = GetDC(window);
  const auto partSize = Entry<decltype(&GetThemePartSize)>("GetThemePartSize");
  if (!theme || !partSize ||
      FAILED(partSize(theme, screen, BP_CHECKBOX, CBS_UNCHECKEDNORMAL, nullptr, TS_DRAW, &size)))
    size = PlainSize(screen);
  ReleaseDC(window, screen);
}

void CheckBoxImage::Close() {
  if (const auto close = Entry<decltype(&CloseThemeData)>("CloseThemeData"); theme && close) close(theme);
  theme = nullptr;
}

void CheckBoxImage::Draw(HDC canvas, const RECT& box, bool ticked, bool enabled) const {
  if (const auto draw = Entry<decltype(&DrawThemeBackground)>("DrawThemeBackground"); theme && draw) {
    draw(theme, canvas, BP_CHECKBOX, ThemeState(ticked, enabled), &box, nullptr);
  } else {
    RECT frame = box;
    DrawFrameControl(canvas, &frame, DFC_BUTTON, PlainState(ticked, enabled));
  }
}

}  // namespace hexlume
