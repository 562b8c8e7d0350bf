#include "support/scripted_seams.h"

#include "dialogs/selection_sheet.h"
#include "dialogs/size_dialog.h"
#include "driver/conv_state.h"

namespace hexlume {

ScriptedSeams seams;

void ResetSeams() {
  seams = {};
  seams.sizeDialog = [] {
    state.scaleDenominator = 100;
    return true;
  };
  seams.selectionSheet = [] { return true; };
  seams.systemVersion = [] { return SystemVersion{10, 0}; };
}

bool ShowSizeDialog() {
  ++seams.sizeDialogCalls;
  return seams.sizeDialog();
}

bool ShowSelectionSheet() {
  ++seams.selectionSheetCalls;
  return seams.selectionSheet();
}

SystemVersion GetSystemVersion() {
  return seams.systemVersion();
}

}  // namespace hexlume
