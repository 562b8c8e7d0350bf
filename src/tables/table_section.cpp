#include "tables/table_section.h"

#include "driver/group_reader.h"
#include "tables/dim_style_table.h"
#include "tables/layer_table.h"
#include "tables/ltype_table.h"

namespace hexlume {

void ReadTables(TextStream& stream, const HeaderVars& headerVars) {
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDSEC")) {
    // Any group 2 is compared, so a record of another table that has the name of one of these tables starts
    // it too. A table's reader leaves a group in the buffer that must still be tested.
    if (AtGroup(2, "DIMSTYLE"))
      more = ReadDimStyleTable(stream);
    else if (AtGroup(2, "LTYPE"))
      more = ReadLtypeTable(stream, headerVars);
    else if (AtGroup(2, "LAYER"))
      more = ReadLayerTable(stream);
    else
      more = ReadGroup(stream);
  }
}

}  // namespace hexlume
