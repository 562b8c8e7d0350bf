// What a font object holds.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

struct FontData {
  LOGFONTA logFont;
};

}  // namespace hexlume
