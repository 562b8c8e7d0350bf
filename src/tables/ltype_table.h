// The line types of a drawing.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Entered with the table's name in the buffer. Fills ltypes with the names that the library knows, and the
// dashes of those that the drawing has a record of. Returns the result of its last ReadGroup.
int32_t ReadLtypeTable(TextStream& stream, const HeaderVars& headerVars);

}  // namespace hexlume
