// HATCH: the pattern's name decides whether the boundary is filled or clips the pattern's lines. No table of
// patterns is needed, as the drawing contains their lines. A hatch isn't turned with the sheet.
#include "composite/hatch.h"

#include <cstring>
#include <utility>
#include <vector>

#include "composite/hatch_boundary.h"
#include "composite/hatch_lines.h"
#include "driver/group_reader.h"
#include "driver/run_watch.h"
#include "driver/work_budget.h"
#include "entities/converter_rules.h"

namespace hexlume {

namespace {

// A pen and a brush of one colour, and those that they have replaced on the canvas.
struct HatchTools {
  Owned<HPEN> pen;
  Owned<HBRUSH> brush;
  HGDIOBJ previousPen;
  HGDIOBJ previousBrush;
};

HatchTools SelectTools(Canvas canvas, COLORREF color) {
  CountStroke();
  Owned<HPEN> pen(CreatePen(PS_SOLID, 0, color));
  Owned<HBRUSH> brush(CreateSolidBrush(color));
  const HGDIOBJ previousPen = SelectObject(canvas, pen.get());
  const HGDIOBJ previousBrush = SelectObject(canvas, brush.get());
  return {std::move(pen), std::move(brush), previousPen, previousBrush};
}

void RestoreTools(Canvas canvas, HatchTools& tools) {
  SelectObject(canvas, tools.previousPen);
  SelectObject(canvas, tools.previousBrush);
  tools.pen.reset();
  tools.brush.reset();
}

bool IsSolid(const char* patternName) {
  return std::strcmp(patternName, "SOLID") == 0;
}

// Reads up to the pattern's name and the number of corners, in either order. Returns false at the end
// of the file.
bool ReadArrowhead(TextStream& stream, bool& isSolid, int32_t& count) {
  bool isNamed = false;
  bool isCounted = false;
  while (!isNamed || !isCounted) {
    if (!ReadGroup(stream)) return false;
    switch (state.groupCode) {
      case 2:
        isSolid = IsSolid(state.groupValue);
        isNamed = true;
        break;
      case 93:
        count = Atoi(state.groupValue);
        isCounted = true;
        break;
    }
  }
  return true;
}

// Reads the start of the first edge and the ends of the others except the last. Only the groups of straight
// edges are read. A group 0 doesn't stop the reading. Returns false if the file ends before the last corner.
bool ReadCorners(TextStream& stream, double originX, double originY, int32_t count,
                 std::vector<POINT>& corners) {
  POINT corner = {};
  for (int32_t index = 0; index < count;) {
    if (!ReadGroup(stream)) return false;
    const int32_t groupOfX = index == 0 ? 10 : 11;
    const double coordinate = Hundredths(state.groupValue);
    // Neither scaled nor turned with the block.
    if (state.groupCode == groupOfX) corner.x = ModelToSheet(coordinate + originX, 0.0).x;
    if (state.groupCode != groupOfX + 10) continue;
    corner.y = ModelToSheet(0.0, coordinate + originY).y;
    if (corners.size() < hatchCornerLimit)
      corners.push_back(corner);
    else
      NoteBound(hatchCornersBound);
    ++index;
  }
  return true;
}

}  // namespace

int32_t DrawHatch(const EntityRun& run) {
  HatchBoundary boundary;
  state.entColor = 0;
  int32_t more = ReadGroup(run.stream);
  // A group 0 doesn't stop the search for the pattern's name.
  for (; more && state.groupCode != 2; more = ReadGroup(run.stream)) {
    const char* value = state.groupValue;
    switch (state.groupCode) {
      case 8:
        if (IsLayerExcluded(value)) return more;
        if (const LayerEntry* layer = FindLayer(value)) state.entColor = layer->color;
        break;
      case 62: state.entColor = ResolveColor(Atoi(value)); break;
    }
  }
  if (!more) return more;
  boundary.solidFill = IsSolid(state.groupValue);
  more = ReadHatchBoundary(run.stream, run.canvas, boundary);
  MonochromeRule(state.entColor);

  const Region region = CombineRegions(boundary.regions, boundary.combineMode);
  HatchTools tools = SelectTools(run.canvas, ColorAt(state.entColor));
  if (boundary.solidFill) {
    FillRgn(run.canvas, region.get(), tools.brush.get());
  } else {
    ExtSelectClipRgn(run.canvas, region.get(), RGN_AND);
    FillHatchLines(run.stream, run.canvas, {boundary.extent, state.entColor});
    ExtSelectClipRgn(run.canvas, nullptr, RGN_COPY);
    SetMapMode(run.canvas, MM_HIMETRIC);
    // The lines end with their group 98. Without it the file has ended.
    if (state.groupCode != 98) more = 0;
  }
  RestoreTools(run.canvas, tools);
  return more;
}

int32_t DrawDimInsertHatch(const BlockRun& run) {
  bool isSolid = false;
  int32_t count = 0;
  std::vector<POINT> corners;
  if (!ReadArrowhead(run.stream, isSolid, count)) return 0;
  if (!isSolid || count < 1) return 1;
  if (!ReadCorners(run.stream, run.blockOriginX, run.blockOriginY, count, corners)) return 0;
  MonochromeRule(state.dimColor);

  HatchTools tools = SelectTools(run.canvas, ColorAt(state.dimColor));
  SetPolyFillMode(run.canvas, ALTERNATE);
  CountWork(static_cast<int64_t>(corners.size()), static_cast<int64_t>(corners.size() * sizeof(POINT)));
  Polygon(run.canvas, corners.data(), static_cast<int>(corners.size()));
  RestoreTools(run.canvas, tools);
  return 1;
}

}  // namespace hexlume
