#include "tables/dim_style_table.h"

namespace hexlume {

int32_t ReadDimStyleTable(TextStream& stream) {
  return 0;
}

}  // namespace hexlume
