// The one record of a conversion. Every reader and converter works on it directly; there is one per process.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "driver/named_table.h"
#include "driver/numbers.h"
#include "platform/gdi.h"

namespace hexlume {

constexpr int32_t textSize = 257;  // bytes of a name or a group's value with its closing 0

// A layer as the measuring pass finds it.
struct LayerNameEntry {
  char name[textSize];
  int32_t shown;  // 1 to tick the layer in the selection sheet
};

constexpr int32_t ltypeCount = 13;    // slots of ltypes
constexpr int32_t unnamedLtype = 12;  // the slot without a name: no record can define it

// A layer as the drawing pass reads it.
struct LayerEntry {
  char name[textSize];
  int32_t family;   // dash family 0..4
  int32_t pattern;  // index into ltypes, for a family other than 0
  int32_t color;    // index into colorTable; a negative value stands as read
  int32_t width;    // pen width in sheet hundredths
};

// One of the line types that the library knows.
struct LtypeEntry {
  char name[textSize];
  double dashes[6];      // sheet hundredths: positive a stroke, negative a gap
  int32_t elementCount;  // 2, 4 or 6
  int32_t defined;       // 1 if the drawing's table has this line type with so many elements
};

// A dimension style of the drawing.
struct DimStyleEntry {
  char name[textSize];
  char arrowBlock[textSize];   // "_" and the name of the arrow's block, or empty
  char arrowHandle[textSize];  // reference of the arrow's block, or empty
  double dimScale;             // 1.0 unless told
  double arrowSize;
  double textHeight;  // times 100 and times the dimScale told in front of it
};

// A block of the drawing: its entities aren't kept, but read again from the file wherever it is inserted.
struct BlockEntry {
  char name[textSize];
  char ownerHandle[textSize];
  int32_t bodyOffset;  // place in the file behind the block's name, or noBody
};

constexpr int32_t noBody = -1;  // body of a block without a name, and of one that isn't there

struct ExcludedLayer {
  char name[textSize];
};

struct ConvState {
  // The group read last.
  int32_t groupCode;
  char groupValue[textSize];

  // Sheet geometry, written by SetupSheet.
  int32_t sheetWidth;        // whole millimetres while the size dialog runs, hundredths of them afterwards
  int32_t sheetHeight;       // the same
  double sheetHeightF;       // sheet height in hundredths with its fraction
  RECT sheetRect;            // 0, 0, width, height in hundredths: the frame and the default view
  double drawScale;          // model hundredths per sheet hundredth
  int32_t scaleDenominator;  // N of the scale 1:N
  double originX, originY;   // lower left corner of the drawing, model units times 100
  double shiftX, shiftY;     // sheet hundredths, added behind the scale
  int32_t centreX, centreY;  // pivot of the turned sheet, hundredths
  uint8_t rotated;           // 1 while the sheet is drawn turned by 180 degrees

  // Colour.
  int32_t colorCount;      // 7; colour index -1 reads it as a colour
  COLORREF colorTable[8];  // black, red, yellow, green, cyan, blue, magenta, white

  // Tables, with who frees them.
  std::vector<LayerNameEntry> layerNames;
  NamedTable<LayerEntry> layers;   // layerCount of them; the first one stays where a second table has none
  std::vector<LtypeEntry> ltypes;  // ltypeCount slots, or none
  std::vector<DimStyleEntry> dimStyles;
  NamedTable<BlockEntry> blocks;
  NamedTable<ExcludedLayer> excludedLayers;
  std::vector<int32_t> excludedLtypes;  // dash families 0..4
  int32_t layerCount;                   // of layerNames, then of layers
  int32_t excludedLayerCount;           // can exceed the names in excludedLayers: see LayerPage
  int32_t excludedLtypeCount;
  int32_t layerNamesOwned;
  int32_t layersOwned;

  // Run-wide flags.
  int32_t arcClockwise;  // 1 where the system's arcs had to be told their direction
  int32_t monochrome;    // stays between calls
  uint8_t fontMode;      // stays between calls; font of the dialogs
  uint8_t measureSheet;  // 1: the header's limits and extents don't count; set by the host library alone

  // The entity being read, one set for each scope, so that an inner scope doesn't spoil an outer one's. Model
  // units times 100. The places aren't cleared: an entity that lacks a group takes the value of the entity
  // before it.
  int32_t entColor, blockColor, dimColor;
  double entX[4], blockX[4], dimX[4];  // groups 10 to 13
  double entY[4], blockY[4], dimY[4];  // groups 20 to 23
  double entRadius, blockRadius, dimRadius;
  double entCentreX, blockCentreX, dimCentreX;
  double entCentreY, blockCentreY, dimCentreY;
  char entText[textSize - 1], blockText[textSize], dimText[textSize];

  // Faces of text. Those named by a text's own codes stay for the texts behind it, also between calls.
  const char* entFace;  // of the text at hand
  char entFaceName[textSize], blockFaceName[textSize];

  // The INSERT being played back. The scales stay, also between calls: a LEADER without a known style takes
  // those of the INSERT or LEADER before it.
  double insertScaleX = 1.0, insertScaleY = 1.0;
  double insertAngle;          // radians
  char insertLayer[textSize];  // replaces layer "0" within the block
  int32_t blockLevel;          // how many walks over blocks are under way, one within the other
  int64_t nestedBytes;         // what blocks within blocks have read in this conversion: see nestedByteLimit

  std::deque<HGDIOBJ> leftPens, leftFonts;  // what converters have left on the canvas: see LeaveSelected
};

extern ConvState state;

// Header variables and extents, owned by the entry point.
struct HeaderVars {
  int32_t dimScaleSet = 0;
  double dimScale = 0.0;
  int32_t ltScaleSet = 0;
  double ltScale = 0.0;
  int32_t limMaxSet = 0;
  double limMaxX = 0.0, limMaxY = 0.0;
  int32_t limMinSet = 0;
  double limMinX = 0.0, limMinY = 0.0;
  int32_t extMaxSet = 0;
  double extMaxX = 0.0, extMaxY = 0.0;
  int32_t extMinSet = 0;
  double extMinX = 0.0, extMinY = 0.0;
  int32_t pdMode = 0;
  double pdSize = 0.0;        // as read; a size in model hundredths once the sheet is set up
  double drawingScale = 1.0;  // model units per sheet unit
};

// The part of the sheet that is drawn, in hundredths, Y counted downward from the top: the negated Y of the
// canvas.
using ViewRect = RECT;

// Resets what doesn't outlive a call. What stays is the monochrome switch, the dialog font and the last
// values of the entity scratch fields, the faces and the scales and layer of the last INSERT.
void ResetConvState();

// Gives back what the tables hold.
void FreeTables();

// A table entry's colour. Index -1 reads colorCount; every other index outside the table is black.
COLORREF ColorAt(int32_t index);

}  // namespace hexlume
