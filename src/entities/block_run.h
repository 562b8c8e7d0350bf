// The arguments of the converters for blocks, those inserted in a dimension's block included. A converter
// returns the result of its last ReadGroup, unless its header says otherwise.
#pragma once

#include <cstdint>

#include "entities/conversion_run.h"

namespace hexlume {

struct BlockRun : ConversionRun {
  double blockOriginX = 0.0;  // place of the block's own (0, 0) in the model, model units times 100
  double blockOriginY = 0.0;  //
  int32_t insertColor = 0;    // colour index that the block inherits from the INSERT
  int32_t byBlockFlag = 0;    // 1 if the outermost INSERT is by block or on layer "0". It changes no stroke.
};

}  // namespace hexlume
