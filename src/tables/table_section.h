// The TABLES section.
#pragma once

#include "driver/conv_state.h"
#include "driver/text_stream.h"

namespace hexlume {

// Called when the section's name has been read. Reads the tables that the converters need, up to the end of
// the section. The sheet must be set up, as dashes are stored in its units.
void ReadTables(TextStream& stream, const HeaderVars& headerVars);

}  // namespace hexlume
