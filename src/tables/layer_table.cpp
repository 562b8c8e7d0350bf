#include "tables/layer_table.h"

#include <cstring>

#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Not the rule of an entity's group 6: a keyword without a record of the drawing's makes the layer solid
// here, whatever stood there before, and a name without any keyword changes nothing. So a layer of PHANTOM2
// is solid always, by the last keyword, where an entity of that line type has its dashes.
void ResolveLayerLinetype(const char* value, LayerEntry& layer) {
  if (std::strstr(value, "CONTINUOUS") || std::strstr(value, "CONTINUOS")) layer.family = 0;
  for (const LtypeKeyword& keyword : ltypeKeywords) {
    if (!std::strstr(value, keyword.name)) continue;
    if (IsLtypeDefined(keyword.pattern)) {
      layer.family = keyword.family;
      layer.pattern = keyword.pattern;
    } else {
      layer.family = 0;
    }
  }
}

}  // namespace

int32_t ReadLayerTable(TextStream& stream) {
  // A second table takes the place of the first. Without records it leaves the layers, for the pen of POINT,
  // but none of them is found by its name.
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
      // Hundredths of a millimetre already: a lineweight below a whole millimetre is lost.
      case 370: layer.width = Trunc(Atof(value) / 100.0); break;
    }
  }
  return more;
}

}  // namespace hexlume
