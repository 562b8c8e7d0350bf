// The short path of ReadGroup, for the values of nearly all groups.
#pragma once

#include "driver/text_stream.h"

namespace hexlume {

// Stores the value line at place in state.groupValue and moves the stream after it. Returns false, and moves nothing, if the
// line is long, has a 0 byte, or is near the end of the fetched bytes. state.groupValue is undefined then.
bool TakeShortValue(TextStream& stream, int32_t place);

}  // namespace hexlume
