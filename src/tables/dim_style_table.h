// The dimension styles of a drawing.
#pragma once

#include <cstdint>

#include "driver/text_stream.h"

namespace hexlume {

// Entered with the table's name in the buffer: fills dimStyles. Returns the result of its last ReadGroup.
int32_t ReadDimStyleTable(TextStream& stream);

}  // namespace hexlume
