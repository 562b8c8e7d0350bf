#include "tables/layer_table.h"

#include <cstring>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Differs from an entity's group 6: a keyword whose line type isn't defined makes the layer solid, whatever a
// keyword before it has set, and a name without a keyword changes nothing. So the last keyword makes a layer
// of PHANTOM2 always solid, while an entity of that line type is dashed.
void ResolveLayerLinetype(const char* value, LayerEntry& layer) {
  if (std::strstr(value, "CONTINUOUS") || std::strstr(value, "CONTINUOS")) layer.family = 0;
  for (const KnownLtype& known : knownLtypes) {
    if (!std::strstr(value, known.keyword)) continue;
    if (IsLtypeDefined(known.pattern)) {
      layer.family = known.family;
      layer.pattern = known.pattern;
    } else {
      layer.family = 0;
    }
  }
}

}  // namespace

int32_t ReadLayerTable(TextStream& stream) {
  // A second table replaces the first. If it has no records, the old layers are kept for the pen of POINT,
  // but can't be found by name any more.
  state.layers.ForgetNames();
  state.layerCount = 0;
  int32_t more = ReadGroup(stream);
  while (more && !AtGroup(0, "ENDTAB")) {
    if (!AtGroup(0, "LAYER")) {
      more = ReadGroup(stream);
      continue;
    }
    LayerEntry layer;
    more = ReadLayerRecord(stream, layer);
    if (state.layerCount == 0) state.layers = {};
    state.layers.Add(layer);
    ++state.layerCount;
  }
  if (!state.layers.empty()) state.layersOwned = 1;
  return more;
}

int32_t ReadLayerRecord(TextStream& stream, LayerEntry& layer) {
  layer = {"", 0, unnamedLtype, 0, 0};
  int32_t more = ReadGroup(stream);
  for (; more && state.groupCode != 0; more = ReadGroup(stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2: BoundedCopy(layer.name, value); break;
      case 6: ResolveLayerLinetype(value, layer); break;
      case 62: layer.color = ResolveColor(Atoi(value)); break;
      // Already in hundredths of a millimetre: a lineweight below a whole millimetre becomes 0.
      case 370: layer.width = Trunc(Atof(value) / 100.0); break;
    }
  }
  return more;
}

}  // namespace hexlume
