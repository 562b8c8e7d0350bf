// Converts the result of DoModal for the conversions.
#pragma once

#include <windows.h>

#include "dialogs/dialog_result.h"

namespace hexlume {

inline DialogResult ResultOf(INT_PTR modal) {
  if (modal == -1) return DialogResult::notShown;
  return modal == IDCANCEL ? DialogResult::cancelled : DialogResult::ok;
}

}  // namespace hexlume
