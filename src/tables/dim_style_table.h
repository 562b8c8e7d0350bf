// The dimension styles of a drawing.
#pragma once

#include <cstdint>

#include "driver/text_stream.h"

namespace hexlume {

// Called with the table's name in the buffer. Fills dimStyles. Returns the result of its last ReadGroup.
int32_t ReadDimStyleTable(TextStream& stream);

}  // namespace hexlume
