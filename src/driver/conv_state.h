// The state of a conversion, which all readers and converters use directly. There is one per process.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "driver/named_table.h"
#include "driver/numbers.h"
#include "platform/gdi.h"

namespace hexlume {

constexpr int32_t textSize = 257;  // bytes of a name or a group value, with the terminating 0

// A layer as read by the measuring pass.
struct LayerNameEntry {
  char name[textSize];
  int32_t shown;  // 1 if the layer is ticked in the selection sheet
};

constexpr int32_t ltypeCount = 13;    // number of entries of ltypes
constexpr int32_t unnamedLtype = 12;  // the entry without a name, which no record can define

// A layer as read by the drawing pass.
struct LayerEntry {
  char name[textSize];
  int32_t family;   // dash family 0..4
  int32_t pattern;  // index into ltypes, if family isn't 0
  int32_t color;    // index into colorTable; a negative value is kept as read
  int32_t width;    // pen width, sheet hundredths
};

// One of the line types that the library knows.
struct LtypeEntry {
  char name[textSize];
  double dashes[6];      // sheet hundredths: a stroke if positive, a gap if negative
  int32_t elementCount;  // 2, 4 or 6
  int32_t defined;       // 1 if the drawing's LTYPE table has this line type with this number of elements
};

// A dimension style of the drawing.
struct DimStyleEntry {
  char name[textSize];
  char arrowBlock[textSize];   // "_" and the name of the arrow's block, or empty
  char arrowHandle[textSize];  // handle of the arrow's block, or empty
  double dimScale;             // 1.0 by default
  double arrowSize;
  double textHeight;  // group 140 times 100 times the dimScale read before it
};

// A block of the drawing. Its entities aren't stored, but read from the file again for each INSERT.
struct BlockEntry {
  char name[textSize];
  char ownerHandle[textSize];
  int32_t bodyOffset;  // file position after the block's name, or noBody
};

constexpr int32_t noBody = -1;  // bodyOffset of a block without a name and of a missing block

// The blocks by name, and the first one of each owner.
class BlockTable : public NamedTable<BlockEntry> {
 public:
  void Add(const BlockEntry& entry) {
    NamedTable::Add(entry);
    if (entry.ownerHandle[0] != '\0') firstOfOwner.try_emplace(entry.ownerHandle, size() - 1);
  }

  // Returns null if no block has this owner. Blocks without a handle aren't found.
  const BlockEntry* FindOwned(std::string_view handle) const {
    const auto found = firstOfOwner.find(handle);
    return found == firstOfOwner.end() ? nullptr : &(*this)[found->second];
  }

 private:
  std::map<std::string, size_t, std::less<>> firstOfOwner;
};

struct ExcludedLayer {
  char name[textSize];
};

struct ConvState {
  // The last group read.
  int32_t groupCode;
  char groupValue[textSize];
  double groupNumber;  // the value as a number, if groupNumberIsKnown: see GroupNumber
  uint8_t groupNumberIsKnown;
  const char*
      groupLine;  // else its line in the text, of which numberLineSize bytes can be read; null if that isn't so

  // Sheet geometry, set by SetupSheet.
  int32_t sheetWidth;   // whole millimetres while the size dialog is shown, then hundredths of a millimetre
  int32_t sheetHeight;  // the same
  double sheetHeightF;  // sheet height in hundredths, with its fraction
  RECT sheetRect;       // 0, 0, width, height in hundredths: the frame and the default view
  double drawScale;     // model hundredths per sheet hundredth
  int32_t scaleDenominator;  // N of the scale 1:N
  double originX, originY;   // lower left corner of the drawing, model units times 100
  double shiftX, shiftY;     // sheet hundredths, added after the division by drawScale
  int32_t centreX, centreY;  // centre of rotation if rotated is 1, sheet hundredths
  uint8_t rotated;           // 1 while the sheet is drawn rotated by 180 degrees

