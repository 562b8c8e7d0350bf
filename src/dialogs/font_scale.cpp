#include "dialogs/font_scale.h"

#include <algorithm>
#include <cstdlib>

namespace hexlume {

int AtFontScale(const CPropertyPage& page, int distance) {
  constexpr LONG heightAt96 = 12;  // pixels of the template's 9 points
  LOGFONTW font = {};
  // A dialog returns the font of its template here, even after its controls were given the menu font.
  const auto handle = reinterpret_cast<HFONT>(page.SendMessage(WM_GETFONT));
  GetObjectW(handle, sizeof font, &font);
  return MulDiv(distance, std::max(std::abs(font.lfHeight), heightAt96), heightAt96);
}

}  // namespace hexlume
