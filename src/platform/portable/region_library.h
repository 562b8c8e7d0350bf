// The functions of pixman that regions need: linked, or loaded with the first region.
#pragma once

#include <pixman.h>

namespace hexlume {

struct PixmanFunctions {
  decltype(&::pixman_region32_copy) copy;
  decltype(&::pixman_region32_fini) fini;
  decltype(&::pixman_region32_init) init;
  decltype(&::pixman_region32_init_rects) initRects;
  decltype(&::pixman_region32_init_with_extents) initWithExtents;
  decltype(&::pixman_region32_intersect) intersect;
  decltype(&::pixman_region32_n_rects) rectangleCount;
  decltype(&::pixman_region32_not_empty) isNotEmpty;
  decltype(&::pixman_region32_rectangles) rectangles;
  decltype(&::pixman_region32_subtract) subtract;
  decltype(&::pixman_region32_union) unite;
};

// Where it is loaded, the first call throws std::bad_alloc if it can't be; the next call tries again.
const PixmanFunctions& Pixman();

}  // namespace hexlume
