// Repeats the last conversion of a whole sheet, rotated by 180 degrees.
#include "driver/hexlume_app.h"
#include "driver/host_boundary.h"
#include "driver/meta_file.h"
#include "driver/pre_scan.h"
#include "driver/sections.h"
#include "driver/sheet.h"
#include "hexlume.h"

namespace hexlume {

namespace {

int32_t ConvertTurned(MetaFile& metaFile, HENHMETAFILE* out) {
  ResetConvState();
  state.rotated = 1;
  const char* path;
  int32_t drawScale;
  int32_t halfWidthFont;
  theApp.LoadSelection(path, state.excludedLayerCount, state.excludedLayers, state.excludedLtypeCount,
                       state.excludedLtypes, drawScale, halfWidthFont);

  HeaderVars headerVars;
  if (ScanDrawing(path, headerVars) != 1) return HEXLUME_NOT_A_DRAWING;
  // The saved scale is used as a denominator, although it includes the drawing's own scale already.
  const int32_t sheetResult = SetupSheet(headerVars, 0, drawScale, 0);
  if (sheetResult != 0) return sheetResult;

  TextStream stream;
  if (!OpenText(stream, path)) return HEXLUME_NOT_OPENED;
  BeginMetaFile(metaFile, state.sheetRect);
  DrawSections(stream, metaFile.canvas, headerVars, state.sheetRect, 0, 1, halfWidthFont);
  *out = EndMetaFile(metaFile);
  return HEXLUME_OK;
}

}  // namespace

}  // namespace hexlume

int32_t vzRotMetaMake(HENHMETAFILE* out) {
  using namespace hexlume;
  if (!out) return HEXLUME_NOT_A_DRAWING;
  return LetFaultsLeave([&](MetaFile& metaFile) { return ConvertTurned(metaFile, out); });
}
