#include "tables/table_section.h"

namespace hexlume {

void ReadTables(TextStream& stream, const HeaderVars& headerVars) {}

}  // namespace hexlume
