#include "driver/sections.h"

#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "entities/entity_dispatch.h"
#include "tables/block_directory.h"
#include "tables/table_section.h"

namespace hexlume {

namespace {

// Adds a layer "0" if the drawing has layers, but no layer table before its entities.
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
    // In file order: entities before the tables are drawn with the tables read so far. Other sections are
    // skipped group by group.
    if (AtGroup(2, "TABLES")) {
      ReadTables(stream, headerVars);
    } else if (AtGroup(2, "BLOCKS")) {
      KeepAll(stream);
      ReadBlocks(stream);
    } else if (AtGroup(2, "ENTITIES")) {
      runWatch.entitiesSeen = true;
      AddDefaultLayer();
      KeepNoMore(stream);  // unlike blocks, entities aren't read again
      DrawEntities({{stream, canvas, headerVars, view, wholeTextClip, wholeSheet, halfWidthFont}});
    }
  }
}

}  // namespace hexlume
