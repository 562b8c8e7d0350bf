// The TABLES section.
#pragma once

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Entered behind the section's name: reads the tables that the converters need, up to the section's end. The
// sheet is set up by then, so that dashes are stored in its units.
void ReadTables(TextStream& stream, const HeaderVars& headerVars);

}  // namespace hexlume
