// The line types of a drawing.
#pragma once

#include <cstdint>

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Called with the table's name in the buffer. Fills ltypes with the known names, and with the dashes of those
// that have a record in the drawing. Returns the result of its last ReadGroup.
int32_t ReadLtypeTable(TextStream& stream, const HeaderVars& headerVars);

}  // namespace hexlume
