// Converts the whole sheet with the model at full size.
#include "dialogs/selection_sheet.h"
#include "driver/hexlume_app.h"
#include "driver/host_boundary.h"
#include "driver/meta_file.h"
#include "driver/pre_scan.h"
#include "driver/sections.h"
#include "driver/sheet.h"
#include "hexlume.h"

namespace hexlume {

namespace {

int32_t ConvertFullSize(MetaFile& metaFile, const char* path, HENHMETAFILE* out, int32_t showDialogs,
                        int32_t halfWidthFont) {
  ResetConvState();
  HeaderVars headerVars;
  if (ScanDrawing(path, headerVars) != 1) return HEXLUME_NOT_A_DRAWING;
  const int32_t sheetResult = SetupSheet(headerVars, showDialogs, 0, 1);
  if (sheetResult != 0) return sheetResult;

  if (showDialogs == 1) {
    const DialogResult selection = ShowSelectionSheet();
    if (selection == DialogResult::cancelled) return HEXLUME_CANCELLED;
    // Not true if the user only unticks all layers: it needs one layer that counts twice, because
    // it isn't listed.
    if (selection == DialogResult::ok && state.excludedLayerCount == state.layerCount + 1) {
      BeginMetaFile(metaFile, state.sheetRect);
      *out = EndMetaFile(metaFile);
      return HEXLUME_OK;
    }
  }
  theApp.SaveSelection(path, state.excludedLayerCount, state.excludedLayers, state.excludedLtypeCount,
                       state.excludedLtypes, Trunc(state.drawScale), halfWidthFont);

  TextStream stream;
  if (!OpenText(stream, path)) return HEXLUME_NOT_OPENED;
  BeginMetaFile(metaFile, state.sheetRect);
  DrawSections(stream, metaFile.canvas, headerVars, state.sheetRect, 0, 1, halfWidthFont);
  *out = EndMetaFile(metaFile);
  return HEXLUME_OK;
}

}  // namespace

}  // namespace hexlume

int32_t vzFullSizeMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont) {
  using namespace hexlume;
  if (!path || !out) return HEXLUME_NOT_A_DRAWING;
  return LetFaultsLeave(
      [&](MetaFile& metaFile) { return ConvertFullSize(metaFile, path, out, showDialogs, halfWidthFont); });
}
