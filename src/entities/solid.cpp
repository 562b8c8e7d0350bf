// SOLID and TRACE: a filled quadrilateral, drawn only if all four corners are in the view.
#include "entities/solid.h"

#include <algorithm>
#include <iterator>

#include "driver/group_reader.h"
#include "entities/arc_rules.h"
#include "entities/block_rules.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

constexpr size_t cornerCount = 4;

bool AllLieInView(const ViewRect& view, const POINT (&corners)[cornerCount]) {
  return std::all_of(std::begin(corners), std::end(corners),
                     [&view](const POINT& corner) { return LiesInView(view, corner); });
}

}  // namespace

int32_t DrawSolid(const EntityRun& run) {
  LineStyle style;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveWholeLinetype(value, style); break;
      case 8:
        if (!ResolveLayer(value, style, state.entColor)) return more;
        break;
      case 10:
      case 11:
      case 12:
      case 13: state.entX[state.groupCode - 10] = GroupHundredths() + run.offsetX; break;
      case 20:
      case 21:
      case 22:
      case 23: state.entY[state.groupCode - 20] = GroupHundredths() + run.offsetY; break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.entColor);

  // The file gives the corners in zigzag order: the last two are swapped to make an outline.
  POINT corners[cornerCount] = {
      ModelToSheet(state.entX[0], state.entY[0]), ModelToSheet(state.entX[1], state.entY[1]),
      ModelToSheet(state.entX[3], state.entY[3]), ModelToSheet(state.entX[2], state.entY[2])};
  if (!AllLieInView(run.view, corners)) return more;
  FillQuad(run.canvas, corners, state.centreX, state.centreY, ColorAt(state.entColor), style.family,
           state.rotated);
  return more;
}

int32_t DrawBlockSolid(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  state.blockColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 6: ResolveBlockLinetype(value, style, inherit); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.blockColor, run.insertColor, inherit)) return more;
        break;
      case 10:
      case 11:
      case 12:
      case 13: state.blockX[state.groupCode - 10] = BlockX(GroupNumber(), run.blockOriginX); break;
      case 20:
      case 21:
      case 22:
      case 23: state.blockY[state.groupCode - 20] = BlockY(GroupNumber(), run.blockOriginY); break;
      case 62: ResolveBlockColor(value, state.blockColor, run.insertColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.blockColor);

  POINT corners[cornerCount] = {
      BlockTransform(state.blockX[0], state.blockY[0], run.blockOriginX, run.blockOriginY),
      BlockTransform(state.blockX[1], state.blockY[1], run.blockOriginX, run.blockOriginY),
      BlockTransform(state.blockX[3], state.blockY[3], run.blockOriginX, run.blockOriginY),
      BlockTransform(state.blockX[2], state.blockY[2], run.blockOriginX, run.blockOriginY)};
  if (!AllLieInView(run.view, corners)) return more;
  // Not turned with the sheet.
  FillQuad(run.canvas, corners, state.centreX, state.centreY, ColorAt(state.blockColor), style.family, 0);
  return more;
}

int32_t DrawDimInsertSolid(const BlockRun& run) {
  LineStyle style;
  int32_t inherit = 0;
  state.dimColor = 0;
  int32_t more = ReadGroup(run.stream);
  for (; more && state.groupCode != 0; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      // Unlike other entities of this scope: the line type needs a record, and "by block" has no effect.
      case 6: ResolveWholeLinetype(value, style); break;
      case 8:
        if (!ResolveInheritedLayer(style, state.dimColor, run.insertColor, inherit)) return more;
        break;
      // Moved, but neither scaled nor turned.
      case 10:
      case 11:
      case 12:
      case 13: state.dimX[state.groupCode - 10] = GroupHundredths() + run.blockOriginX; break;
      case 20:
      case 21:
      case 22:
      case 23: state.dimY[state.groupCode - 20] = GroupHundredths() + run.blockOriginY; break;
      case 62: ResolveDimInsertColor(value, state.dimColor, inherit); break;
    }
  }
  if (LinetypeFilter(style.family)) return more;
  MonochromeRule(state.dimColor);

  POINT corners[cornerCount] = {
      ModelToSheet(state.dimX[0], state.dimY[0]), ModelToSheet(state.dimX[1], state.dimY[1]),
      ModelToSheet(state.dimX[3], state.dimY[3]), ModelToSheet(state.dimX[2], state.dimY[2])};
  if (!AllLieInView(run.view, corners)) return more;
  FillQuad(run.canvas, corners, state.centreX, state.centreY, ColorAt(state.dimColor), style.family,
           state.rotated);
  return more;
}

}  // namespace hexlume
