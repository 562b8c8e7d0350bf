// DIMENSION: nothing is measured and no style of the drawing is asked. The lines, arrows and text are those
// of the block that the drawing's own program made for this dimension.
#include "composite/dimension.h"

#include "composite/block_dispatch.h"
#include "composite/bookmark.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Group 8. A dimension on a layer that the user left out is played back all the same: the block's entities
// are asked one by one.
void TakeDimensionLayer(const char* name) {
  BoundedCopy(state.insertLayer, name);
  if (const LayerEntry* layer = FindLayer(name)) state.entColor = layer->color;
}

}  // namespace

int32_t DrawDimension(const EntityRun& run) {
  int32_t bodyOffset = noBody;
  double offsetX = 0.0;
  double offsetY = 0.0;
  int32_t more = ReadGroup(run.stream);
  // The measuring points go to the places of an entity's, which the block's entities may lack.
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2:
        if (const BlockEntry* block = state.blocks.FindFirst(value)) bodyOffset = block->bodyOffset;
        break;
      case 8: TakeDimensionLayer(value); break;
      case 10: state.entX[0] = Atof(value) * 100.0; break;
      case 11: state.entX[1] = Atof(value) * 100.0; break;
      case 12: offsetX = Atof(value) * 100.0; break;
      case 13:
      case 15: state.entX[2] = Atof(value) * 100.0; break;
      case 14: state.entX[3] = Atof(value) * 100.0; break;
      case 20: state.entY[0] = Atof(value) * 100.0; break;
      case 21: state.entY[1] = Atof(value) * 100.0; break;
      case 22: offsetY = Atof(value) * 100.0; break;
      case 23:
      case 25: state.entY[2] = Atof(value) * 100.0; break;
      case 24: state.entY[3] = Atof(value) * 100.0; break;
    }
  }
  // Its own group 62 doesn't count. On a layer that the table doesn't have, the colour is that of the entity
  // before it.
  MonochromeRule(state.entColor);

  Bookmark next;
  SetBookmark(next, run.stream);
  DrawDimBlock({run, offsetX, offsetY, state.entColor}, bodyOffset);
  ReturnTo(next, run.stream);
  return more;
}

}  // namespace hexlume
