// The rules that the converters share. A converter reads its groups, applies them in a fixed order and draws
// at once. They are told for an entity of the ENTITIES section; what a twin in a block or a dimension does
// otherwise stands in the twin.
#pragma once

#include <cstdint>

#include "canvas/canvas.h"
#include "driver/conv_state.h"

namespace hexlume {

// How an entity's strokes are drawn, besides their colour: what its groups 6, 8 and 39 have told so far.
struct LineStyle {
  int32_t family = 0;              // dash family: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot
  int32_t pattern = unnamedLtype;  // index into ltypes, for a family other than 0
  int32_t width = 0;               // pen width in sheet hundredths
};

// What a dash walker is given of a line type.
struct Dashes {
  const double* elements;  // sheet hundredths: positive a dash, negative a gap
  int32_t count;           // 2, 4 or 6; 0 where the stroke is solid
};

// A keyword of line type names with the family and the slot of ltypes that it stands for.
struct LtypeKeyword {
  const char* name;
  int32_t family;
  int32_t pattern;
};

// In the order of the tests: where several apply, the last one wins.
extern const LtypeKeyword ltypeKeywords[ltypeCount];

// Whether the drawing defines the line type of a slot of ltypes; the last keyword's never is.
bool IsLtypeDefined(int32_t pattern);

// The dashes of a style, as its slot of ltypes has them. Whether the slot is defined is asked where a group 6
// is read, and not here: a later table of line types can leave a layer a slot that has elements alone. A slot
// that no record has set draws solid.
Dashes DashesOf(const LineStyle& style);

// Group 6: the line type that the value holds the keyword of.
void ResolveLinetype(const char* value, LineStyle& style);

// Whether the user left this layer out.
bool IsLayerExcluded(const char* name);

// The first layer of this name in the table, or null.
const LayerEntry* FindLayer(const char* name);

// Group 8: takes over the layer's style and colour. False if the user left the layer out: the converter then
// returns.
bool ResolveLayer(const char* name, LineStyle& style, int32_t& color);

// Group 39: thickness serves as pen width here, and below 100 it gives 0.
int32_t ResolveWidth(const char* value);

// Group 62: the index into colorTable for a colour number of the drawing. Yellow and white come out as black.
int32_t ResolveColor(int32_t number);

// Whether the user left out the line types of this dash family.
bool LinetypeFilter(int32_t family);

// In monochrome everything is black.
void MonochromeRule(int32_t& color);

// A point of the model, in model units times 100, on the sheet. Y is 0 at the sheet's top and negative below
// it.
POINT ModelToSheet(double x, double y);

// A block's coordinate as it is read, in model units times 100, with the scales that are in force at that
// moment.
double BlockX(double value, double blockOriginX);
double BlockY(double value, double blockOriginY);

// Turns a point that BlockX and BlockY have placed by the insert's angle about the block's origin.
void TurnAboutOrigin(double& x, double& y, double blockOriginX, double blockOriginY);

// A point that BlockX and BlockY have placed, turned by the insert's angle, on the sheet.
POINT BlockTransform(double x, double y, double blockOriginX, double blockOriginY);

// Whether a point lies in the view, its edges counted in.
bool LiesInView(const ViewRect& view, const POINT& point);

// Moves a point to the view's nearest edge, each coordinate by itself.
void ClampToView(const ViewRect& view, POINT& point);

// Whether both points lie beyond one and the same edge of the view.
bool BeyondOneEdge(const ViewRect& view, const POINT& a, const POINT& b);

// Brings a line that is parallel to an axis, its left point first, into the view. False, with the points as
// they were, if it is slanted.
bool ClampAxisParallel(const ViewRect& view, POINT& a, POINT& b);

// Cuts a line, its left point first, to the view. True if nothing is left of it.
bool ViewReject(const ViewRect& view, POINT& a, POINT& b);

}  // namespace hexlume
