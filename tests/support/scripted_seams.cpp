#include "support/scripted_seams.h"

#include "dialogs/selection_sheet.h"
#include "dialogs/size_dialog.h"
#include "driver/conv_state.h"

namespace hexlume {

ScriptedSeams seams;

namespace {

DialogResult Show(const std::function<bool()>& dialog) {
  if (!seams.makesWindows) return DialogResult::notShown;
  return dialog() ? DialogResult::ok : DialogResult::cancelled;
}

}  // namespace

void ResetSeams() {
  seams = {};
  seams.sizeDialog = [] {
    state.scaleDenominator = 100;
    return true;
  };
  seams.selectionSheet = [] { return true; };
  seams.systemVersion = [] { return SystemVersion{10, 0}; };
}

DialogResult ShowSizeDialog() {
  ++seams.sizeDialogCalls;
  return Show(seams.sizeDialog);
}

DialogResult ShowSelectionSheet() {
  ++seams.selectionSheetCalls;
  return Show(seams.selectionSheet);
}

SystemVersion GetSystemVersion() {
  return seams.systemVersion();
}

}  // namespace hexlume
