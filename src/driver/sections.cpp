#include "driver/sections.h"

#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "entities/entity_dispatch.h"
#include "tables/block_directory.h"
#include "tables/table_section.h"

namespace hexlume {

namespace {

// A drawing that has layers, but told no table of them in front of its entities.
void AddDefaultLayer() {
  if (state.layersOwned != 0 || state.layerCount == 0) return;
  state.layers.Add({"0", 0, unnamedLtype, 0, 0});
  state.layersOwned = 1;
}

}  // namespace

void DrawSections(TextStream& stream, Canvas canvas, HeaderVars& headerVars, const ViewRect& view,
                  int32_t wholeTextClip, int32_t wholeSheet, int32_t halfWidthFont) {
  while (ReadGroup(stream)) {
    if (AtGroup(0, "EOF")) runWatch.endMarkSeen = true;
    if (!AtGroup(0, "SECTION")) continue;
    if (!ReadGroup(stream)) return;
    // In the order of the file: entities in front of the tables are drawn with what tables there are by then.
    // Any other section is passed over group by group.
    if (AtGroup(2, "TABLES")) {
      ReadTables(stream, headerVars);
    } else if (AtGroup(2, "BLOCKS")) {
      ReadBlocks(stream);
    } else if (AtGroup(2, "ENTITIES")) {
      runWatch.entitiesSeen = true;
      AddDefaultLayer();
      DrawEntities({{stream, canvas, headerVars, view, wholeTextClip, wholeSheet, halfWidthFont}});
    }
  }
}

}  // namespace hexlume
