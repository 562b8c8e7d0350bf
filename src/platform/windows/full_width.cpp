#include "platform/full_width.h"

#include <windows.h>

#include <climits>
#include <cstring>

namespace hexlume {

std::string WidenText(const char* text) {
  const size_t length = std::strlen(text);
  if (length == 0 || length > INT_MAX) return {};
  const int bytes = static_cast<int>(length);
  const int needed = LCMapStringA(LOCALE_USER_DEFAULT, LCMAP_FULLWIDTH, text, bytes, nullptr, 0);
  std::string widened(needed > 0 ? needed : 0, '\0');
  if (needed > 0) LCMapStringA(LOCALE_USER_DEFAULT, LCMAP_FULLWIDTH, text, bytes, &widened[0], needed);
  return widened;
}

}  // namespace hexlume
