#include "tables/ltype_table.h"

namespace hexlume {

int32_t ReadLtypeTable(TextStream& stream, const HeaderVars& headerVars) {
  return 0;
}

}  // namespace hexlume
