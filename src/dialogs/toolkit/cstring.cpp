#include "dialogs/toolkit/cstring.h"

#include <cstdarg>
#include <cstdio>

#include "dialogs/toolkit/module.h"
#include "dialogs/toolkit/wide_text.h"

namespace hexlume {

void CString::Format(const char* format, ...) {
  char formatted[512];
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(formatted, sizeof formatted, format, arguments);
  va_end(arguments);
  text = formatted;
}

BOOL CString::LoadString(UINT id) {
  wchar_t loaded[256];
  if (LoadStringW(ModuleInstance(), id, loaded, static_cast<int>(std::size(loaded))) == 0) return FALSE;
  text = ByteText(loaded);
  return TRUE;
}

}  // namespace hexlume