  // Colour.
  int32_t colorCount;      // 7; also the colour of index -1
  COLORREF colorTable[8];  // black, red, yellow, green, cyan, blue, magenta, white

  // Tables. The Owned flags say that the table was filled in this conversion.
  std::vector<LayerNameEntry> layerNames;
  NamedTable<LayerEntry> layers;   // layerCount entries, or those of the first table if a second one is empty
  std::vector<LtypeEntry> ltypes;  // ltypeCount entries, or none
  NamedTable<DimStyleEntry> dimStyles;
  BlockTable blocks;
  NamedTable<ExcludedLayer> excludedLayers;
  std::vector<int32_t> excludedLtypes;  // dash families 0..4
  int32_t layerCount;                   // size of layerNames, later of layers
  int32_t excludedLayerCount;           // can exceed the size of excludedLayers: see LayerPage
  int32_t excludedLtypeCount;
  int32_t layerNamesOwned;
  int32_t layersOwned;

  // Flags of the whole conversion.
  int32_t arcClockwise;  // 1 if the system needed an explicit arc direction
  int32_t monochrome;    // kept between calls
  uint8_t fontMode;      // font of the dialogs; kept between calls
  uint8_t measureSheet;  // 1 to ignore the header's limits and extents; set by the host library only

  // The current entity, in model units times 100: one set of fields for each scope, so that an inner scope
  // doesn't overwrite those of an outer one. The coordinates aren't cleared: an entity without a group takes
  // the value of the entity before it.
  int32_t entColor, blockColor, dimColor;
  double entX[4], blockX[4], dimX[4];  // groups 10 to 13
  double entY[4], blockY[4], dimY[4];  // groups 20 to 23
  double entRadius, blockRadius, dimRadius;
  double entCentreX, blockCentreX, dimCentreX;
  double entCentreY, blockCentreY, dimCentreY;
  char entText[textSize - 1], blockText[textSize], dimText[textSize];

  // Font faces. A face that a text names is kept for the texts after it, also between calls.
  const char* entFace;  // of the current text
  char entFaceName[textSize], blockFaceName[textSize];

  // The current INSERT. The scales are kept between calls: a LEADER without a known style uses those of the
  // INSERT or LEADER before it.
  double insertScaleX = 1.0, insertScaleY = 1.0;
  double insertAngle;          // radians
  char insertLayer[textSize];  // replaces layer "0" in the block
  int32_t blockLevel;          // nesting depth of the block walks in progress
  int32_t countedPlace;        // up to this position the innermost of them has counted what it read
  int64_t nestedBytes;         // bytes read by nested blocks in this conversion: see nestedByteLimit

  std::deque<HGDIOBJ> leftPens, leftFonts;  // left selected on the canvas: see LeaveSelected
};

extern ConvState state;

// The header variables, and the extents of the drawing. The export that runs the conversion owns the record.
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
  double pdSize = 0.0;        // as read; after SetupSheet a size in model hundredths
  double drawingScale = 1.0;  // model units per sheet unit
};

// The part of the sheet that is drawn, in hundredths. Y grows downward from the top edge: it is the negated Y
// of the canvas.
using ViewRect = RECT;

// Resets what isn't kept between calls. Kept are the monochrome switch, the dialog font, the entity fields,
// the faces, and the scales and layer of the last INSERT.
void ResetConvState();

// Releases the memory of the tables.
void FreeTables();

// Returns the colour of an index. Index -1 gives colorCount; any other index outside the table gives black.
// A block entity whose layer isn't in the table has this index. It is drawn in the colour 7 (nearly black), the value of the
// field colorCount.
inline COLORREF ColorAt(int32_t index) {
  if (index == -1) return static_cast<COLORREF>(state.colorCount);
  if (index < 0 || index > 7) return state.colorTable[0];
  return state.colorTable[index];
}

}  // namespace hexlume
