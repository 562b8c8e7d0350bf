// The rules that the converters share. A converter reads its groups, applies the rules in a fixed order and
// draws at once. This header describes the ENTITIES section; where a twin in a block or a dimension differs,
// the twin says so.
#pragma once

#include <algorithm>
#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume {

// How an entity's strokes are drawn, apart from their colour, according to the groups 6, 8 and 39
// read so far.
struct LineStyle {
  int32_t family = 0;              // dash family: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot
  int32_t pattern = unnamedLtype;  // index into ltypes, for a family other than 0
  int32_t width = 0;               // pen width in sheet hundredths
};

// The pattern of a line type, as the dash walkers take it.
struct Dashes {
  const double* elements;  // sheet hundredths: positive for a dash, negative for a gap
  int32_t count;           // 2, 4 or 6; 0 for a solid stroke
};

// A line type that the library knows.
struct KnownLtype {
  const char* keyword;   // compared with the names in layers and entities
  const char* record;    // name of the record that defines it; empty if none does
  int32_t family;        // dash family 1..4
  int32_t elementCount;  // 2, 4 or 6, the same for all of a family
  int32_t pattern;       // slot of ltypes, and index in this table
};

// In the order of the tests: if several keywords apply, the last one counts.
extern const KnownLtype knownLtypes[ltypeCount];

// Whether the drawing defines the line type of a slot of ltypes. The last slot is never defined.
bool IsLtypeDefined(int32_t pattern);

// The dashes of a style, from its slot of ltypes. A slot that isn't defined but has elements counts too:
// whether it is defined is tested when a group 6 is read, and a second LTYPE table can change a slot that a
// layer already uses. A slot that no record has set gives a solid line.
Dashes DashesOf(const LineStyle& style);

// Counts the comparison of a line type's name with all keywords.
void CountLinetype();

// Group 6: takes the line type whose keyword the value contains.
void ResolveLinetype(const char* value, LineStyle& style);

// Whether the user has excluded this layer.
inline bool IsLayerExcluded(const char* name) {
  return state.excludedLayers.FindFirst(name) != nullptr;
}

// The first layer with this name in the table, or null.
inline const LayerEntry* FindLayer(const char* name) {
  return state.layers.FindFirst(name);
}

// Group 8: takes the layer's style and colour. Returns false if the user has excluded the layer: the
// converter then returns.
inline bool ResolveLayer(const char* name, LineStyle& style, int32_t& color) {
  if (IsLayerExcluded(name)) return false;
  if (const LayerEntry* layer = FindLayer(name)) {
    style = {layer->family, layer->pattern, layer->width};
    color = layer->color;
  }
  return true;
}

// Group 39: the thickness divided by 100 is used as the pen width, so a thickness below 100 gives 0.
int32_t ResolveWidth(const char* value);

// Group 62: returns the index into colorTable for a colour number of the drawing. Yellow and
// white become black.
int32_t ResolveColor(int32_t number);

// Whether the user has excluded the line types of this dash family.
inline bool LinetypeFilter(int32_t family) {
  const auto& excluded = state.excludedLtypes;
  return std::find(excluded.begin(), excluded.end(), family) != excluded.end();
}

// Makes the colour black in monochrome.
inline void MonochromeRule(int32_t& color) {
  if (state.monochrome != 0) color = 0;
}

// Converts a point in model units times 100 to the sheet. Y is 0 at the sheet's top edge and
// negative below it.
inline POINT ModelToSheet(double x, double y) {
  return {Trunc((x - state.originX) / state.drawScale + state.shiftX),
          Trunc((y - state.originY) / state.drawScale - state.sheetHeightF + state.shiftY)};
}

// Converts a coordinate read in a block to model units times 100, with the insert's current scales.
inline double BlockX(double value, double blockOriginX) {
  return value * 100.0 * state.insertScaleX + blockOriginX;
}
inline double BlockY(double value, double blockOriginY) {
  return value * 100.0 * state.insertScaleY + blockOriginY;
}

// Turns a point about the block's origin by the insert's angle. The point is a result of BlockX and BlockY.
void TurnByAngle(double& x, double& y, double blockOriginX, double blockOriginY);
inline void TurnAboutOrigin(double& x, double& y, double blockOriginX, double blockOriginY) {
  if (state.insertAngle != 0.0) TurnByAngle(x, y, blockOriginX, blockOriginY);
}

// Turns a point by the insert's angle and converts it to the sheet. The point is a result of
// BlockX and BlockY.
inline POINT BlockTransform(double x, double y, double blockOriginX, double blockOriginY) {
  TurnAboutOrigin(x, y, blockOriginX, blockOriginY);
  return ModelToSheet(x, y);
}

// Whether a point is in the view or on its edges.
bool LiesInView(const ViewRect& view, const POINT& point);

// Moves a point into the view, each coordinate by itself.
void ClampToView(const ViewRect& view, POINT& point);

// Whether both points are beyond the same edge of the view.
bool BeyondOneEdge(const ViewRect& view, const POINT& a, const POINT& b);

// Clamps a line that is parallel to an axis to the view; a is its left point. Returns false and changes
// nothing if the line is slanted.
bool ClampAxisParallel(const ViewRect& view, POINT& a, POINT& b);

// Cuts a line to the view; a is its left point. Returns true if nothing is left.
bool ViewReject(const ViewRect& view, POINT& a, POINT& b);

}  // namespace hexlume
