// Header variables of a drawing whose size a test gives.
#pragma once

#include "driver/conv_state.h"

namespace hexlume {

inline void SetLimits(HeaderVars& vars, double minX, double minY, double maxX, double maxY) {
  vars.limMinSet = vars.limMaxSet = 1;
  vars.limMinX = minX;
  vars.limMinY = minY;
  vars.limMaxX = maxX;
  vars.limMaxY = maxY;
}

inline void SetExtents(HeaderVars& vars, double minX, double minY, double maxX, double maxY) {
  vars.extMinSet = vars.extMaxSet = 1;
  vars.extMinX = minX;
  vars.extMinY = minY;
  vars.extMaxX = maxX;
  vars.extMaxY = maxY;
}

}  // namespace hexlume
