// The arguments of the converters for the ENTITIES section and for a dimension's block. A converter returns
// the result of its last ReadGroup, unless its header says otherwise.
#pragma once

#include <cstdint>

#include "entities/conversion_run.h"

namespace hexlume {

// The fields describe the dimension whose block is drawn. In the ENTITIES section they are 0.
struct EntityRun : ConversionRun {
  double offsetX = 0.0;        // added to each coordinate, model units times 100
  double offsetY = 0.0;        //
  int32_t dimensionColor = 0;  // colour index, for the inserts in the block
};

}  // namespace hexlume
