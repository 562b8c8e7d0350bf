// The whole sheet.
#include "dialogs/selection_sheet.h"
#include "driver/hexlume_app.h"
#include "driver/meta_file.h"
#include "driver/pre_scan.h"
#include "driver/sections.h"
#include "driver/sheet.h"
#include "hexlume.h"
#include "platform/fault_guard.h"

namespace hexlume {

namespace {

int32_t ConvertWholeSheet(MetaFile& metaFile, const char* path, HENHMETAFILE* out, int32_t showDialogs,
                          int32_t halfWidthFont) {
  ResetConvState();
  HeaderVars headerVars;
  if (ScanDrawing(path, headerVars) != 1) return HEXLUME_NOT_A_DRAWING;
  const int32_t sheetResult = SetupSheet(headerVars, showDialogs, 0, 0);
  if (sheetResult != 0) return sheetResult;

  if (showDialogs == 1) {
    const DialogResult selection = ShowSelectionSheet();
    if (selection == DialogResult::cancelled) return HEXLUME_CANCELLED;
    // Not met when the user simply unticks every layer: one layer must have counted twice.
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

int32_t vzMetaMake(const char* path, HENHMETAFILE* out, int32_t showDialogs, int32_t halfWidthFont) {
  using namespace hexlume;
  if (!path || !out) return HEXLUME_NOT_A_DRAWING;
  MetaFile metaFile;
  int32_t result = HEXLUME_NOT_A_DRAWING;
  try {
    GuardFaults([&] { result = ConvertWholeSheet(metaFile, path, out, showDialogs, halfWidthFont); });
  } catch (...) {
    // What was drawn before the fault still goes to the host, if the metafile had been begun.
    if (metaFile.canvas) *out = EndMetaFile(metaFile);
  }
  FreeTables();
  return result;
}
