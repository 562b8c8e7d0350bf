// How many pixels a region has, by its rectangles.
#pragma once

#include <cstdint>

#include "platform/gdi.h"

namespace hexlume {

int64_t AreaOf(HRGN region);

}  // namespace hexlume
