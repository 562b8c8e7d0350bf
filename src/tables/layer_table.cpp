#include "tables/layer_table.h"

namespace hexlume {

int32_t ReadLayerTable(TextStream& stream) {
  return 0;
}

int32_t ReadLayerRecord(TextStream& stream, LayerEntry& layer) {
  return 0;
}

}  // namespace hexlume
