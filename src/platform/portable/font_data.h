// The data of a font object.
#pragma once

#include "platform/gdi.h"

namespace hexlume {

struct FontData {
  LOGFONTA logFont;
};

}  // namespace hexlume
