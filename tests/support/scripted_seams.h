// The dialogs and the system's version as a test wants them, in the place of the library's own.
#pragma once

#include <functional>

#include "platform/system_version.h"

namespace hexlume {

struct ScriptedSeams {
  std::function<bool()> sizeDialog;      // what ShowSizeDialog does; false if the user cancelled
  std::function<bool()> selectionSheet;  // what ShowSelectionSheet does
  std::function<SystemVersion()>
      systemVersion;         // what GetSystemVersion does, at the start of an ENTITIES section
  bool makesWindows = true;  // otherwise the dialogs do nothing and say that they weren't shown
  int sizeDialogCalls = 0;
  int selectionSheetCalls = 0;
};

extern ScriptedSeams seams;

// Dialogs answered with OK and no change, a system of today, no calls counted.
void ResetSeams();

}  // namespace hexlume
