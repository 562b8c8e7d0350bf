// Converts a part of the sheet.
#include "dialogs/selection_sheet.h"
#include "driver/host_boundary.h"
#include "driver/meta_file.h"
#include "driver/pre_scan.h"
#include "driver/sections.h"
#include "driver/sheet.h"
#include "hexlume.h"

namespace hexlume {

namespace {

int32_t ConvertPartOfSheet(MetaFile& metaFile, const char* path, HENHMETAFILE* out, int32_t halfWidthFont,
                           const RECT& view, int32_t wholeTextClip, int32_t showDialogs) {
  ResetConvState();
  HeaderVars headerVars;
  if (ScanDrawing(path, headerVars) != 1) return HEXLUME_NOT_A_DRAWING;
  const int32_t sheetResult = SetupSheet(headerVars, showDialogs, 0, 0);
  if (sheetResult != 0) return sheetResult;

  if (showDialogs == 1) {
    const DialogResult selection = ShowSelectionSheet();
    if (selection == DialogResult::cancelled) return HEXLUME_CANCELLED;
    // Differs from the other two conversions: true if all layers, or all line types, are unticked.
    if (selection == DialogResult::ok &&
        (state.excludedLayerCount == state.layerCount || state.excludedLtypeCount == 5)) {
      BeginMetaFile(metaFile, view);
      *out = EndMetaFile(metaFile);
      return HEXLUME_OK;
    }
  }
  // The selection isn't saved: vzRotMetaMake repeats the last conversion of a whole sheet.

  TextStream stream;
  if (!OpenText(stream, path)) return HEXLUME_NOT_OPENED;
  BeginMetaFile(metaFile, view);
  DrawSections(stream, metaFile.canvas, headerVars, view, wholeTextClip, 0, halfWidthFont);
  *out = EndMetaFile(metaFile);
  return HEXLUME_OK;
}

}  // namespace

}  // namespace hexlume

int32_t vzReMetaMake(const char* path, HENHMETAFILE* out, int32_t halfWidthFont, RECT view,
                     int32_t wholeTextClip, int32_t showDialogs) {
  using namespace hexlume;
  if (!path || !out) return HEXLUME_NOT_A_DRAWING;
  return LetFaultsLeave([&](MetaFile& metaFile) {
    return ConvertPartOfSheet(metaFile, path, out, halfWidthFont, view, wholeTextClip, showDialogs);
  });
}
