// DIMENSION: the drawing's dimension styles aren't used and nothing is measured. Lines, arrows and text are
// those of the block that the CAD program has stored for the dimension.
#include "composite/dimension.h"

#include "composite/block_dispatch.h"
#include "composite/bookmark.h"
#include "driver/bounded_copy.h"
#include "driver/group_reader.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// Group 8. A dimension on an excluded layer is drawn all the same: each entity of the block is
// tested by itself.
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
  // The measuring points are stored in an entity's fields. Entities of the block use them if they lack
  // such a group.
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 2:
        if (const BlockEntry* block = state.blocks.FindFirst(value)) bodyOffset = block->bodyOffset;
        break;
      case 8: TakeDimensionLayer(value); break;
      case 10: state.entX[0] = Hundredths(value); break;
      case 11: state.entX[1] = Hundredths(value); break;
      case 12: offsetX = Hundredths(value); break;
      case 13:
      case 15: state.entX[2] = Hundredths(value); break;
      case 14: state.entX[3] = Hundredths(value); break;
      case 20: state.entY[0] = Hundredths(value); break;
      case 21: state.entY[1] = Hundredths(value); break;
      case 22: offsetY = Hundredths(value); break;
      case 23:
      case 25: state.entY[2] = Hundredths(value); break;
      case 24: state.entY[3] = Hundredths(value); break;
    }
  }
  // The dimension's own group 62 is ignored. If the table doesn't have its layer, it has the colour of the
  // entity before it.
  MonochromeRule(state.entColor);

  Bookmark next;
  SetBookmark(next, run.stream);
  DrawDimBlock({run, offsetX, offsetY, state.entColor}, bodyOffset);
  ReturnTo(next, run.stream);
  return more;
}

}  // namespace hexlume
