// The layers of a drawing.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Called with the table's name in the buffer. Fills layers. Returns the result of its last ReadGroup.
int32_t ReadLayerTable(TextStream& stream);

// Reads one record, up to the next group 0. Returns the result of its last ReadGroup.
int32_t ReadLayerRecord(TextStream& stream, LayerEntry& layer);

}  // namespace hexlume
